// A frame and when it left, as the tests of the waits expect and print it.
#pragma once

#include "tests/support/bench.h"

#include <cstdint>
#include <ostream>

namespace zol::tests {

struct Timed {
    std::int64_t ms; // since the operator's act
    Frame frame;
    bool operator==(const Timed&) const = default;
};
inline Timed At(std::int64_t ms, Frame frame) { return {ms, frame}; }
inline std::ostream& operator<<(std::ostream& out, const Timed& timed) {
    return out << timed.ms << " ms: " << timed.frame;
}

} // namespace zol::tests
