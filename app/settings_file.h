// The few settings that the tool keeps on the PC: "\setting.ini" in the application folder, section
// "General".
//
// Each call reads the file again. A write keeps every other line, the order, the comments and the
// line ends. A file that is missing, unreadable, in UTF-16 or larger than 1 MiB is treated as
// having no keys; if it exists but cannot be read, it is never overwritten. A write that would make
// it larger than 1 MiB is not done. No call reports a failure.
#pragma once

#include <string>
#include <string_view>

namespace zol::app {

// The value of the key, without surrounding blanks and quotes, at most 255 characters.
std::string read_setting(std::string_view key, std::string_view when_absent);
void write_setting(std::string_view key, std::string_view value);
// The same for the content of such a file; with_setting() returns the new content.
std::string setting_in(std::string_view content, std::string_view key,
                       std::string_view when_absent);
std::string with_setting(std::string_view content, std::string_view key, std::string_view value);

void write_language(const std::string& code);
// Stores the port number for position `n`, from 1, in the list of the connection dialog. The list
// leaves out COM3, so positions from 3 on are stored as n + 1. The port menu passes its own
// numbers, which are changed in the same way.
void write_port(double n);
// Reads the stored port number, ticks its item in the port menu and uses it. A number outside 1 to
// 8 changes nothing.
void load_port();
std::string read_stored_version();
std::string read_text_colour();
void write_text_colour(const std::string& colour);

} // namespace zol::app
