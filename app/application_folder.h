// The application folder: it holds the settings, language files, log and ports, and in most cases
// the program.
#pragma once

#include <filesystem>
#include <string_view>

namespace zol::app {

// The application folder of the program file `program` that was started by the name `started_as`.
// If `started_as` is a symbolic link in a folder that also holds a folder "language", the result is
// the folder of the link; the users of an installed copy each have such a folder and share the
// program. Otherwise the result is the folder of the program file.
std::filesystem::path find_application_folder(const std::filesystem::path& program,
                                              const std::filesystem::path& started_as);

struct FolderState {
    std::filesystem::path path = ".";
};
inline FolderState folder_state;

// Called once by main(), before anything else runs.
void use_application_folder(const std::filesystem::path& folder);

// The path of a file in the folder. `name` begins with a backslash and separates folders with
// backslashes: "\\log\\setting.txt".
std::filesystem::path application_file(std::string_view name);

} // namespace zol::app
