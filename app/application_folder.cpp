#include "app/application_folder.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace zol::app {
namespace {

std::filesystem::path& the_folder = folder_state.path;

} // namespace

std::filesystem::path find_application_folder(const std::filesystem::path& program,
                                              const std::filesystem::path& started_as) {
    std::error_code error;
    // A name without a folder was found through PATH and does not name a folder.
    if (started_as.has_parent_path() && std::filesystem::is_symlink(started_as, error) &&
        std::filesystem::is_directory(started_as.parent_path() / "language", error)) {
        const auto folder = std::filesystem::absolute(started_as, error).parent_path();
        if (!error) return folder;
    }
    return program.parent_path();
}

void use_application_folder(const std::filesystem::path& folder) { the_folder = folder; }

std::filesystem::path application_file(std::string_view name) {
    std::string relative(name.substr(name.starts_with('\\') ? 1 : 0));
    std::replace(relative.begin(), relative.end(), '\\', '/');
    return the_folder / relative;
}

} // namespace zol::app
