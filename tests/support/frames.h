// The bytes that tool and control unit exchange, as the tests expect and fake them. Nothing of the
// program or of the simulated unit takes part in making them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

namespace zol::tests {

using FrameBytes = std::vector<std::uint8_t>;

inline void add_word(FrameBytes& bytes, int word) {
    bytes.push_back(static_cast<std::uint8_t>(word / 256));
    bytes.push_back(static_cast<std::uint8_t>(word % 256));
}

// "P", "C", the frame's own length as a word, the command, then the data.
inline FrameBytes frame_bytes(int command, std::initializer_list<int> data = {}) {
    FrameBytes bytes = {80, 67, 0, static_cast<std::uint8_t>(5 + data.size()),
                        static_cast<std::uint8_t>(command)};
    for (const int byte : data)
        bytes.push_back(static_cast<std::uint8_t>(byte));
    return bytes;
}

// The request that writes a parameter.
inline FrameBytes write_bytes(int number, int value) {
    return frame_bytes(2, {number / 256, number % 256, value / 256, value % 256});
}

// The bytes cut to `length`, or filled up to it.
inline FrameBytes of_length(FrameBytes bytes, std::size_t length, std::uint8_t filling = 0) {
    bytes.resize(length, filling);
    return bytes;
}

// Reply to command 6, the presence test.
inline FrameBytes presence_reply() { return frame_bytes(6, {0}); }

// Reply to command 1, with this many bytes and 0 in every word.
inline FrameBytes image_reply(std::size_t length) { return of_length(frame_bytes(1), length); }

// Puts a word at this position of a reply, counted from 1.
inline void set_word(FrameBytes& reply, int position, int value) {
    reply.at(static_cast<std::size_t>(position - 1)) = static_cast<std::uint8_t>(value / 256);
    reply.at(static_cast<std::size_t>(position)) = static_cast<std::uint8_t>(value % 256);
}

// Reply to command 7: the numbers are at positions 7, 9 and 11.
inline FrameBytes version_reply(int family, int version, int revision) {
    return frame_bytes(7, {0, family, 0, version, 0, revision, 0});
}

// Reply to command 3.
struct Telegram {
    int rpm = 850, injection_time = 3100, pressure = 1010, lambda = 455, ktar = 1234;
    int temperature = 81, state_number = 7, tank = 2046, fuel_state = 0;
    std::optional<int> battery = 2373; // 12.50 V; without it the telegram ends at byte 27
    int echo = 3;
};

inline FrameBytes reply_to(const Telegram& t) {
    FrameBytes bytes = frame_bytes(t.echo);
    for (const int word : {t.rpm, t.injection_time, t.pressure, t.lambda, t.ktar, 0, 0,
                           t.temperature, t.state_number, t.tank, t.fuel_state})
        add_word(bytes, word);
    if (t.battery) add_word(bytes, *t.battery);
    bytes[3] = static_cast<std::uint8_t>(bytes.size());
    return bytes;
}

// Reply to command 16.
struct LiveData {
    int loop_state = 2, fast_trim = 133, long_trim = 123, visual = 26, lambda_mv = 612;
    int echo = 16;
};

inline FrameBytes reply_to(const LiveData& d) {
    FrameBytes bytes = frame_bytes(d.echo, {d.loop_state, d.fast_trim, d.long_trim});
    add_word(bytes, d.visual);
    add_word(bytes, d.lambda_mv);
    bytes[3] = static_cast<std::uint8_t>(bytes.size());
    return bytes;
}

} // namespace zol::tests
