// Runs the program with the Qt implementation of screen and platform.
#pragma once

#include <functional>

namespace zol::view::qt {

// Starts the toolkit, calls `program`, then runs the pump until the program ends the process. The
// toolkit gets no other argument than `program_name`. Without a display the toolkit prints an error
// and ends the process.
[[noreturn]] void run(char* program_name, const std::function<void()>& program);

} // namespace zol::view::qt
