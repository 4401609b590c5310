#include "simulator/wire.h"

#include <algorithm>
#include <utility>

namespace sim {

bool FrameReader::plausible() const {
    if (held_ > 0 && bytes_[0] != 'P') return false;
    if (held_ > 1 && bytes_[1] != 'C') return false;
    if (held_ > 2 && bytes_[2] != 0) return false;
    if (held_ > 3 && bytes_[3] != 5 && bytes_[3] != 9) return false;
    return held_ <= 4 || (bytes_[3] == 9) == (bytes_[4] == 2);
}

std::optional<Frame> FrameReader::push(std::uint8_t byte, std::int64_t now_us) {
    if (held_ > 0 && now_us - last_byte_us_ > gap_us) held_ = 0;
    last_byte_us_ = now_us;
    bytes_[held_++] = byte;
    while (!plausible()) {
        std::copy(bytes_.begin() + 1, bytes_.begin() + static_cast<std::ptrdiff_t>(held_),
                  bytes_.begin());
        --held_;
    }
    if (held_ < 5 || held_ < bytes_[3]) return std::nullopt;
    Frame frame{now_us, bytes_[4]};
    if (held_ == 9) {
        frame.number = bytes_[5] * 256 + bytes_[6];
        frame.value = bytes_[7] * 256 + bytes_[8];
    }
    held_ = 0;
    return frame;
}

std::int64_t Transmitter::send(std::vector<std::uint8_t> bytes, std::int64_t first_at_us) {
    if (bytes.empty() || waiting_.size() >= most_waiting) return free_at_us_;
    Answer answer{std::move(bytes), std::max(first_at_us, free_at_us_)};
    const std::int64_t last_at_us = answer.first_at_us + wire_time_us(answer.bytes.size() - 1);
    free_at_us_ = answer.first_at_us + wire_time_us(answer.bytes.size());
    waiting_.push_back(std::move(answer));
    return last_at_us;
}

std::optional<std::int64_t> Transmitter::next_byte_at_us() const {
    if (waiting_.empty()) return std::nullopt;
    return waiting_.front().next_at_us();
}

} // namespace sim
