// From the entry to the main window on its way, and the main window's closing.
#pragma once

namespace zol::app {

// The entry of the logic: sets the start values and shows the splash window. The pump does the
// rest. The handlers must be connected before.
void sub_main();

// True if this is the only instance for the application folder; the lock lasts as long as the
// process. A folder that cannot hold a lock file has no second instance either.
bool claim_application_folder();

void connect_startup();

} // namespace zol::app
