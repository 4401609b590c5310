// From the entry to the main window on its way, and the end of the program.
#pragma once

namespace zol::app {

// The entry of the logic: sets the start values and shows the splash window. The pump does the
// rest. The handlers must be connected before.
void sub_main();

// True if this is the only instance for the application folder; the lock lasts as long as the
// process. A folder that cannot hold a lock file has no second instance either.
bool claim_application_folder();

// From the closing of the main window to the end of the process.
constexpr int closing_ms = 600;

// The process ends `ms` from now, with the port closed, whatever handlers, waits and boxes run
// then; from now on no frame leaves.
void begin_program_end(int ms);

void connect_startup();

} // namespace zol::app
