// The power adjustment dialog: the gain at high load as a percentage above or below the one at low
// load. It stands ready, and no menu or button opens it.
#pragma once

namespace zol::calibration {

// Stops the polling, disables the main window and shows the dialog. CANCEL, or closing it by its
// frame, gives both back; OK leaves it open.
void show_power_dialog();

void connect_power_dialog();

} // namespace zol::calibration
