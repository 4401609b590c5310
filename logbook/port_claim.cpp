#include "logbook/port_claim.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;

constexpr int last_port = 8;

fs::path link_of(const fs::path& folder, int port_number) {
    return folder / "ports" / ("com" + std::to_string(port_number));
}

fs::path note_of(const fs::path& link) {
    return link.parent_path() / ("." + link.filename().string() + ".logbook");
}

std::string target_of(const fs::path& link) {
    std::error_code error;
    return fs::read_symlink(link, error).string(); // empty where there is no link
}

} // namespace

PortClaim::~PortClaim() {
    if (note_ >= 0) ::close(note_);
}

std::string PortClaim::take(const fs::path& application_folder, int port_number) {
    link_ = link_of(application_folder, port_number);
    note_path_ = note_of(link_);
    if (!lock()) {
        if (errno == EWOULDBLOCK)
            return "Another zol-logbook records " + link_.filename().string() + " in " +
                   application_folder.string() + "; end it first.";
        return note_path_.string() + ": " + std::strerror(errno) +
               "; name the tool's application folder, which you may write to, with --folder.";
    }
    remove_link();
    std::string wrong = somebodys_link();
    if (!wrong.empty()) end();
    return wrong;
}

std::string PortClaim::somebodys_link() const {
    struct stat found {};
    if (::lstat(link_.c_str(), &found) != 0) return {};
    const std::string target = target_of(link_);
    const std::string what = target.empty() ? " is there" : " is there and leads to " + target;
    return link_.string() + what +
           "; the logbook did not make it and leaves it as it is. Record under another number, as "
           "in --port 2" +
           (target.empty() ? "" : " --device " + target) + ", and choose that port in the tool.";
}

// Whoever held the lock may have removed the note meanwhile: the lock counts only on the file that
// still has the name.
bool PortClaim::lock() {
    for (;;) {
        note_ = ::open(note_path_.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC,
                       0644);
        if (note_ < 0) return false;
        if (::flock(note_, LOCK_EX | LOCK_NB) != 0) {
            const int why = errno;
            ::close(note_);
            note_ = -1;
            errno = why;
            return false;
        }
        if (note_has_its_name()) return true;
        ::close(note_);
    }
}

bool PortClaim::note_has_its_name() const {
    struct stat held {
    }, named{};
    return ::fstat(note_, &held) == 0 && ::lstat(note_path_.c_str(), &named) == 0 &&
           held.st_ino == named.st_ino;
}

std::string PortClaim::noted_target() const {
    std::array<char, 256> text{};
    const ssize_t got = note_ < 0 ? 0 : ::pread(note_, text.data(), text.size(), 0);
    return {text.data(), got > 0 ? static_cast<std::size_t>(got) : 0};
}

bool PortClaim::write_note(const std::string& target) const {
    return ::ftruncate(note_, 0) == 0 &&
           ::pwrite(note_, target.data(), target.size(), 0) == static_cast<ssize_t>(target.size());
}

std::string PortClaim::make_link(const std::string& target) {
    // The note first: a kill between the two leaves a note with no link, and never a link that
    // nobody knows to be the logbook's.
    if (!write_note(target))
        return note_path_.string() + " cannot be written: " + std::strerror(errno) + ".";
    if (::symlink(target.c_str(), link_.c_str()) == 0) return {};
    const int why = errno;
    std::string wrong = somebodys_link();
    if (wrong.empty())
        wrong = link_.string() + " cannot be made: " + std::strerror(why) +
                "; name an application folder that you may write to with --folder.";
    return wrong;
}

void PortClaim::remove_link() {
    const std::string target = noted_target();
    if (!target.empty() && target_of(link_) == target) ::unlink(link_.c_str());
}

void PortClaim::end() {
    if (note_ < 0) return;
    remove_link();
    if (note_has_its_name()) ::unlink(note_path_.c_str());
    ::close(note_);
    note_ = -1;
}

int release_left_links(const fs::path& application_folder, std::vector<std::string>& held) {
    int removed = 0;
    for (int port_number = 1; port_number <= last_port; ++port_number) {
        const fs::path link = link_of(application_folder, port_number);
        std::error_code error;
        if (!fs::exists(note_of(link), error)) continue;
        const bool was_there = fs::is_symlink(link, error);
        PortClaim claim;
        if (std::string wrong = claim.take(application_folder, port_number); !wrong.empty()) {
            // A link of another owner is no failure; its left note was removed.
            if (fs::exists(note_of(link), error)) held.push_back(std::move(wrong));
            continue;
        }
        claim.end();
        if (was_there && !fs::is_symlink(link, error)) ++removed;
    }
    return removed;
}

} // namespace zol::logbook
