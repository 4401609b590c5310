// The fuzzer's bytes, taken piece by piece, then zeros and empty pieces; and what each target
// defines.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zol::fuzz {

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    bool empty() const { return rest_.empty(); }
    // True for one of `many` inputs, by a checksum: for slow work. The fuzzer would soon set a bit
    // of the input for this in all inputs that it keeps.
    bool one_in(std::uint32_t many) const {
        std::uint32_t sum = 2166136261;
        for (const std::uint8_t byte : rest_)
            sum = (sum ^ byte) * 16777619;
        return (sum >> 8) % many == 0;
    }
    std::uint8_t byte() {
        if (rest_.empty()) return 0;
        const std::uint8_t first = rest_.front();
        rest_ = rest_.subspan(1);
        return first;
    }
    int word() {
        const int high = byte();
        return high * 256 + byte();
    }
    std::vector<std::uint8_t> bytes(std::size_t count) {
        const auto taken = rest_.first(std::min(count, rest_.size()));
        rest_ = rest_.subspan(taken.size());
        return {taken.begin(), taken.end()};
    }
    // A piece after a byte with its length.
    std::vector<std::uint8_t> piece() { return bytes(byte()); }
    std::string text_piece() {
        const auto taken = piece();
        return {taken.begin(), taken.end()};
    }
    // Up to the next line end, which is skipped.
    std::string_view line() {
        const std::string_view all = text();
        const auto end = std::min(all.find('\n'), all.size());
        rest_ = rest_.subspan(std::min(end + 1, all.size()));
        return all.substr(0, end);
    }
    std::string_view text() const {
        return {reinterpret_cast<const char*>(rest_.data()), rest_.size()};
    }

  private:
    std::span<const std::uint8_t> rest_;
};

// Runs the target on one input. Each target defines it.
void run_input(Input input);

// If the claim does not hold, prints it and aborts the process.
inline void require(bool holds, const char* claim) {
    if (holds) return;
    std::fprintf(stderr, "This does not hold: %s\n", claim);
    std::abort();
}

} // namespace zol::fuzz
