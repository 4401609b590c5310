// The serial port of a Linux machine, with termios.
#pragma once

#include "link/serial_port.h"

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <termios.h>

namespace zol::link {

// link/port_devices.h gives the device of a port number. If an adapter is pulled while the port is
// open, writes and reads fail until it is back; the next write then uses it again, without
// reopening the port. A different device in its place is not opened and gets no byte. The
// controlling terminal of a session is never opened. A device gets its original line settings back
// when it is closed.
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
    // An error text: "COM1 (/dev/ttyUSB0): " and the system's text.
    std::string failure(const std::filesystem::path& device, int error) const;
    // Opens the device. Nothing on success, else the error text. If `chosen` is false, only the
    // device that was opened before is accepted.
    std::optional<std::string> attach(bool chosen);
    std::optional<std::string> take_device(const std::filesystem::path& device, dev_t number);
    void detach();

    int port_number_ = 0;
    bool chosen_ = false; // set_number() was called since the last open()
    std::string settings_;
    bool open_ = false;
    int descriptor_ = -1;                    // -1 also while the device of an open port is gone
    std::optional<termios> settings_before_; // of the open device, once they were read
};

} // namespace zol::link
