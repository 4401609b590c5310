// The folder that holds the program, its settings, language files, log and ports.
#pragma once

#include <filesystem>
#include <string_view>

namespace zol::app {

// Where the program that lies at `program` finds its folder when it was started by the name
// `started_as`. Started through a link that stands beside a "language" folder, it is the link's: so
// each user of an installed copy has a folder, and all share the program. Otherwise it is the one
// that the program lies in.
std::filesystem::path find_application_folder(const std::filesystem::path& program,
                                              const std::filesystem::path& started_as);

struct FolderState {
    std::filesystem::path path = ".";
};
inline FolderState folder_state;

// Set once by the entry, before anything else runs.
void use_application_folder(const std::filesystem::path& folder);

// A file of the folder by the system's own name for it, which begins with a backslash and parts
// folders with backslashes: "\\log\\setting.txt".
std::filesystem::path application_file(std::string_view name);

} // namespace zol::app
