// The fitter's shortcuts: seven plain keys for the changeover and the calibration sliders, and four
// with Ctrl for what no menu offers. The main window sees each key before the focused control.
#pragma once

namespace zol::calibration {

void connect_keyboard();

} // namespace zol::calibration
