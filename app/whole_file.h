// Files that are replaced whole or not at all, and text lines of any origin.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zol::app {

// Everything in the file; nothing if it cannot be read.
std::optional<std::string> read_file(const std::filesystem::path& file);

// Replaces the file by way of a temporary file beside it, flushed before it takes the name: a kill
// at any moment leaves the old file or the new one. False, and nothing changed, if it cannot be
// done or the file is marked read-only.
bool replace_file(const std::filesystem::path& file, std::string_view content);

// The text as UTF-8. One that is not valid UTF-8 is taken for Latin-1, byte by byte.
std::string as_utf8(std::string_view text);

// Without the blanks around it.
std::string_view trim(std::string_view text);

} // namespace zol::app
