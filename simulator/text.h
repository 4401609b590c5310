// Formats text as printf does.
#pragma once

#include <string>

namespace sim {

// Cut to 299 bytes, which is longer than any line of the reports and of the wire log.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

} // namespace sim
