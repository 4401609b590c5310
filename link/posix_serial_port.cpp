#include "link/posix_serial_port.h"

#include "app/helper_texts.h"
#include "link/device_identity.h"
#include "link/port_devices.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace zol::link {
namespace {

// The only settings of the control unit: raw bytes both ways, no flow control.
bool set_9600_n_8_1(int descriptor, termios line) {
    ::cfmakeraw(&line);
    // cfmakeraw leaves some flags as another program has set them, among them flow control.
    line.c_iflag = 0;
    ::cfsetispeed(&line, B9600);
    ::cfsetospeed(&line, B9600);
    line.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | PARENB | CRTSCTS | HUPCL);
    line.c_cflag |= CS8 | CLOCAL | CREAD;
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    return ::tcsetattr(descriptor, TCSANOW, &line) == 0;
}

// A pseudo-terminal that is created again under the number of an earlier one is another device,
// unless its link was created again too: the program that serves it then intends it to be the port.
bool is_same(const FoundDevice& found, const FoundDevice& now) {
    if (found.identity != now.identity) return false;
    return now.identity != pseudo_terminal || found.link != now.link || found.node == now.node;
}

} // namespace

PosixSerialPort::~PosixSerialPort() { close(); }

void PosixSerialPort::set_number(int port_number) {
    if (open_) return; // an open port keeps its device
    port_number_ = port_number;
    chosen_ = true;
}
void PosixSerialPort::set_line_settings(const std::string& settings) { settings_ = settings; }

std::optional<std::string> PosixSerialPort::open() {
    if (open_) return failure(device_of_port(port_number_), EBUSY);
    const bool chosen = std::exchange(chosen_, false);
    if (settings_ != "9600,n,8,1") return failure(device_of_port(port_number_), EINVAL);
    const auto error = attach(chosen);
    open_ = !error;
    return error;
}

void PosixSerialPort::close() {
    detach();
    open_ = false;
}

std::string PosixSerialPort::failure(const std::filesystem::path& device, int error) const {
    return "COM" + std::to_string(port_number_) +
           (device.empty() ? "" : " (" + device.string() + ")") + ": " + std::strerror(error);
}

std::optional<std::string> PosixSerialPort::attach(bool chosen) {
    auto device = device_of_port(port_number_);
    if (device.empty()) return failure(device, ENODEV);
    FoundDevice& found = found_devices[static_cast<std::size_t>(port_number_ - 1)];
    const bool back = !chosen && !found.path.empty();
    if (back) device = place_of_found(port_number_);
    // Checked before it is opened, because opening alone would raise the modem lines of another
    // device.
    struct stat there {
    }, link{};
    if (::stat(device.c_str(), &there) != 0 || ::lstat(device.c_str(), &link) != 0)
        return failure(device, errno);
    if (!S_ISCHR(there.st_mode)) return failure(device, ENOTTY);
    const FoundDevice now{device, device_identity(there.st_rdev), file_mark(link),
                          file_mark(there)};
    if (back && !is_same(found, now)) return failure(device, ENODEV);
    if (is_terminal_of_a_session(there.st_rdev))
        return "COM" + std::to_string(port_number_) + " (" + with_target(device) +
               "): " + app::helper_word("terminal of a session");
    if (const auto error = take_device(device, there.st_rdev)) {
        detach();
        return error;
    }
    found = now;
    return std::nullopt;
}

std::optional<std::string> PosixSerialPort::take_device(const std::filesystem::path& device,
                                                        dev_t number) {
    // Non-blocking: neither an inactive modem line nor a full buffer may block the program.
    descriptor_ = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor_ < 0 || !::isatty(descriptor_)) return failure(device, errno);
    struct stat opened {};
    // The name may belong to another device since the check.
    if (::fstat(descriptor_, &opened) != 0 || opened.st_rdev != number)
        return failure(device, ENODEV);
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) return failure(device, EBUSY);
    termios line{};
    if (::tcgetattr(descriptor_, &line) != 0) return failure(device, errno);
    settings_before_ = line;
    if (!set_9600_n_8_1(descriptor_, line)) return failure(device, errno);
    return std::nullopt;
}

void PosixSerialPort::detach() {
    if (descriptor_ < 0) return;
    // A device that another program uses was not changed, so it is not restored.
    if (settings_before_) {
        // Otherwise close() would wait for bytes that a dead line never takes.
        ::tcflush(descriptor_, TCOFLUSH);
        // TCSANOW, and the result is ignored, because the device may be gone. HUPCL stays off: the
        // fault read closes the port for 300 ms, and an adapter that is powered by the modem lines
        // must not lose them.
        settings_before_->c_cflag &= ~static_cast<tcflag_t>(HUPCL);
        ::tcsetattr(descriptor_, TCSANOW, &*settings_before_);
    }
    settings_before_.reset();
    ::close(descriptor_);
    descriptor_ = -1;
}

bool PosixSerialPort::write(std::span<const std::uint8_t> bytes) {
    // A pulled adapter may be back by now.
    if (!open_ || (descriptor_ < 0 && attach(false))) return false;
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        // A full buffer means that the line takes nothing, since a frame is only a few bytes. After
        // any other error the device is gone; it is closed, because an open descriptor would
        // prevent it from getting its name back.
        if (written <= 0) {
            if (written < 0 && errno != EAGAIN) detach();
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<Bytes> PosixSerialPort::read_all() {
    if (descriptor_ < 0) return std::nullopt;
    Bytes all;
    std::uint8_t block[4096];
    // A device that sends continuously must not block the program. The rest is left for the next
    // call.
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
