// The commands that are typed at the simulated car.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

class ControlUnit;

// Carries out one line. Returns what is to be shown, without a line end behind it; for a line that
// is not understood a sentence that begins with "Error: " and says what to type instead. An empty
// line and one that begins with # do nothing and show nothing.
std::string run_command(ControlUnit& unit, std::string_view line, std::int64_t now_us);

// All commands, one a line, with what they do.
std::string command_help();

} // namespace sim
