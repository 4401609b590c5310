// Files that are replaced whole or not at all, and text lines of any origin.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zol::app {

// Seven times the longest text that ships, which is a file of trouble codes, and little enough to
// be searched for each caption of a window in turn.
constexpr std::size_t largest_text = std::size_t{4} << 20;
// A text of a file goes on for so many bytes at most: four times the longest that ships. More
// cannot be read in any control, and setting the type of a million letters would stop the program.
constexpr std::size_t longest_line = 2000;

// Everything in the file; nothing if it cannot be read, is no regular file, which is then not even
// opened, or has more than `largest` bytes.
std::optional<std::string> read_file(const std::filesystem::path& file,
                                     std::size_t largest = largest_text);

// Replaces the file by way of a temporary file beside it, flushed before it takes the name: a kill
// at any moment leaves the old file or the new one. A symbolic link stays, and the file that it
// leads to is replaced, or made where there is none yet. False, and nothing changed, if it cannot
// be done, the file is marked read-only or is no regular file.
bool replace_file(const std::filesystem::path& file, std::string_view content);

// The text as UTF-8. One that is not valid UTF-8 is taken for Latin-1, byte by byte.
std::string as_utf8(std::string_view text);

// The first `longest_line` bytes of a longer text, or up to three fewer, so that no character is
// cut in two.
std::string_view shortened(std::string_view text);

// Without the blanks around it.
std::string_view trim(std::string_view text);

// Without the byte-order mark that it may begin with.
std::string_view without_mark(std::string_view text);

// The first line without its end, which is taken from `rest`; nothing at its end.
std::optional<std::string_view> take_line(std::string_view& rest);

} // namespace zol::app
