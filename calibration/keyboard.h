// The keyboard shortcuts of the main window: seven keys for the changeover and the gain and
// attenuation sliders, and four keys with Ctrl for functions that no menu offers. The main window
// handles each key before the focused control does.
#pragma once

namespace zol::calibration {

void connect_keyboard();

} // namespace zol::calibration
