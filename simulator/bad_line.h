// A bad serial line: it connects a tool to any other Line and damages the bytes that pass, at
// random but reproducibly from a seed.
#pragma once

#include "simulator/line.h"
#include "simulator/random.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

// With all switches off the line is clean. Probabilities are for each byte, 0 to 1, and apply to
// both directions unless a comment says "to the tool".
struct BadLineOptions {
    std::uint32_t seed = 1;
    double drop = 0;     // the byte is lost
    double doubled = 0;  // it arrives twice
    double flip = 0;     // it arrives with one bit changed
    double insert = 0;   // a random byte arrives before it
    double truncate = 0; // it is lost with everything that follows it without a pause
    double delay = 0;    // to the tool: it and what follows are delayed by up to delay_ms
    int delay_ms = 200;
    double split = 0;  // to the tool: a pause is inserted before it, so the answer comes in pieces
    double join = 0;   // to the tool: it and what follows are held until the next answer
    double unplug = 0; // the cable is disconnected for up to unplug_ms
    int unplug_ms = 5000;
    bool silence = false; // nothing reaches the tool
    bool echo = false;    // what the tool sends comes back at once
    bool babble = false;  // random bytes reach the tool at any time
    bool denied = false;  // the port cannot be opened, for lack of permission
};

class BadLine final : public Line {
  public:
    // A pause longer than this ends a truncation.
    static constexpr std::int64_t pause_us = 5'000;
    // The time between two random bytes of `babble`.
    static constexpr int least_babble_us = 20'000;
    static constexpr int most_babble_us = 400'000;
    // The length of the pause of `split`, in ms.
    static constexpr int least_split_ms = 6, most_split_ms = 60;
    // `join` holds bytes at most this long if no further answer comes.
    static constexpr std::int64_t join_us = 1'000'000;

    // `inner` must outlive this object.
    explicit BadLine(Line& inner, const BadLineOptions& options = {});

    void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) override;
    std::vector<std::uint8_t> take(std::int64_t now_us) override;
    std::optional<std::int64_t> next_byte_at_us() const override;

    const BadLineOptions& options() const { return options_; }
    // Changes the switches. A new seed restarts the random sequence.
    void set_options(const BadLineOptions& options);
    // How many bytes were lost, added, changed or delayed so far.
    std::uint64_t damaged() const { return damaged_; }
    // Whether the cable is connected. If it is not, it will be at `back_in_at_us`.
    bool plugged(std::int64_t now_us) const { return now_us >= out_until_us_; }
    std::int64_t back_in_at_us() const { return out_until_us_; }
    // Drops the bytes on their way to the tool.
    void clear() { pending_.clear(); }

  private:
    struct Pending {
        std::int64_t at_us;
        std::uint8_t byte;
    };
    // The state of `truncate` in one direction.
    struct Direction {
        bool cutting = false;
        std::int64_t last_us = INT64_MIN / 2;
    };
    void pass(std::uint8_t byte, std::int64_t now_us, Direction& direction,
              std::vector<std::uint8_t>& out);
    void collect(std::int64_t now_us);
    void babble(std::int64_t at_us);
    void enqueue(std::uint8_t byte, std::int64_t at_us);
    void release_joined(std::int64_t at_us);

    Line& inner_;
    BadLineOptions options_;
    Random chance_;
    Direction to_unit_;
    Direction to_tool_;
    std::deque<Pending> pending_;
    std::optional<std::int64_t> babble_at_us_;
    std::int64_t last_arrival_us_ = INT64_MIN / 2;
    std::int64_t joined_until_us_ = INT64_MIN;
    std::int64_t out_until_us_ = INT64_MIN;
    std::uint64_t damaged_ = 0;
};

// Sets one switch by its name: "drop" "0.01", "silence" "on", "delay-ms" "300", "seed" "7". Returns
// an empty text, or what is accepted; then nothing was changed.
std::string set_switch(BadLineOptions& options, std::string_view name, std::string_view value);
// For example "seed 1, clean" or "seed 7, drop 0.01, echo".
std::string describe(const BadLineOptions& options);

} // namespace sim
