#include "simulator/text.h"

#include <cstdarg>
#include <cstdio>

namespace sim {

std::string text(const char* format, ...) {
    char buffer[300];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return buffer;
}

} // namespace sim
