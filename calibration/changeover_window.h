// The window of the changeover and cut-off settings: when the unit changes over to gas, and when it
// cuts off gas or petrol. Each control writes at once; the one button closes the window and undoes
// nothing.
//
// While the window is open the main window is disabled and polling is off. The window uses
// `poll_enabled` as a lock: while it is true, the options write nothing.
#pragma once

namespace zol::calibration {

void connect_changeover_window();

} // namespace zol::calibration
