#include "simulator/port_link.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace sim {
namespace {

std::string link_target(const std::string& path) {
    std::array<char, 4096> target{};
    const ssize_t length = readlink(path.c_str(), target.data(), target.size());
    return length < 0 ? std::string()
                      : std::string(target.data(), static_cast<std::size_t>(length));
}

// For example "/dev/pts/3". A unit's own link has no other form.
bool names_pseudo_terminal(std::string_view target) {
    constexpr std::string_view folder = "/dev/pts/";
    if (!target.starts_with(folder)) return false;
    const std::string_view number = target.substr(folder.size());
    return !number.empty() &&
           std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The controlling terminal in a line of /proc/<process>/stat; 0 if there is none.
dev_t terminal_of_process(const std::string& line) {
    // The program's name in parentheses may hold any characters.
    const auto name_end = line.rfind(')');
    if (name_end == std::string::npos) return 0;
    std::istringstream rest(line.substr(name_end + 1));
    std::string state;
    int parent = 0, group = 0, session = 0;
    std::int64_t number = 0;
    if (!(rest >> state >> parent >> group >> session >> number)) return 0;
    // The kernel packs major and minor number and prints the result as a signed number.
    const auto packed = static_cast<std::uint32_t>(number);
    return makedev(packed >> 8 & 0xfff, (packed & 0xff) | (packed >> 12 & 0xfff00));
}

// Whether a session uses the device as its terminal, such as a terminal window. Units and tools do
// not take their port as controlling terminal.
bool is_controlling_terminal(dev_t device) {
    namespace fs = std::filesystem;
    std::error_code error;
    for (fs::directory_iterator entry("/proc", error), end; !error && entry != end;
         entry.increment(error)) {
        std::string line;
        if (std::getline(std::ifstream(entry->path() / "stat"), line) &&
            terminal_of_process(line) == device)
            return true;
    }
    return false;
}

// The system removes a pseudo-terminal's name when its other end is closed, however that process
// ended. So an existing name has a process that serves it.
bool is_served(const std::string& pseudo_terminal) {
    struct stat found {};
    return stat(pseudo_terminal.c_str(), &found) == 0 && !is_controlling_terminal(found.st_rdev);
}

// Why the file at `path` must stay; empty if it may be replaced.
std::string why_it_stays(const std::string& path, mode_t mode) {
    if (!S_ISLNK(mode))
        return path +
               " exists and is no symbolic link; name another path for the link, or move the "
               "file away.";
    const std::string held = link_target(path);
    if (!names_pseudo_terminal(held))
        return path + " is a link to " + held +
               ", which no simulated unit created; name a path in an application folder that is "
               "used only for practice, or remove that link.";
    if (is_served(held))
        return path + " is a link to " + held +
               ", which is in use, perhaps by another simulated unit; end that unit or name "
               "another "
               "path for the link. If no unit is running there, remove the link.";
    return {};
}

std::string because(const std::string& what, const std::string& remedy) {
    return what + ": " + std::strerror(errno) + "; " + remedy + ".";
}

} // namespace

std::string make_link(const std::string& path, const std::string& target) {
    constexpr auto remedy = "name a path in an existing folder to which you may write";
    struct stat found {};
    if (lstat(path.c_str(), &found) != 0) {
        // Fails if another process has created something there since.
        if (symlink(target.c_str(), path.c_str()) == 0) return {};
        return because("The link " + path + " cannot be created", remedy);
    }
    // The link of a unit that was killed, and this unit has got the same number.
    if (S_ISLNK(found.st_mode) && link_target(path) == target) return {};
    if (std::string sentence = why_it_stays(path, found.st_mode); !sentence.empty())
        return sentence;
    // Created under another name and then renamed, so that the path always has a link.
    const std::string fresh = path + "." + std::to_string(getpid());
    if (symlink(target.c_str(), fresh.c_str()) != 0)
        return because("The link " + path + " cannot be created", remedy);
    if (rename(fresh.c_str(), path.c_str()) == 0) return {};
    std::string sentence =
        because("The link " + path + " cannot be replaced", "name another path for the link");
    unlink(fresh.c_str());
    return sentence;
}

void remove_link(const std::string& path, const std::string& target) {
    if (link_target(path) == target) unlink(path.c_str());
}

} // namespace sim
