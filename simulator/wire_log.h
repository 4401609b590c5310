// The lines of the wire log: requests and answers as text.
#pragma once

#include "simulator/wire.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace sim {

// For example "write PAR_3 = 1250", "status" or "command 99".
std::string describe_request(const Frame& frame);
// The fields of status, version, faults and live data, or the length of any other answer; then the
// bytes in hexadecimal.
std::string describe_answer(std::span<const std::uint8_t> bytes);
// For example "    12.345  tool  write PAR_3 = 1250".
std::string log_line(double seconds, std::string_view who, std::string_view what);

} // namespace sim
