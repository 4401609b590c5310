// Replies made to order, and a bench on which the tool reads those instead of the unit's own.
#pragma once

#include "link/ecu_frames.h"
#include "tests/support/bench.h"

#include <deque>
#include <optional>

namespace zol::tests {

struct Telegram {
    int rpm = 850, injection_time = 3100, pressure = 1010, lambda = 455, ktar = 1234;
    int temperature = 81, state_number = 7, tank = 2046, fuel_state = 0;
    std::optional<int> battery = 2373; // 12.50 V; without it the telegram ends at byte 27
    int echo = 3;
};

struct LiveData {
    int loop_state = 2, fast_trim = 133, long_trim = 123, visual = 26, lambda_mv = 612;
    int echo = 16;
};

inline void add_word(link::Bytes& bytes, int word) {
    bytes.push_back(static_cast<std::uint8_t>(word / 256));
    bytes.push_back(static_cast<std::uint8_t>(word % 256));
}

inline link::Bytes reply_to(const Telegram& t) {
    link::Bytes bytes = {80, 67, 0, 29, static_cast<std::uint8_t>(t.echo)};
    for (const int word : {t.rpm, t.injection_time, t.pressure, t.lambda, t.ktar, 0, 0,
                           t.temperature, t.state_number, t.tank, t.fuel_state})
        add_word(bytes, word);
    if (t.battery) add_word(bytes, *t.battery);
    return bytes;
}

inline link::Bytes reply_to(const LiveData& d) {
    link::Bytes bytes = {80, 67, 0, 12};
    for (const int byte : {d.echo, d.loop_state, d.fast_trim, d.long_trim})
        bytes.push_back(static_cast<std::uint8_t>(byte));
    add_word(bytes, d.visual);
    add_word(bytes, d.lambda_mv);
    return bytes;
}

// The reply cut to `length`, or made longer by zeros.
template <typename Reply>
link::Bytes reply_of_length(const Reply& reply, std::size_t length) {
    link::Bytes bytes = reply_to(reply);
    bytes.resize(length);
    return bytes;
}

// Polling runs on a unit of the given family; from then on each read behind a command 3 or 16 takes
// the next reply in line, or else the standing one.
class ReplyBench : public Bench {
  protected:
    void start_scripted(int family = 0, int version = 2, int revision = 71) {
        use_unit({.family = family, .version = version, .revision = revision, .warm = true});
        start_connected();
        port->alter = [this](link::Bytes real) {
            ++reads;
            if (port->last_sent == Send(3)) return next_or(next_telegrams, reply_to(telegram));
            if (port->last_sent == Send(16)) return next_or(next_live, reply_to(live));
            return real;
        };
        run_for(1000); // what the unit itself had answered has been shown
    }

    // Lets time pass up to the `count`-th frame since the notes were begun anew.
    void run_until_sent(std::size_t count) {
        for (int ms = 0; ms < 5000 && port->sent.size() < count; ms += 5)
            run_for(5);
        ASSERT_GE(port->sent.size(), count) << "frame " << count << " never went out";
    }
    std::int64_t gap_behind(std::size_t frame) const {
        return port->sent[frame + 1].at_ms - port->sent[frame].at_ms;
    }
    // One telegram is read, and its wait is over.
    void show(const Telegram& shown) {
        telegram = shown;
        run_for(1000);
    }

    Telegram telegram;
    LiveData live;
    std::deque<link::Bytes> next_telegrams, next_live;
    int reads = 0;

  private:
    static link::Bytes next_or(std::deque<link::Bytes>& line, link::Bytes standing) {
        if (line.empty()) return standing;
        link::Bytes next = std::move(line.front());
        line.pop_front();
        return next;
    }
};

} // namespace zol::tests
