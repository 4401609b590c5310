// The periodic jobs beside the polling loop: the status read of the lambda panel, the blinking
// tuning line, the guard of the settings panel with two reminders, the watchdog that restarts
// polling, and the one-time filling of the main window after the connection dialog.
#pragma once

namespace zol::monitor {

void connect_side_timers();

} // namespace zol::monitor
