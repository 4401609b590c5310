#include "tests/soak/log.h"

#include <cstdio>

namespace zol::soak {

void Log::count(std::string_view what) {
    for (const char c : what) {
        digest_ ^= static_cast<unsigned char>(c);
        digest_ *= 1099511628211u;
    }
    digest_ ^= static_cast<std::uint64_t>(now_us());
    digest_ *= 1099511628211u;
}

void Log::note(const std::string& what) {
    count(what);
    char time[32];
    std::snprintf(time, sizeof time, "%11.3f  ", static_cast<double>(now_us()) / 1e6);
    lines_.push_back(time + what);
    if (!keep_all_ && lines_.size() > most_lines) lines_.pop_front();
}

void Log::find(const std::string& what) {
    note("FINDING: " + what);
    if (findings_.size() < most_findings) findings_.push_back(lines_.back());
}

} // namespace zol::soak
