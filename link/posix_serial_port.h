// The serial port of a Linux machine.
#pragma once

#include "link/serial_port.h"

#include <string>

namespace zol::link {

// Behind a port number stands what link/port_devices.h says. An adapter that is pulled while the
// port is open makes every write and read fail; once it is back under its name, the next write
// finds it again, with no need to open the port anew.
class PosixSerialPort : public SerialPort {
  public:
    PosixSerialPort() = default;
    ~PosixSerialPort() override;
    PosixSerialPort(const PosixSerialPort&) = delete;
    PosixSerialPort& operator=(const PosixSerialPort&) = delete;

    void set_number(int port_number) override;
    void set_line_settings(const std::string& settings) override;
    std::optional<std::string> open() override;
    void close() override;
    bool is_open() const override { return open_; }
    bool write(std::span<const std::uint8_t> bytes) override;
    std::optional<Bytes> read_all() override;

  private:
    // "COM1 (/dev/ttyUSB0): " and the system's text.
    std::string failure(int error) const;
    // Opens the device; nothing on success, else why not.
    std::optional<std::string> attach();
    void detach();

    int port_number_ = 0;
    std::string settings_;
    bool open_ = false;
    int descriptor_ = -1; // -1 also while an open port's device is gone
};

} // namespace zol::link
