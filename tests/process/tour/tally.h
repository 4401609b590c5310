// Counts and values of all visits of a run.
#pragma once

#include <array>

namespace zol::tour {

constexpr int parameter_count = 256;
constexpr int never_set = -1;

// In memory that all visits share: each is its own process.
struct Tally {
    int passed = 0, failed = 0, screenshots = 0;
    int compared = 0; // comparisons of the windows with the program's data
    // The values given to the unit, by parameter, which later visits must find.
    std::array<int, parameter_count> given;
};

} // namespace zol::tour
