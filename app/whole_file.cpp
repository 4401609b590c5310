#include "app/whole_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol::app {
namespace {

bool write_all(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<std::string> read_all(int descriptor, std::size_t expected) {
    std::string content(expected, '\0');
    std::size_t filled = 0;
    while (filled < content.size()) {
        const ssize_t got = ::read(descriptor, content.data() + filled, content.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break; // the file has become shorter
        filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return content;
}

// The file that the symbolic links lead to, which need not exist. Nothing if there are too many
// links or a cycle.
std::optional<std::filesystem::path> follow_links(std::filesystem::path file) {
    constexpr int most_links = 40; // the kernel's limit
    std::error_code error;
    for (int links = 0; links <= most_links; ++links) {
        if (!std::filesystem::is_symlink(file, error)) return file;
        const auto target = std::filesystem::read_symlink(file, error);
        if (error) return std::nullopt;
        file = file.parent_path() / target;
    }
    return std::nullopt;
}

struct Temporary {
    int descriptor = -1;
    std::string name;
};

// Creates a new, empty file in the same folder. A file that already has the name is removed and
// never written to: it may be a pipe or a hard link to another file. What cannot be removed, such
// as a folder, stays, and the next name is tried. Only one program writes in a folder, so the names
// may be predictable.
Temporary make_temporary(const std::filesystem::path& file, mode_t mode) {
    constexpr int last_number = 9;
    for (int number = 1; number <= last_number; ++number) {
        const std::string name =
            file.string() + (number == 1 ? ".new" : ".new" + std::to_string(number));
        ::unlink(name.c_str());
        const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        const int descriptor = ::open(name.c_str(), flags, mode);
        if (descriptor >= 0) return {descriptor, name};
        if (errno != EEXIST) break;
    }
    return {};
}

// A rename is only durable after its folder was flushed.
void flush_folder(const std::filesystem::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

// The length in bytes of the UTF-8 character at the front; 0 if it is malformed.
std::size_t utf8_length(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0;
    return length;
}

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = utf8_length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

} // namespace

std::optional<std::string> read_file(const std::filesystem::path& file, std::size_t largest) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
    // Non-blocking, in case a pipe has taken the name since the check.
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) return std::nullopt;
    std::optional<std::string> content;
    struct stat status {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
        static_cast<std::uintmax_t>(status.st_size) <= largest)
        content = read_all(descriptor, static_cast<std::size_t>(status.st_size));
    ::close(descriptor);
    return content;
}

bool replace_file(const std::filesystem::path& named, std::string_view content) {
    const auto file = follow_links(named);
    if (!file) return false;
    struct stat old {};
    mode_t mode = 0644;
    if (::stat(file->c_str(), &old) == 0) {
        // The read-only mark holds for every user, including root.
        if (!S_ISREG(old.st_mode) || (old.st_mode & 0222) == 0) return false;
        mode = old.st_mode & 0777;
    }
    const auto [descriptor, temporary] = make_temporary(*file, mode);
    if (descriptor < 0) return false;
    ::fchmod(descriptor, mode); // may fail on file systems without modes, which is harmless
    bool good = write_all(descriptor, content) && ::fsync(descriptor) == 0;
    good = ::close(descriptor) == 0 && good;
    good = good && ::rename(temporary.c_str(), file->c_str()) == 0;
    if (good)
        flush_folder(file->parent_path());
    else
        ::unlink(temporary.c_str());
    return good;
}

std::string as_utf8(std::string_view text) {
    if (is_utf8(text)) return std::string(text);
    std::string converted;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            converted += c;
        } else {
            converted += static_cast<char>(0xC0 | (byte >> 6));
            converted += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return converted;
}

std::string_view shortened(std::string_view text) {
    if (text.size() <= longest_line) return text;
    constexpr std::size_t most_continuation_bytes = 3; // of a character
    std::size_t end = longest_line;
    while (end > longest_line - most_continuation_bytes &&
           (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return text.substr(0, end);
}

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string_view without_mark(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    return text;
}

std::optional<std::string_view> take_line(std::string_view& rest) {
    if (rest.empty()) return std::nullopt;
    const auto end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

} // namespace zol::app
