// What stands at the other end of a serial line, as seen by whoever holds the cable.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sim {

// All times are microseconds of one clock that never runs backwards; where it starts is free.
struct Line {
    virtual ~Line() = default;
    // Bytes that arrive at the far end now.
    virtual void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) = 0;
    // Bytes that have come back by now, each of them once; empty if there are none.
    virtual std::vector<std::uint8_t> take(std::int64_t now_us) = 0;
    // When the next byte will have come back, if one is on its way.
    virtual std::optional<std::int64_t> next_byte_at_us() const = 0;
};

} // namespace sim
