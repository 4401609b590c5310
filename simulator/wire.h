// The unit's side of the wire: requests put together from bytes, answers paced at 9600 baud.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace sim {

// Ten bits a byte at 9600 baud: byte k of an answer arrives k * 1041.67 us behind its first.
constexpr std::int64_t wire_time_us(std::size_t bytes) {
    return static_cast<std::int64_t>(bytes) * 3125 / 3;
}

// A request as the unit has understood it, and when its last byte came in.
struct Frame {
    std::int64_t at_us = 0;
    int command = 0;
    int number = 0; // of a write
    int value = 0;  // of a write
    bool operator==(const Frame&) const = default;
};

// Finds the requests in what comes in: "PC", the length 5 with a command, or 9 with command 2 and a
// parameter number and value. Bytes that begin no request are passed over. A request that has
// stood half for longer than the gap is given up, so that a lost byte costs one request, not two.
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

// Answers on their way. They keep their order and never overlap.
class Transmitter {
  public:
    // More than this many answers wait for nobody: what comes on top is lost.
    static constexpr std::size_t most_waiting = 16;

    // The first byte arrives at `first_at_us`, or behind what is still going out. Returns when the
    // last byte arrives.
    std::int64_t send(std::vector<std::uint8_t> bytes, std::int64_t first_at_us);
    std::optional<std::int64_t> next_byte_at_us() const;
    // Adds what has arrived by now to `out`; gives each answer that has ended to `ended`.
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
