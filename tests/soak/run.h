// One run of the soak. It depends on nothing but its seed.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace zol::soak {

struct RunOptions {
    std::uint32_t seed = 1;
    double hours = 1;      // of virtual time, before the recovery
    bool keep_all = false; // all lines of the transcript, not only the last
};

struct RunResult {
    std::vector<std::string> findings;
    std::deque<std::string> transcript;
    std::uint64_t digest = 0; // of all events
    std::string recovery;     // the result
    double hours = 0;
    std::uint64_t acts = 0, starts = 0;
    int deepest_wait = 0;
};

RunResult run(const RunOptions& options);

} // namespace zol::soak
