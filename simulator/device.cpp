#include "simulator/device.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace sim {
namespace {

std::string because(const std::string& what, const std::string& remedy) {
    return what + ": " + std::strerror(errno) + "; " + remedy + ".";
}

// Sets raw bytes, 9600 baud, 8 data bits, no parity, 1 stop bit, no flow control.
bool make_raw(int fd) {
    termios settings{};
    if (tcgetattr(fd, &settings) != 0) return false;
    cfmakeraw(&settings);
    settings.c_cflag &= static_cast<tcflag_t>(~(CSTOPB | CRTSCTS));
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 0;
    cfsetispeed(&settings, B9600);
    cfsetospeed(&settings, B9600);
    return tcsetattr(fd, TCSANOW, &settings) == 0;
}

void close_fd(int& fd) {
    if (fd >= 0) ::close(fd);
    fd = -1;
}

} // namespace

std::string Device::open_pseudo_terminal() {
    constexpr auto remedy = "the system must offer pseudo-terminals (/dev/ptmx and /dev/pts)";
    const auto failed = [this] {
        std::string sentence = because("No pseudo-terminal can be opened", remedy);
        close();
        return sentence;
    };
    fd_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0) return failed();
    std::array<char, 256> name{};
    if (grantpt(fd_) != 0 || unlockpt(fd_) != 0) return failed();
    if (ptsname_r(fd_, name.data(), name.size()) != 0) return failed();
    slave_fd_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (slave_fd_ < 0 || !make_raw(slave_fd_)) return failed();
    path_ = name.data();
    watch_fd_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch_fd_ >= 0 && inotify_add_watch(watch_fd_, path_.c_str(), IN_OPEN | IN_CLOSE) < 0)
        close_fd(watch_fd_);
    return {};
}

std::string Device::open_port(const std::string& path) {
    fd_ = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0)
        return because(path + " cannot be opened",
                       errno == EACCES ? "add yourself to the group that owns it (dialout)"
                                       : "name an existing serial port, such as /dev/ttyUSB0");
    if (!make_raw(fd_)) {
        std::string sentence = because(path + " cannot be set to 9600 baud",
                                       "name a serial port, such as /dev/ttyUSB0");
        close();
        return sentence;
    }
    path_ = path;
    return {};
}

void Device::deny(bool denied) {
    if (denied == denied_ || slave_fd_ < 0) return;
    struct stat found {};
    if (denied && fstat(slave_fd_, &found) == 0) mode_ = found.st_mode & 07777;
    if (fchmod(slave_fd_, denied ? 0 : mode_) == 0) denied_ = denied;
}

void Device::close() {
    denied_ = false;
    close_fd(watch_fd_);
    close_fd(slave_fd_);
    close_fd(fd_);
    path_.clear();
}

std::vector<std::uint8_t> Device::read(bool& lost) {
    std::vector<std::uint8_t> all;
    std::array<std::uint8_t, 512> buffer{};
    lost = false;
    while (fd_ >= 0 && all.size() < 65536) {
        const ssize_t got = ::read(fd_, buffer.data(), buffer.size());
        if (got > 0) {
            all.insert(all.end(), buffer.begin(), buffer.begin() + got);
            continue;
        }
        if (got < 0 && errno == EINTR) continue;
        // Without input, read() returns 0 or EAGAIN; any other error means that the device is gone.
        lost = got < 0 && errno != EAGAIN && errno != EWOULDBLOCK;
        break;
    }
    return all;
}

void Device::write(std::span<const std::uint8_t> bytes) {
    while (fd_ >= 0 && !bytes.empty()) {
        const ssize_t put = ::write(fd_, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return;
        bytes = bytes.subspan(static_cast<std::size_t>(put));
    }
}

void Device::discard_unread() {
    std::array<char, 4096> events{};
    while (watch_fd_ >= 0 && ::read(watch_fd_, events.data(), events.size()) > 0) {}
    if (slave_fd_ >= 0) tcflush(slave_fd_, TCIFLUSH);
}

} // namespace sim
