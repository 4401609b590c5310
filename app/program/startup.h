// Start-up, up to the first activation of the main window, and shutdown.
#pragma once

namespace zol::app {

// Sets the start values and shows the splash window. Its activation, which the pump runs, shows the
// main window. The handlers must be connected before.
void sub_main();

// Locks the application folder for the life of the process. False if another process has locked it.
// A folder that cannot be locked does not prevent the start.
bool claim_application_folder();

void connect_startup();

} // namespace zol::app
