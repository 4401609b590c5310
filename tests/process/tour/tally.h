// What the whole tour has seen so far, across its visits.
#pragma once

#include <array>

namespace zol::tour {

constexpr int parameter_count = 256;
constexpr int never_set = -1;

// Stands in memory that all visits share: each is a run of the program, a process of its own.
struct Tally {
    int seen = 0, missed = 0, pictures = 0;
    int compared = 0; // how often the windows were compared with the program's data
    // What the operator gave the unit, by parameter, to be found again later.
    std::array<int, parameter_count> given;
};

} // namespace zol::tour
