// The folder that holds the program, its settings, language files, log and ports.
#pragma once

#include <filesystem>
#include <string_view>

namespace zol::app {

// Set once by the entry, before anything else runs.
void use_application_folder(const std::filesystem::path& folder);

// A file of the folder by the system's own name for it, which begins with a backslash and parts
// folders with backslashes: "\\log\\setting.txt".
std::filesystem::path application_file(std::string_view name);

} // namespace zol::app
