// The few settings that the tool keeps on the PC: "\setting.ini" in the application folder, section
// "General". One key is read or written at a time; a write keeps every other line, the order, the
// comments and the line ends. A file that is missing, unreadable, in UTF-16 or larger than a
// mebibyte behaves as if all keys were absent. One that is there but cannot be read is never
// overwritten. No call reports a failure.
#pragma once

#include <string>
#include <string_view>

namespace zol::app {

// The value behind the key, without blanks and quotes around it, 255 characters at most.
std::string read_setting(std::string_view key, std::string_view when_absent);
void write_setting(std::string_view key, std::string_view value);
// The same on the content of such a file; writing gives the content that is to take its place.
std::string setting_in(std::string_view content, std::string_view key,
                       std::string_view when_absent);
std::string with_setting(std::string_view content, std::string_view key, std::string_view value);

void write_language(const std::string& code);
// Stores n below 3 as it is and n + 1 from 3 on: the port lists do not offer COM3, and list
// positions from 1 thus become real port numbers.
void write_port(double n);
// Ticks the port menu's item of the stored number and takes that number; one outside 1 to 8
// changes nothing.
void load_port();
std::string read_stored_version();
std::string read_text_colour();
void write_text_colour(const std::string& colour);

} // namespace zol::app
