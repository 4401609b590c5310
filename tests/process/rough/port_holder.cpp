#include "tests/process/rough/port_holder.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <linux/capability.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::rough {
namespace {

[[noreturn]] void hold(const char* port, int news) {
    sigset_t end;
    sigemptyset(&end);
    sigaddset(&end, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &end, nullptr);
    constexpr timespec between_tries = {0, 500'000};
    while (::sigtimedwait(&end, nullptr, &between_tries) != SIGTERM) {
        const int descriptor = ::open(port, O_RDWR | O_NOCTTY | O_NONBLOCK);
        if (descriptor < 0) continue;
        if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::ioctl(descriptor, TIOCEXCL) == 0) {
            int signal = 0;
            if (::write(news, "", 1) == 1) ::sigwait(&end, &signal);
            // A real port loses this with the last close. This one stays open in the unit.
            ::ioctl(descriptor, TIOCNXCL);
            break;
        }
        ::close(descriptor);
    }
    ::_exit(0);
}

} // namespace

PortHolder::PortHolder(const std::filesystem::path& port) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return;
    process_ = ::fork();
    if (process_ == 0) hold(port.c_str(), ends[1]);
    ::close(ends[1]);
    news_ = ends[0];
}

PortHolder::~PortHolder() {
    release();
    if (process_ > 0) ::waitpid(process_, nullptr, 0);
    if (news_ >= 0) ::close(news_);
}

bool PortHolder::holds_within(int most_ms) const {
    pollfd readable{news_, POLLIN, 0};
    return ::poll(&readable, 1, most_ms) == 1;
}

void PortHolder::release() const {
    if (process_ > 0) ::kill(process_, SIGTERM);
}

void drop_exclusive_open_right() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, 2> rights{};
    if (::syscall(SYS_capget, &header, rights.data()) != 0) return;
    auto& [effective, permitted, inheritable] = rights[CAP_TO_INDEX(CAP_SYS_ADMIN)];
    effective &= ~CAP_TO_MASK(CAP_SYS_ADMIN);
    permitted &= ~CAP_TO_MASK(CAP_SYS_ADMIN);
    ::syscall(SYS_capset, &header, rights.data());
}

} // namespace zol::rough
