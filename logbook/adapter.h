// The serial adapter: opened with the settings of the tool and locked against other programs. It
// neither reads nor writes; forwarder.h does.
#pragma once

#include "link/port_devices.h"

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <termios.h>

namespace zol::logbook {

class Adapter {
  public:
    Adapter() = default;
    Adapter(const Adapter&) = delete;
    Adapter& operator=(const Adapter&) = delete;
    ~Adapter() { close(); }

    // Opens and locks the device: 9600 baud, 8 data bits, no parity, 1 stop bit. After the first
    // success only the same device is accepted, as in link/posix_serial_port: the adapter may
    // return, but no other one may replace it. Returns an empty text, or the reason and the remedy.
    std::string open(const std::filesystem::path& device);
    // Restores the settings that the device had before.
    void close();

    // Whether the last open failed because another program uses the device.
    bool is_busy() const { return busy_; }
    // Whether the last open failed because the path leads to something else than a serial port.
    bool is_no_port() const { return no_port_; }
    int descriptor() const { return descriptor_; } // -1 while it is closed

  private:
    std::string take(const std::filesystem::path& device, dev_t number);

    std::string failure(const std::filesystem::path& device, int error);

    int descriptor_ = -1;
    bool busy_ = false, no_port_ = false;
    link::FoundDevice found_; // its path is empty until the first success
    std::optional<termios> settings_before_;
};

} // namespace zol::logbook
