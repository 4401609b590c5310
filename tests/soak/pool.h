// The runs, a few at a time, each in a process of its own, and what they came to.
#pragma once

#include <cstdint>

namespace zol::soak {

struct PoolOptions {
    std::uint32_t first = 1;
    std::uint32_t count = 1000;
    double hours = 1;
    int jobs = 2;
    bool whole_transcript = false; // printed also when all went well
};

// Prints every finding with its seed, its place and the transcript before it, and one summary. True
// if there was none.
bool soak(const PoolOptions& options);

} // namespace zol::soak
