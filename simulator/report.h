// Texts about the state of the simulated car and unit.
#pragma once

#include <string>

namespace sim {

class ControlUnit;
class Memory;

// For example "PAR_3 = 1200  lower gain, thousandths".
std::string memory_line(const Memory& memory, int number);
// All parameters that have a meaning or are not 0, one per line.
std::string memory_report(const Memory& memory);
// For example "2 faults: P0171 P0301".
std::string fault_report(ControlUnit& unit);
// Engine, petrol, gas, tank with the five lamps, time on gas and unit, one per line.
std::string state_report(ControlUnit& unit);

} // namespace sim
