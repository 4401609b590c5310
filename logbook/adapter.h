// The real serial adapter: opened as the tool opens it, and held for this program alone.
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

    // Opens the device with 9600 baud, 8 data bits, no parity, 1 stop bit and locks it. After the
    // first success only the same device is taken, as link/posix_serial_port does: an adapter that
    // comes back, but no other one in its place. An empty text, or why not and what to do.
    std::string open(const std::filesystem::path& device);
    // Gives the device its settings back.
    void close();

    // Whether the last open failed because another program uses the device.
    bool is_busy() const { return busy_; }
    int descriptor() const { return descriptor_; } // -1 while it is closed

  private:
    std::string take(const std::filesystem::path& device, dev_t number);

    std::string failure(const std::filesystem::path& device, int error);

    int descriptor_ = -1;
    bool busy_ = false;
    link::FoundDevice found_; // its path is empty until the first success
    std::optional<termios> settings_before_;
};

} // namespace zol::logbook
