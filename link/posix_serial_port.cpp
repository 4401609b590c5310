#include "link/posix_serial_port.h"

#include "app/application_folder.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace zol::link {
namespace {

constexpr const char* usual_devices[] = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyACM0",
                                         "/dev/ttyACM1", "/dev/ttyS0",   "/dev/ttyS1",
                                         "/dev/ttyS2",   "/dev/ttyS3"};

// The one setting that the control unit knows: raw bytes both ways, no flow control.
bool set_9600_n_8_1(int descriptor) {
    termios line{};
    if (::tcgetattr(descriptor, &line) != 0) return false;
    ::cfmakeraw(&line);
    ::cfsetispeed(&line, B9600);
    ::cfsetospeed(&line, B9600);
    line.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | PARENB | CRTSCTS | HUPCL);
    line.c_cflag |= CS8 | CLOCAL | CREAD;
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    return ::tcsetattr(descriptor, TCSANOW, &line) == 0;
}

} // namespace

std::filesystem::path device_of_port(int port_number) {
    if (port_number < 1 || port_number > static_cast<int>(std::size(usual_devices))) return {};
    const auto link = app::application_file("\\ports\\com" + std::to_string(port_number));
    std::error_code error;
    // A link whose device is gone still names the port's device.
    if (std::filesystem::symlink_status(link, error).type() !=
        std::filesystem::file_type::not_found)
        return link;
    return usual_devices[port_number - 1];
}

PosixSerialPort::~PosixSerialPort() { close(); }

void PosixSerialPort::set_number(int port_number) { port_number_ = port_number; }
void PosixSerialPort::set_line_settings(const std::string& settings) { settings_ = settings; }

std::optional<std::string> PosixSerialPort::open() {
    const auto failure = [this](int error) -> std::optional<std::string> {
        const auto device = device_of_port(port_number_).string();
        if (descriptor_ >= 0) close();
        return "COM" + std::to_string(port_number_) + (device.empty() ? "" : " (" + device + ")") +
               ": " + std::strerror(error);
    };
    if (is_open()) return "COM" + std::to_string(port_number_) + ": " + std::strerror(EBUSY);
    if (settings_ != "9600,n,8,1") return failure(EINVAL);
    const auto device = device_of_port(port_number_);
    if (device.empty()) return failure(ENODEV);
    // Not blocking: neither a modem line that is down nor a full buffer may hold the program up.
    descriptor_ = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor_ < 0) return failure(errno);
    if (!::isatty(descriptor_)) return failure(ENOTTY);
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) return failure(EBUSY);
    if (!set_9600_n_8_1(descriptor_)) return failure(errno);
    return std::nullopt;
}

void PosixSerialPort::close() {
    if (descriptor_ < 0) return;
    // Bytes that a dead line never takes would hold the close up.
    ::tcflush(descriptor_, TCOFLUSH);
    ::close(descriptor_);
    descriptor_ = -1;
}

bool PosixSerialPort::write(std::span<const std::uint8_t> bytes) {
    if (descriptor_ < 0) return false;
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        // A full buffer is a line that takes nothing: a frame is a few bytes.
        if (written <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<Bytes> PosixSerialPort::read_all() {
    if (descriptor_ < 0) return std::nullopt;
    Bytes all;
    std::uint8_t block[4096];
    // A device that sends without end must not hold the program: what is left waits for the next.
    constexpr std::size_t most_at_once = 65536;
    while (all.size() < most_at_once) {
        const ssize_t got = ::read(descriptor_, block, sizeof block);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 && errno != EAGAIN && errno != EWOULDBLOCK && all.empty()) return std::nullopt;
        if (got <= 0) break;
        all.insert(all.end(), block, block + got);
    }
    return all;
}

} // namespace zol::link
