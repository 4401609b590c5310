#include "logbook/options.h"

#include "logbook/recording.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace zol::logbook {

namespace fs = std::filesystem;

bool read_options(Words words, std::initializer_list<Option> options,
                  std::vector<std::string>& files) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (!word.starts_with("--")) {
            files.emplace_back(word);
            continue;
        }
        const auto equals = word.find('=');
        const auto option = std::find_if(options.begin(), options.end(), [&](const Option& one) {
            return one.name == word.substr(0, equals);
        });
        if (option == options.end()) {
            complain("There is no option " + std::string(word.substr(0, 40)) +
                     " here; --help behind the command lists them.");
            return false;
        }
        if (equals != word.npos)
            *option->value = word.substr(equals + 1);
        else if (i + 1 < words.size())
            *option->value = words[++i];
        if (option->value->empty()) {
            complain(std::string(option->name) + " needs a value after it.");
            return false;
        }
        if (has_control_character(*option->value)) {
            complain(std::string(option->name) +
                     " takes no control character, such as a line feed.");
            return false;
        }
    }
    return true;
}

fs::path tools_folder(const std::string& named) {
    std::error_code error;
    std::vector<fs::path> places;
    if (!named.empty()) {
        places.emplace_back(named);
    } else {
        places.push_back(fs::read_symlink("/proc/self/exe", error).parent_path());
        // By the rules for this variable, one that is no absolute path counts as not set.
        const char* data = std::getenv("XDG_DATA_HOME");
        const char* home = std::getenv("HOME");
        if (data && data[0] == '/')
            places.push_back(fs::path(data) / "zol-injection");
        else if (home && home[0] != 0)
            places.push_back(fs::path(home) / ".local/share/zol-injection");
    }
    for (const fs::path& place : places)
        if (fs::is_directory(place / "ports", error)) return fs::absolute(place, error);
    complain(named.empty()
                 ? "The tool's application folder was not found; name it with --folder."
                 : named + " has no folder \"ports\"; name the tool's application folder.");
    return {};
}

} // namespace zol::logbook
