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
        if (got == 0) break; // it has become shorter meanwhile
        filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return content;
}

// The rename is on the disk only when its folder is.
void flush_folder(const std::filesystem::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

// How many bytes the well-formed UTF-8 character at the front has, 0 if none stands there.
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

std::optional<std::string> read_file(const std::filesystem::path& file) {
    // Not blocking, so that a pipe of that name cannot hold the program up.
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return std::nullopt;
    std::optional<std::string> content;
    struct stat status {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        content = read_all(descriptor, static_cast<std::size_t>(status.st_size));
    ::close(descriptor);
    return content;
}

bool replace_file(const std::filesystem::path& named, std::string_view content) {
    // A link keeps pointing to its file; that one is replaced.
    std::error_code error;
    std::filesystem::path file = std::filesystem::weakly_canonical(named, error);
    if (error) file = named;
    struct stat old {};
    mode_t mode = 0644;
    if (::stat(file.c_str(), &old) == 0) {
        // The mark counts for every user, the superuser included.
        if (!S_ISREG(old.st_mode) || (old.st_mode & 0222) == 0) return false;
        mode = old.st_mode & 0777;
    }
    // Always the same name: what a kill leaves behind, the next write takes up. One program writes
    // in a folder.
    const std::string temporary = file.string() + ".new";
    const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC;
    const int descriptor = ::open(temporary.c_str(), flags, mode);
    if (descriptor < 0) return false;
    ::fchmod(descriptor, mode); // some file systems have no modes to set, and need none
    bool good = write_all(descriptor, content) && ::fsync(descriptor) == 0;
    good = ::close(descriptor) == 0 && good;
    good = good && ::rename(temporary.c_str(), file.c_str()) == 0;
    if (good)
        flush_folder(file.parent_path());
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

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

} // namespace zol::app
