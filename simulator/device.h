// The serial device that the unit sits on: a pseudo-terminal of its own, or a port of the machine.
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

    // Each returns an empty text, or a sentence with the system's own reason and the remedy. The
    // device must be closed before.
    std::string open_pseudo_terminal();
    std::string open_port(const std::string& path);
    // Whoever holds the other end finds it hung up.
    void close();

    // Takes from everybody the permission to open the pseudo-terminal, or gives it back; one who
    // has it open keeps it, and root is not stopped. A real port is left alone.
    void deny(bool denied);

    bool is_open() const { return fd_ >= 0; }
    // To wait on for input; -1 if it is closed.
    int fd() const { return fd_; }
    // Becomes readable when somebody opens or closes the pseudo-terminal; -1 if there is none.
    int watch_fd() const { return watch_fd_; }
    // What the tool opens.
    const std::string& path() const { return path_; }

    // All bytes that have come in; `lost` if the device is gone.
    std::vector<std::uint8_t> read(bool& lost);
    // What does not fit at once is dropped, as on a line that nobody reads.
    void write(std::span<const std::uint8_t> bytes);
    // On a real port a closed end keeps nothing: throws away what nobody has read.
    void somebody_came_or_went();

  private:
    int fd_ = -1;
    int slave_fd_ = -1; // held, so that the terminal stays as it is between two visits
    int watch_fd_ = -1;
    std::string path_;
    bool denied_ = false;
    unsigned mode_ = 0; // of the pseudo-terminal while it is denied
};

} // namespace sim
