// The end of the program as the line sees it: whoever begins it lets no frame leave any more.
#pragma once

namespace zol::link {

// From the closing of the main window to the end of the process.
constexpr int closing_ms = 600;

// The process ends `ms` from now, with the port closed, whatever handlers, waits and boxes run
// then; from now on no frame leaves.
void begin_program_end(int ms);

} // namespace zol::link
