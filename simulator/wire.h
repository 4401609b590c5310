// The unit's side of the serial line: finds requests in the received bytes, and sends answers at
// the speed of 9600 baud.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace sim {

// The time of this many bytes, at ten bits a byte and 9600 baud: byte k of an answer arrives k *
// 1041.67 us after its first.
constexpr std::int64_t wire_time_us(std::size_t bytes) {
    return static_cast<std::int64_t>(bytes) * 3125 / 3;
}

// A request, and when its last byte arrived.
struct Frame {
    std::int64_t at_us = 0;
    int command = 0;
    int number = 0; // of a write
    int value = 0;  // of a write
    bool operator==(const Frame&) const = default;
};

// Finds requests in the received bytes: "PC", the length 5 and a command, or the length 9, command
// 2 and a parameter's number and value. Other bytes are skipped. An incomplete request is dropped
// after a gap, so that a lost byte costs one request and not two.
class FrameReader {
  public:
    static constexpr std::int64_t gap_us = 100'000;

    std::optional<Frame> push(std::uint8_t byte, std::int64_t now_us);
    void clear() { held_ = 0; }

  private:
    bool plausible() const;

    std::array<std::uint8_t, 9> bytes_{};
    std::size_t held_ = 0;
    std::int64_t last_byte_us_ = 0;
};

// Sends answers in their order, one after the other.
class Transmitter {
  public:
    // The longest queue of answers; further ones are dropped.
    static constexpr std::size_t most_waiting = 16;

    // The first byte arrives at `first_at_us`, or after the previous answer. Returns the time at
    // which the last byte arrives.
    std::int64_t send(std::vector<std::uint8_t> bytes, std::int64_t first_at_us);
    std::optional<std::int64_t> next_byte_at_us() const;
    // Appends the bytes that have arrived by now to `out`, and calls `ended` for each complete
    // answer.
    template <class Ended>
    void take(std::int64_t now_us, std::vector<std::uint8_t>& out, Ended ended) {
        while (!waiting_.empty()) {
            Answer& answer = waiting_.front();
            while (answer.taken < answer.bytes.size() && answer.next_at_us() <= now_us)
                out.push_back(answer.bytes[answer.taken++]);
            if (answer.taken < answer.bytes.size()) return;
            ended(answer.bytes, answer.first_at_us);
            waiting_.pop_front();
        }
    }
    void clear() {
        waiting_.clear();
        free_at_us_ = INT64_MIN;
    }

  private:
    struct Answer {
        std::vector<std::uint8_t> bytes;
        std::int64_t first_at_us = 0;
        std::size_t taken = 0;
        std::int64_t next_at_us() const { return first_at_us + wire_time_us(taken); }
    };
    std::deque<Answer> waiting_;
    std::int64_t free_at_us_ = INT64_MIN;
};

} // namespace sim
