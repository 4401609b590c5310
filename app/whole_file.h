// Reading files, replacing them atomically, and splitting text of any origin into lines.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zol::app {

// Seven times the largest file that ships (the trouble codes), and small enough to be searched for
// each caption of a window.
constexpr std::size_t largest_text = std::size_t{4} << 20;
// The longest text taken from a file, in bytes: four times the longest that ships. No control can
// show more, and painting a million characters would block the program.
constexpr std::size_t longest_line = 2000;

// The content of the file. Nothing if it cannot be read, has more than `largest` bytes or is not a
// regular file. Only a regular file is opened, because opening a device may have effects on it.
std::optional<std::string> read_file(const std::filesystem::path& file,
                                     std::size_t largest = largest_text);

// Replaces the file: writes a temporary file in the same folder, flushes it and renames it. A kill
// at any moment leaves either the old or the new content. A symbolic link stays, and its target is
// replaced or created. False, with nothing changed, if that fails, the file is marked read-only or
// is not a regular file.
bool replace_file(const std::filesystem::path& file, std::string_view content);

// The text as UTF-8. A text that is not valid UTF-8 is taken as Latin-1.
std::string as_utf8(std::string_view text);

// The text, cut to `longest_line` bytes or up to three fewer, so that no character is cut in two.
std::string_view shortened(std::string_view text);

// Without leading and trailing blanks, tabs and carriage returns.
std::string_view trim(std::string_view text);

// Without a leading UTF-8 byte-order mark.
std::string_view without_mark(std::string_view text);

// Removes the first line from `rest` and returns it without its line end. Nothing if `rest` is
// empty.
std::optional<std::string_view> take_line(std::string_view& rest);

} // namespace zol::app
