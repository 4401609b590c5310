// What --help shows.
#pragma once

#include <string_view>

namespace zol::logbook {

// The text of a command; that of the whole program for an empty name.
std::string_view help_text(std::string_view command);

} // namespace zol::logbook
