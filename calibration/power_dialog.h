// The power adjustment dialog: sets the gain at high load as a percentage above or below the gain
// at low load. No menu item or button opens it.
#pragma once

namespace zol::calibration {

// Stops polling, disables the main window and shows the dialog. OK writes and leaves the dialog
// open. CANCEL, or closing it by its title bar, enables the main window and starts polling.
void show_power_dialog();

void connect_power_dialog();

} // namespace zol::calibration
