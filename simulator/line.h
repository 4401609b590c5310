// The far end of a serial line, as seen from the tool's end of the cable.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sim {

// All times are in microseconds of one clock that does not run backwards; its start is arbitrary.
struct Line {
    virtual ~Line() = default;
    // Bytes that reach the far end now.
    virtual void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) = 0;
    // Bytes that have arrived from the far end by now, each returned once; empty if there are none.
    virtual std::vector<std::uint8_t> take(std::int64_t now_us) = 0;
    // When the next byte arrives, if one is on its way.
    virtual std::optional<std::int64_t> next_byte_at_us() const = 0;
};

} // namespace sim
