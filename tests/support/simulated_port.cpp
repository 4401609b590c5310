#include "tests/support/simulated_port.h"

#include <ostream>

namespace zol::tests {
namespace {

Frame frame_of(std::span<const std::uint8_t> bytes) {
    Frame frame;
    if (bytes.size() >= 5) frame.command = bytes[4];
    if (bytes.size() == 9) {
        frame.number = bytes[5] * 256 + bytes[6];
        frame.value = bytes[7] * 256 + bytes[8];
    }
    return frame;
}

} // namespace

Frame Write(int number, int value) { return {2, number, value}; }
Frame Send(int command) { return {command, 0, 0}; }
Timed At(std::int64_t ms, Frame frame) { return {ms, frame}; }

std::ostream& operator<<(std::ostream& out, const Frame& frame) {
    if (frame.command == 2) return out << "Write(" << frame.number << ", " << frame.value << ")";
    return out << "Send(" << frame.command << ")";
}

std::ostream& operator<<(std::ostream& out, const Timed& timed) {
    return out << timed.ms << " ms: " << timed.frame;
}

std::optional<std::string> SimulatedPort::open() {
    if (open_error) return open_error;
    if (open_) return "the port is open already";
    unit_.take(time_.now_us()); // drops what the unit sent while the port was closed
    open_ = true;
    ++opened;
    return std::nullopt;
}

void SimulatedPort::close() {
    if (open_) ++closed;
    open_ = false;
    unit_.take(time_.now_us()); // drops what the port had received
}

bool SimulatedPort::write(std::span<const std::uint8_t> bytes) {
    if (!open_ || unplugged) return false;
    last_sent = frame_of(bytes);
    sent.push_back({time_.now_us() / 1000, last_sent, {bytes.begin(), bytes.end()}});
    if (!silent && last_sent.command != lost_command) unit_.receive(bytes, time_.now_us());
    return true;
}

std::optional<link::Bytes> SimulatedPort::read_all() {
    if (!open_ || unplugged) return std::nullopt;
    link::Bytes bytes = unit_.take(time_.now_us());
    if (silent) bytes.clear();
    return alter ? alter(std::move(bytes)) : bytes;
}

} // namespace zol::tests
