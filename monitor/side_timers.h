// The jobs of the main window's other timers: the status read of the lambda panel, the blinking
// tuning line, the watchdog that restarts polling, the one-time filling of the main window after
// the connection dialog, and a tick that keeps polling stopped while the settings panel is open and
// blinks two reminders (injection time never acquired, car never checked).
#pragma once

namespace zol::monitor {

void connect_side_timers();

} // namespace zol::monitor
