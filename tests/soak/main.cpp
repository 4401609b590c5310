// scripts/prove soak: random sessions on virtual time, one for each seed, an hour and more each.
// The unit has any family and version, the operator does anything that the windows allow, and line
// and car have random faults; at the end the line is good, and the tool must recover as its rules
// say. Each run is its own process, so that a crash or a hang ends one run and is reported with its
// seed.
#include "tests/soak/pool.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <gmock/gmock.h>
#include <string>

namespace {

constexpr const char* usage =
    "usage: soak [--help] [--seed N | --first N --count N] [--hours H] [--jobs N]\n"
    "  --seed N           one run, with its complete transcript\n"
    "  --first N          the first seed (1)\n"
    "  --count N          number of seeds (1000)\n"
    "  --hours H          simulated hours of each run (1)\n"
    "  --jobs N           parallel processes (2)\n";

template <class Number>
bool read(const char* text, Number& number) {
    const char* const end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, number);
    return error == std::errc{} && stop == end && number > 0;
}

} // namespace

int main(int count, char** words) {
    testing::InitGoogleMock(); // the session is a test fixture
    zol::soak::PoolOptions options;
    bool understood = count % 2 == 1;
    for (int i = 1; understood && i + 1 < count; i += 2) {
        const std::string name = words[i];
        const char* const value = words[i + 1];
        if (name == "--seed") {
            understood = read(value, options.first);
            options.count = 1;
            options.whole_transcript = true;
        } else if (name == "--first") {
            understood = read(value, options.first);
        } else if (name == "--count") {
            understood = read(value, options.count);
        } else if (name == "--hours") {
            understood = read(value, options.hours);
        } else if (name == "--jobs") {
            understood = read(value, options.jobs);
        } else {
            understood = false;
        }
    }
    if (!understood) {
        std::fputs(usage, stderr);
        return 2;
    }
    return zol::soak::soak(options) ? 0 : 1;
}
