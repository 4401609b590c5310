// The fuzzer's bytes, taken piece by piece. Behind their end stand zeros and empty pieces.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zol::fuzz {

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    bool empty() const { return rest_.empty(); }
    // True for one input in so many, by a sum over what is left: for what takes long. A switch of
    // the fuzzer's own would soon be on in all that it keeps.
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
    // A piece behind a byte that tells its length.
    std::vector<std::uint8_t> piece() { return bytes(byte()); }
    std::string text_piece() {
        const auto taken = piece();
        return {taken.begin(), taken.end()};
    }
    // Up to the next line end, which is taken and left out.
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

} // namespace zol::fuzz
