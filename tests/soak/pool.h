// Runs many seeds in parallel processes and sums up their results.
#pragma once

#include <cstdint>

namespace zol::soak {

struct PoolOptions {
    std::uint32_t first = 1;
    std::uint32_t count = 1000;
    double hours = 1;
    int jobs = 2;
    bool whole_transcript = false; // print it without a finding too
};

// Prints every finding with its seed and the transcript before it, and a summary. True without a
// finding.
bool soak(const PoolOptions& options);

} // namespace zol::soak
