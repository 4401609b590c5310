// The serial port as the tool needs it: seven verbs, no events, no flow control. The receive buffer
// keeps bytes between reads.
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
    // 1 to 8; what it means is the port's own affair. It is a choice: the next open() takes the
    // device that the number has by then. An open() with no choice before it takes back only the
    // device that the number was found to have.
    virtual void set_number(int port_number) = 0;
    virtual void set_line_settings(const std::string& settings) = 0; // "9600,n,8,1"
    // Nothing on success, else the system's text for why not. An open port stays as it is.
    virtual std::optional<std::string> open() = 0;
    virtual void close() = 0; // a closed port stays closed
    virtual bool is_open() const = 0;
    // False if the port is closed or the device refuses; nothing is sent then, or only a part.
    virtual bool write(std::span<const std::uint8_t> bytes) = 0;
    // Takes every byte that waits, possibly none, and returns at once. Nothing on a fault.
    virtual std::optional<Bytes> read_all() = 0;
};

// The port in use; it must outlive its use.
struct PortState {
    SerialPort* port = nullptr;
};
inline PortState port_state;
void use_serial_port(SerialPort& port);
SerialPort& serial_port();

} // namespace zol::link
