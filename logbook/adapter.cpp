#include "logbook/adapter.h"

#include "link/device_identity.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol::logbook {
namespace {

// Raw bytes both ways at 9600 baud without flow control, as the tool has the line.
bool set_9600_n_8_1(int descriptor, termios line) {
    ::cfmakeraw(&line);
    line.c_iflag = 0;
    ::cfsetispeed(&line, B9600);
    ::cfsetospeed(&line, B9600);
    line.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | PARENB | CRTSCTS | HUPCL);
    line.c_cflag |= CS8 | CLOCAL | CREAD;
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    return ::tcsetattr(descriptor, TCSANOW, &line) == 0;
}

bool is_same(const link::FoundDevice& found, const link::FoundDevice& now) {
    if (found.identity != now.identity) return false;
    return now.identity != link::pseudo_terminal || found.link != now.link ||
           found.node == now.node;
}

} // namespace

std::string Adapter::failure(const std::filesystem::path& device, int error) {
    busy_ = error == EBUSY || error == EWOULDBLOCK;
    no_port_ = error == ENOTTY;
    if (no_port_) return device.string() + " is no serial port. Name the adapter with --device.";
    const char* remedy = "plug the adapter in, or name another one with --device";
    if (error == EACCES) remedy = "become a member of the group that owns it: usermod -aG dialout";
    if (busy_) remedy = "end the program that uses it; if it is the tool, start it after this one";
    return device.string() + ": " + std::strerror(busy_ ? EBUSY : error) + "; " + remedy + ".";
}

std::string Adapter::open(const std::filesystem::path& device) {
    close();
    busy_ = no_port_ = false;
    struct stat node {
    }, path{};
    if (::stat(device.c_str(), &node) != 0 || ::lstat(device.c_str(), &path) != 0)
        return failure(device, errno);
    if (!S_ISCHR(node.st_mode)) return failure(device, ENOTTY);
    const link::FoundDevice now{device, link::device_identity(node.st_rdev), link::file_mark(path),
                                link::file_mark(node)};
    if (!found_.path.empty() && !is_same(found_, now))
        return device.string() +
               " is another device than before; put the first adapter back, or start again.";
    if (link::is_terminal_of_a_session(node.st_rdev))
        return device.string() +
               " is the terminal of a running session; name the adapter with --device.";
    std::string wrong = take(device, node.st_rdev);
    if (wrong.empty())
        found_ = now;
    else
        close();
    return wrong;
}

std::string Adapter::take(const std::filesystem::path& device, dev_t number) {
    descriptor_ = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor_ < 0 || !::isatty(descriptor_)) return failure(device, errno);
    struct stat opened {};
    // The name may have gone to another device since it was looked at.
    if (::fstat(descriptor_, &opened) != 0 || opened.st_rdev != number)
        return failure(device, ENODEV);
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) return failure(device, errno);
    termios line{};
    if (::tcgetattr(descriptor_, &line) != 0) return failure(device, errno);
    settings_before_ = line;
    if (!set_9600_n_8_1(descriptor_, line)) return failure(device, errno);
    return {};
}

void Adapter::close() {
    if (descriptor_ < 0) return;
    if (settings_before_) {
        // Bytes that a dead line never takes would delay the close. Hanging up stays off: an
        // adapter that is powered by the modem lines would lose its supply.
        ::tcflush(descriptor_, TCOFLUSH);
        settings_before_->c_cflag &= ~static_cast<tcflag_t>(HUPCL);
        ::tcsetattr(descriptor_, TCSANOW, &*settings_before_);
    }
    settings_before_.reset();
    ::close(descriptor_);
    descriptor_ = -1;
}

} // namespace zol::logbook
