// The serial port of a Linux machine.
#pragma once

#include "link/serial_port.h"

#include <filesystem>
#include <string>

namespace zol::link {

// The device behind a port number: what `ports/com<n>` in the application folder points to, where
// that exists; else 1 and 2 are /dev/ttyUSB0 and 1, 3 and 4 /dev/ttyACM0 and 1, 5 to 8 /dev/ttyS0
// to 3. A fitter with one USB adapter thus finds it at COM1. Empty for any other number.
std::filesystem::path device_of_port(int port_number);

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
    bool is_open() const override { return descriptor_ >= 0; }
    bool write(std::span<const std::uint8_t> bytes) override;
    std::optional<Bytes> read_all() override;

  private:
    int port_number_ = 0;
    std::string settings_;
    int descriptor_ = -1;
};

} // namespace zol::link
