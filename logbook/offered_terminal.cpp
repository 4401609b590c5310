#include "logbook/offered_terminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/inotify.h>
#include <termios.h>
#include <unistd.h>

namespace zol::logbook {
namespace {

void close_descriptor(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

bool make_raw(int descriptor) {
    termios line{};
    if (::tcgetattr(descriptor, &line) != 0) return false;
    ::cfmakeraw(&line);
    return ::tcsetattr(descriptor, TCSANOW, &line) == 0;
}

struct Speed {
    speed_t code;
    const char* text;
};
constexpr std::array<Speed, 8> speeds = {{{B1200, "1200"},
                                          {B2400, "2400"},
                                          {B4800, "4800"},
                                          {B9600, "9600"},
                                          {B19200, "19200"},
                                          {B38400, "38400"},
                                          {B57600, "57600"},
                                          {B115200, "115200"}}};

char parity_of(const termios& line) {
    if ((line.c_cflag & PARENB) == 0) return 'n';
    return (line.c_cflag & PARODD) != 0 ? 'o' : 'e';
}

char bits_of(const termios& line) {
    switch (line.c_cflag & CSIZE) {
    case CS5: return '5';
    case CS6: return '6';
    case CS7: return '7';
    default: return '8';
    }
}

} // namespace

std::string OfferedTerminal::open() {
    close();
    std::array<char, 256> name{};
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    bool good = master_ >= 0 && ::grantpt(master_) == 0 && ::unlockpt(master_) == 0 &&
                ::ptsname_r(master_, name.data(), name.size()) == 0;
    if (good) own_end_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    good = good && own_end_ >= 0 && make_raw(own_end_);
    if (!good) {
        std::string why = std::strerror(errno);
        close();
        return "No pseudo-terminal can be opened: " + why +
               "; the system must offer them (/dev/ptmx and /dev/pts).";
    }
    path_ = name.data();
    watch_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch_ >= 0 && ::inotify_add_watch(watch_, path_.c_str(), IN_OPEN | IN_CLOSE) < 0)
        close_descriptor(watch_);
    return {};
}

void OfferedTerminal::close() {
    close_descriptor(watch_);
    close_descriptor(own_end_);
    close_descriptor(master_);
    users_ = 0;
}

bool OfferedTerminal::follow_users() {
    alignas(inotify_event) std::array<char, 4096> events{};
    bool left = false;
    ssize_t got = 0;
    while (watch_ >= 0 && (got = ::read(watch_, events.data(), events.size())) > 0) {
        for (ssize_t at = 0; at < got;) {
            const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
            if ((event->mask & IN_OPEN) != 0)
                ++users_;
            else if (users_ > 0 && --users_ == 0)
                left = true;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (left) ::tcflush(own_end_, TCIFLUSH);
    return left;
}

void OfferedTerminal::somebody_sent() { users_ = std::max(users_, 1); }

std::string OfferedTerminal::line_settings() const {
    termios line{};
    if (own_end_ < 0 || ::tcgetattr(own_end_, &line) != 0) return {};
    const auto speed = std::find_if(speeds.begin(), speeds.end(), [&](const Speed& one) {
        return one.code == ::cfgetospeed(&line);
    });
    if (speed == speeds.end()) return {};
    return std::string(speed->text) + "," + parity_of(line) + "," + bits_of(line) +
           ((line.c_cflag & CSTOPB) != 0 ? ",2" : ",1");
}

} // namespace zol::logbook
