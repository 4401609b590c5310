// What tells one serial device from another, and a device that is free from one that somebody types
// at, as the system's own files show it.
#pragma once

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace zol::link {

// The folder that holds the machine's dev, sys and proc. Tests have a machine of their own.
struct MachineState {
    std::filesystem::path root = "/";
};
inline MachineState machine_state;

// Equal for the same device, also after it was out and has come back under another device number:
// a port of a USB adapter has the adapter's vendor, product and serial number and its own place on
// the adapter, and two adapters of one model without a serial number count as the same. All
// pseudo-terminals are equal: nothing tells one from the next. Any other device is its number.
std::string device_identity(dev_t device);

inline constexpr const char* pseudo_terminal = "pseudo-terminal"; // the identity of each of them

// Another one once the file has been made again, also under its old name and number.
std::string file_mark(const struct stat& file);

// Whether the identity is that of one single adapter, and not of each one of its model.
bool has_serial_number(const std::string& identity);

// Whether a session has the device as its controlling terminal: a terminal window, a login on a
// console.
bool is_terminal_of_a_session(dev_t device);

} // namespace zol::link
