// The window of the changeover and cut-off settings: when the unit changes over to gas, and when it
// cuts gas or petrol off. Each control writes at once; its one button closes it and cancels
// nothing.
//
// While it is open the main window is disabled and the polling is off, and the polling flag serves
// it as a lock: as long as that is true its options do nothing.
#pragma once

namespace zol::calibration {

void connect_changeover_window();

} // namespace zol::calibration
