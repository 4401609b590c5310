// The program on a real screen.
#pragma once

#include <functional>

namespace zol::view::qt {

// Brings up the toolkit, runs `program` and then the pump, until the program ends the process.
// `program_name` is all that the toolkit learns of the command line. Without a display the toolkit
// says so and ends the process.
[[noreturn]] void run(char* program_name, const std::function<void()>& program);

} // namespace zol::view::qt
