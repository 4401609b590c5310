// A line of print-out in the way of printf.
#pragma once

#include <string>

namespace sim {

// Cut to 299 bytes: longer than any line of the reports and of the wire log.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

} // namespace sim
