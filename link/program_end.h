// The end of the program: nothing more is sent, and the port is closed.
#pragma once

namespace zol::link {

// The time from the closing of the main window to the end of the process.
constexpr int closing_ms = 600;

// Ends the process `ms` from now with the port closed, whichever handlers, waits and boxes are
// running then. From this call on nothing is sent.
void begin_program_end(int ms);

} // namespace zol::link
