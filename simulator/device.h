// The serial device on which the unit answers: a pseudo-terminal that it creates, or a serial port
// of the machine.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace sim {

class Device {
  public:
    Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    ~Device() { close(); }

    // Each returns an empty text, or a sentence with the system's error and what to do. The device
    // must be closed.
    std::string open_pseudo_terminal();
    std::string open_port(const std::string& path);
    // The tool at the other end gets a hang-up.
    void close();

    // Removes the permission to open the pseudo-terminal, or restores it. It does not affect a tool
    // that has it open, nor root, nor a real port.
    void deny(bool denied);

    bool is_open() const { return fd_ >= 0; }
    // Descriptor to poll for input; -1 if the device is closed.
    int fd() const { return fd_; }
    // Descriptor that becomes readable when the pseudo-terminal is opened or closed; -1 if there is
    // none.
    int watch_fd() const { return watch_fd_; }
    // The path that the tool opens.
    const std::string& path() const { return path_; }

    // All bytes received. Sets `lost` if the device was removed.
    std::vector<std::uint8_t> read(bool& lost);
    // Bytes that do not fit into the buffer are dropped, as on a line that nobody reads.
    void write(std::span<const std::uint8_t> bytes);
    // Call when `watch_fd` is readable: drops bytes that the tool has not read, as a real port does
    // when it is closed.
    void discard_unread();

  private:
    int fd_ = -1;
    int slave_fd_ = -1; // kept open, so that the settings stay between two openings
    int watch_fd_ = -1;
    std::string path_;
    bool denied_ = false;
    unsigned mode_ = 0; // of the pseudo-terminal while it is denied
};

} // namespace sim
