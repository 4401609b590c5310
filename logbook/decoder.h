// Decodes the two streams of a recording, requests and replies.
//
// The line has neither checksums nor numbering. So a reply is found by its echo of the command and
// by the pauses around it, as docs/recording-format.md describes. The streams may contain anything:
// bytes that form no request, and replies that match no request, are counted and skipped.
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

// Finds the requests in the bytes to the unit. An incomplete request is dropped if nothing follows
// for 100 ms.
class RequestReader {
  public:
    std::optional<Request> push(std::uint8_t byte, std::int64_t at_us);
    std::size_t stray_bytes() const { return stray_bytes_; } // not part of a request

  private:
    Bytes held_;
    std::int64_t last_us_ = 0;
    std::size_t stray_bytes_ = 0;
};

// A request or a reply.
struct Decoded {
    enum class Kind { write, command, reply };
    Kind kind = Kind::command;
    std::int64_t at_us = 0; // of its first byte
    Request request;        // of a reply: the request that its echo names
    link::Reply reply;
    std::optional<int> old_value; // of a write, if an image or an earlier write has it
};

struct DecoderCounts {
    std::size_t requests = 0; // that the unit replies to
    std::size_t writes = 0;
    std::size_t answered = 0;
    std::size_t lost = 0;    // no reply came
    std::size_t late = 0;    // replied after the request had been repeated or given up
    std::size_t garbled = 0; // a reply with a wrong echo, or too short
};

class Decoder {
  public:
    using Sink = std::function<void(const Decoded&)>;
    explicit Decoder(Sink sink) : sink_(std::move(sink)) {}

    // Takes the next event, in the order of the recording. A note ends a reply that is not
    // complete.
    void push(const Event& event);
    // Call this once, after the last event.
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
    std::deque<Open> open_;           // requests without a reply, oldest first
    std::map<int, std::size_t> lost_; // by command: replies that may still come late
    Bytes reply_;
    std::int64_t reply_began_us_ = 0, reply_last_us_ = 0, last_us_ = 0;
    bool requested_since_ = false; // since the reply began
    DecoderCounts counts_;
    UnitState unit_;
};

// Whether the unit replies to this command.
bool wants_answer(int command);

} // namespace zol::logbook
