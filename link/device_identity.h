// Tells one serial device from another, and a free device from the terminal of a login session.
// Reads the system's /sys, /proc and /dev; opens no device.
#pragma once

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace zol::link {

// The folder that holds dev, sys and proc. Tests set it to a folder of their own.
struct MachineState {
    std::filesystem::path root = "/";
};
inline MachineState machine_state;

// A text that identifies the device. It stays the same if the device is unplugged and gets another
// device number. For a port of a USB adapter it consists of the adapter's vendor, product and
// serial number and the port's position on the adapter, so two adapters of one model without serial
// numbers have the same identity. All pseudo-terminals have the same one, because nothing tells
// them apart. That of any other device is its device number.
std::string device_identity(dev_t device);

inline constexpr const char* pseudo_terminal =
    "pseudo-terminal"; // the identity of every pseudo-terminal

// A text that changes when the file is created again, even under its old name and inode number.
std::string file_mark(const struct stat& file);

// Whether the identity belongs to one single adapter, and not to every adapter of its model.
bool has_serial_number(const std::string& identity);

// Whether the device is the controlling terminal of a session, such as a terminal window or a
// console login.
bool is_terminal_of_a_session(dev_t device);

} // namespace zol::link
