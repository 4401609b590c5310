// A small random generator with a seed: the same seed gives the same sequence on every machine and
// library.
#pragma once

#include <cstdint>

namespace sim {

class Random {
  public:
    explicit Random(std::uint32_t seed) : state_(seed * 2654435761u ^ 0x9e3779b9u) {
        if (state_ == 0) state_ = 1;
    }
    std::uint32_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }
    // An integer from `low` to `high`, both included.
    int between(int low, int high) {
        const auto width = static_cast<std::uint32_t>(high - low) + 1u;
        return low + static_cast<int>(next() % width);
    }
    // From 0 up to, but not including, 1.
    double unit() { return (next() >> 8) * (1.0 / 16777216.0); }
    // From -1 to 1.
    double swing() { return 2.0 * unit() - 1.0; }
    bool chance(double probability) { return probability > 0 && unit() < probability; }

  private:
    std::uint32_t state_;
};

} // namespace sim
