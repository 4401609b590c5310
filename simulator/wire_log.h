// What goes over the wire, in words.
#pragma once

#include "simulator/wire.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace sim {

// "write PAR_3 = 1250", "status", "command 99".
std::string describe_request(const Frame& frame);
// The fields of a status, a version, faults and live data; the length of all else; bytes in
// hexadecimal behind.
std::string describe_answer(std::span<const std::uint8_t> bytes);
// "    12.345  tool  write PAR_3 = 1250".
std::string log_line(double seconds, std::string_view who, std::string_view what);

} // namespace sim
