// The commands that control the simulated car and unit, as typed on standard input.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

class ControlUnit;

// Runs one command line. Returns the text to show, without a line end. For a wrong command this is
// a sentence that begins with "Error: " and says what to type; nothing was changed then. An empty
// line and a line that begins with # do nothing.
std::string run_command(ControlUnit& unit, std::string_view line, std::int64_t now_us);

// All commands with their effects, one per line.
std::string command_help();

} // namespace sim
