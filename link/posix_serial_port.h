// The serial port of a Linux machine.
#pragma once

#include "link/serial_port.h"

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <termios.h>

namespace zol::link {

// Behind a port number stands what link/port_devices.h says. An adapter that is pulled while the
// port is open makes every write and read fail; once it is back under its name, the next write
// finds it again, with no need to reopen the port. Another device in its place is not taken and
// gets no byte: the port goes on failing as if the adapter were out. The terminal of a session is
// never taken. A device gets its settings back when it is let go.
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
    std::string failure(const std::filesystem::path& device, int error) const;
    // Opens the device; nothing on success, else why not. Without a choice, the device that was
    // found before.
    std::optional<std::string> attach(bool chosen);
    std::optional<std::string> take_device(const std::filesystem::path& device, dev_t number);
    void detach();

    int port_number_ = 0;
    bool chosen_ = false; // since the last open()
    std::string settings_;
    bool open_ = false;
    int descriptor_ = -1;                    // -1 also while an open port's device is gone
    std::optional<termios> settings_before_; // of the device at hand, once they are known
};

} // namespace zol::link
