// A bad line: stands between a tool and any line, and damages what passes, by a seed.
#pragma once

#include "simulator/line.h"
#include "simulator/random.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

// All off: the line is clean. Chances are for each byte, 0 to 1, and hold both ways unless said.
struct BadLineOptions {
    std::uint32_t seed = 1;
    double drop = 0;     // is lost
    double doubled = 0;  // comes twice
    double flip = 0;     // comes with one bit changed
    double insert = 0;   // comes with a foreign byte ahead of it
    double truncate = 0; // is lost with all that follows it without a pause
    double delay = 0;    // on the way back: held up, with all that follows, by up to delay_ms
    int delay_ms = 200;
    double split = 0;  // on the way back: a pause stands ahead of it, so that pieces come
    double join = 0;   // on the way back: held up, with all that follows, for the next answer
    double unplug = 0; // the cable falls out, and is put back in within unplug_ms
    int unplug_ms = 5000;
    bool silence = false; // nothing comes back
    bool echo = false;    // what is sent comes back at once
    bool babble = false;  // foreign bytes come back at any time
    bool denied = false;  // the port cannot be opened: its permission is gone
};

class BadLine final : public Line {
  public:
    // A pause of this length ends what `truncate` has cut.
    static constexpr std::int64_t pause_us = 5'000;
    // A babbling line waits this long between two foreign bytes.
    static constexpr int least_babble_us = 20'000;
    static constexpr int most_babble_us = 400'000;
    // How long the pause of `split` lasts, in ms.
    static constexpr int least_split_ms = 6, most_split_ms = 60;
    // With no next answer, `join` lets go after this time.
    static constexpr std::int64_t join_us = 1'000'000;

    // `inner` must outlive it.
    explicit BadLine(Line& inner, const BadLineOptions& options = {});

    void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) override;
    std::vector<std::uint8_t> take(std::int64_t now_us) override;
    std::optional<std::int64_t> next_byte_at_us() const override;

    const BadLineOptions& options() const { return options_; }
    // Changes switches in mid-life; a new seed begins its run anew.
    void set_options(const BadLineOptions& options);
    // How many bytes were lost, added, changed or held up so far.
    std::uint64_t damaged() const { return damaged_; }
    // Whether the cable is in; one that fell out is back at `back_in_at_us`.
    bool plugged(std::int64_t now_us) const { return now_us >= out_until_us_; }
    std::int64_t back_in_at_us() const { return out_until_us_; }
    // Lets go of what is on its way.
    void clear() { coming_.clear(); }

  private:
    struct Coming {
        std::int64_t at_us;
        std::uint8_t byte;
    };
    // One way of the line: what it is about to lose.
    struct Way {
        bool cutting = false;
        std::int64_t last_us = INT64_MIN / 2;
    };
    void pass(std::uint8_t byte, std::int64_t now_us, Way& way, std::vector<std::uint8_t>& out);
    void fetch(std::int64_t now_us);
    void babble(std::int64_t at_us);
    void come(std::uint8_t byte, std::int64_t at_us);
    void let_go(std::int64_t at_us);

    Line& inner_;
    BadLineOptions options_;
    Random chance_;
    Way forth_;
    Way back_;
    std::deque<Coming> coming_;
    std::optional<std::int64_t> babble_at_us_;
    std::int64_t last_came_us_ = INT64_MIN / 2;
    std::int64_t joined_until_us_ = INT64_MIN;
    std::int64_t out_until_us_ = INT64_MIN;
    std::uint64_t damaged_ = 0;
};

// Sets one switch by its name: "drop" "0.01", "silence" "on", "delay-ms" "300", "seed" "7". An
// empty text, or a sentence that says what is right; then nothing has changed.
std::string set_switch(BadLineOptions& options, std::string_view name, std::string_view value);
// "seed 1, clean" or "seed 7, drop 0.01, echo".
std::string describe(const BadLineOptions& options);

} // namespace sim
