// The simulated car in words.
#pragma once

#include <string>

namespace sim {

class ControlUnit;
class Memory;

// "PAR_3 = 1200  lower gain, thousandths".
std::string memory_line(const Memory& memory, int number);
// All parameters with a meaning, and those that are not 0.
std::string memory_report(const Memory& memory);
// "2 faults: P0171 P0301".
std::string fault_report(ControlUnit& unit);
// Engine, gas side, tank with its five lamps, unit; a line for each.
std::string state_report(ControlUnit& unit);

} // namespace sim
