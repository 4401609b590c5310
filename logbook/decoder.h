// Turns the two streams of a recording, requests out and replies in, into what they mean.
//
// The line has no checksum and no numbering, so an answer is found by its echo of the command and
// by the pauses around it, as docs/recording-format.md says. Nothing in the streams is trusted:
// bytes that make no request and answers that fit none are counted and passed over.
#pragma once

#include "logbook/recording.h"
#include "logbook/unit_state.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>

namespace zol::logbook {

struct Request {
    int command = 0;
    int number = 0, value = 0; // of a write
};

// Finds the requests in the bytes to the unit. A request that is begun and not gone on with for 100
// ms is given up.
class RequestReader {
  public:
    std::optional<Request> push(std::uint8_t byte, std::int64_t at_us);
    std::size_t stray_bytes() const { return stray_bytes_; } // that were no part of a request

  private:
    Bytes held_;
    std::int64_t last_us_ = 0;
    std::size_t stray_bytes_ = 0;
};

// A request or an answer.
struct Decoded {
    enum class Kind { write, command, reply };
    Kind kind = Kind::command;
    std::int64_t at_us = 0; // of its first byte
    Request request;        // of an answer: what it answers, as far as the echo tells
    link::Reply reply;
    std::optional<int> old_value; // of a write, where an image or an earlier write tells it
};

struct DecoderCounts {
    std::size_t requests = 0; // that want an answer
    std::size_t writes = 0;
    std::size_t answered = 0;
    std::size_t lost = 0;    // no answer came
    std::size_t late = 0;    // the answer came after the request had been repeated or given up
    std::size_t garbled = 0; // a wrong echo, or too short
};

class Decoder {
  public:
    using Sink = std::function<void(const Decoded&)>;
    explicit Decoder(Sink sink) : sink_(std::move(sink)) {}

    // Events in the order of the recording. Notes end an answer that is under way.
    void push(const Event& event);
    // Once, after the last event.
    void finish();

    const DecoderCounts& counts() const { return counts_; }
    std::size_t stray_bytes() const { return requests_.stray_bytes(); }
    const UnitState& unit() const { return unit_; }

  private:
    struct Open {
        Request request;
        std::int64_t at_us;
    };
    void take_request(const Request& request, std::int64_t at_us);
    void take_reply_bytes(const Event& event);
    void end_reply();
    bool belongs_to_a_request(int command);
    void lose(std::size_t count);

    Sink sink_;
    RequestReader requests_;
    std::deque<Open> open_;           // requests without an answer, oldest first
    std::map<int, std::size_t> lost_; // by command: answers that may still come late
    Bytes reply_;
    std::int64_t reply_began_us_ = 0, reply_last_us_ = 0, last_us_ = 0;
    bool requested_since_ = false; // since the reply began
    DecoderCounts counts_;
    UnitState unit_;
};

// Whether the unit answers the command at all.
bool wants_answer(int command);

} // namespace zol::logbook
