// scripts/prove soak: many runs, each in a process of its own, so that a crash or a hang costs one
// run and is reported with its seed.
#include "tests/soak/pool.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <gmock/gmock.h>
#include <string>

namespace {

constexpr const char* usage =
    "usage: soak [--help] [--seed N | --first N --count N] [--hours H] [--jobs N]\n"
    "  --seed N           one run, with its whole transcript\n"
    "  --first N          the first of the seeds; without it 1\n"
    "  --count N          how many of them; without it 1000\n"
    "  --hours H          simulated hours of each run; without it 1\n"
    "  --jobs N           processes at a time; without it 2\n";

template <class Number>
bool read(const char* text, Number& number) {
    const char* const end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, number);
    return error == std::errc{} && stop == end && number > 0;
}

} // namespace

int main(int count, char** words) {
    testing::InitGoogleMock(); // the bench is a test's fixture
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
