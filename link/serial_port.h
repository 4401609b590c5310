// The interface of the serial port: seven operations, no events, no flow control. The receive
// buffer keeps bytes between reads. Implementations: link/posix_serial_port.h, and the simulated
// line in tests.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zol::link {

using Bytes = std::vector<std::uint8_t>;

struct SerialPort {
    virtual ~SerialPort() = default;
    // Chooses the port, 1 to 8. The next open() opens the device that the number has at that
    // moment. An open() without a new choice only accepts the device that was opened before.
    virtual void set_number(int port_number) = 0;
    virtual void set_line_settings(const std::string& settings) = 0; // "9600,n,8,1"
    // Nothing on success, else the error text. A port that is open stays open, and the call fails.
    virtual std::optional<std::string> open() = 0;
    virtual void close() = 0; // no effect on a closed port
    virtual bool is_open() const = 0;
    // False if the port is closed or the device fails; then nothing, or only a part, was sent.
    virtual bool write(std::span<const std::uint8_t> bytes) = 0;
    // Takes every byte in the receive buffer, possibly none, and returns at once. Nothing if the
    // port is closed or fails.
    virtual std::optional<Bytes> read_all() = 0;
};

// The port in use. It must outlive the program.
struct PortState {
    SerialPort* port = nullptr;
};
inline PortState port_state;
void use_serial_port(SerialPort& port);
SerialPort& serial_port();

} // namespace zol::link
