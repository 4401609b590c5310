// One row of the table: what was measured, the figure, and what was asked for.
#pragma once

#include <string>

namespace zol::bench {

void print_row(const std::string& what, double figure, const std::string& unit,
               const std::string& asked_for);

// What this process has used so far.
double processor_ms();
double resident_mib();

} // namespace zol::bench
