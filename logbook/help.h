// The texts of --help.
#pragma once

#include <string_view>

namespace zol::logbook {

// The help of a command, or that of the whole program for an empty name.
std::string_view help_text(std::string_view command);

} // namespace zol::logbook
