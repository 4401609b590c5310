#include "app/application_folder.h"

#include <algorithm>
#include <string>

namespace zol::app {
namespace {

std::filesystem::path the_folder = ".";

} // namespace

void use_application_folder(const std::filesystem::path& folder) { the_folder = folder; }

std::filesystem::path application_file(std::string_view name) {
    std::string relative(name.substr(name.starts_with('\\') ? 1 : 0));
    std::replace(relative.begin(), relative.end(), '\\', '/');
    return the_folder / relative;
}

} // namespace zol::app
