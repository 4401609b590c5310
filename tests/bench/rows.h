// Prints a row of the table: what was measured, the figure and its limit.
#pragma once

#include <string>

namespace zol::bench {

void print_row(const std::string& what, double figure, const std::string& unit,
               const std::string& asked_for);

// Used by this process so far.
double processor_ms();
double resident_mib();

} // namespace zol::bench
