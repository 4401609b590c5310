// Control of the replies that the polling reads.
#pragma once

#include "tests/support/frames.h"
#include "tests/support/logic_fixture.h"

#include <deque>

namespace zol::tests {

// The reply cut to `length`, or filled up to it with zeros.
template <typename Reply>
link::Bytes reply_of_length(const Reply& reply, std::size_t length) {
    return of_length(reply_to(reply), length);
}

// Starts the polling on a unit of the given family. From then on each read after a command 3 or 16
// takes the next reply of its queue, or `telegram` or `live` if the queue is empty.
class ReplyTest : public LogicTest {
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
        run_for(1000); // the unit's own replies have been shown
    }

    // Lets time pass up to the `count`-th frame since the last forget_wire().
    void run_until_sent(std::size_t count) {
        for (int ms = 0; ms < 5000 && port->sent.size() < count; ms += 5)
            run_for(5);
        ASSERT_GE(port->sent.size(), count) << "frame " << count << " was not sent";
    }
    std::int64_t gap_after(std::size_t frame) const {
        return port->sent[frame + 1].at_ms - port->sent[frame].at_ms;
    }
    // Lets one telegram be read and its wait end.
    void show(const Telegram& shown) {
        telegram = shown;
        run_for(1000);
    }

    Telegram telegram;
    LiveData live;
    std::deque<link::Bytes> next_telegrams, next_live;
    int reads = 0;

  private:
    static link::Bytes next_or(std::deque<link::Bytes>& queue, link::Bytes otherwise) {
        if (queue.empty()) return otherwise;
        link::Bytes next = std::move(queue.front());
        queue.pop_front();
        return next;
    }
};

} // namespace zol::tests
