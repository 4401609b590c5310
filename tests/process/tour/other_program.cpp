#include "tests/process/tour/other_program.h"

#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace zol::tour {

OtherProgram::OtherProgram(const std::filesystem::path& device)
    : descriptor_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    termios settings{};
    if (::tcgetattr(descriptor_, &settings) != 0) return;
    ::cfmakeraw(&settings);
    ::cfsetspeed(&settings, B9600);
    ::tcsetattr(descriptor_, TCSANOW, &settings);
}

OtherProgram::~OtherProgram() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::string OtherProgram::ask(const std::string& typed, const std::string& end, int most_ms) {
    using clock = std::chrono::steady_clock;
    std::string heard;
    if (::write(descriptor_, typed.data(), typed.size()) < 0) return heard;
    const auto last = clock::now() + std::chrono::milliseconds(most_ms);
    while (clock::now() < last && heard.find(end) == std::string::npos) {
        constexpr int patience_ms = 100;
        pollfd readable{descriptor_, POLLIN, 0};
        char block[512];
        if (::poll(&readable, 1, patience_ms) <= 0) continue;
        const ssize_t got = ::read(descriptor_, block, sizeof block);
        if (got > 0) heard.append(block, static_cast<std::size_t>(got));
    }
    return heard;
}

bool held_by_the_tool(const std::filesystem::path& device) {
    std::error_code error;
    const auto wanted = std::filesystem::canonical(device, error);
    for (const auto& open : std::filesystem::directory_iterator("/proc/self/fd", error))
        if (std::filesystem::read_symlink(open.path(), error) == wanted) return true;
    return false;
}

} // namespace zol::tour
