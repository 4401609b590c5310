// Which device of the Linux machine belongs to a port number.
#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace zol::link {

// The device that was opened for a port number. Only the serial port writes it.
struct FoundDevice {
    std::filesystem::path path; // empty: the number was never opened
    std::string identity;       // see device_identity()
    std::string link, node;     // file_mark() of the path itself and of the file it leads to
};
inline std::array<FoundDevice, 8> found_devices; // of port numbers 1 to 8

// The path of the device: `ports/com<n>` in the application folder if that link exists; else
// /dev/ttyUSB0 and 1 for ports 1 and 2, /dev/ttyACM0 and 1 for 3 and 4, /dev/ttyS0 to 3 for 5 to 8.
// So a fitter with one USB adapter finds it at COM1. A number that was opened through its link uses
// the link for the rest of the run, because the adapter at the usual path may belong to another
// car. Empty for a number outside 1 to 8.
std::filesystem::path device_of_port(int port_number);

// The present path of the device that was opened for a port number, 1 to 8. A USB adapter that is
// pulled while the port is open comes back under another ttyUSB name; it is searched for among the
// usual devices by its serial number. Any other device is at the path where it was opened.
std::filesystem::path place_of_found(int port_number);

// The path; for a symbolic link also its target: "ports/com1 -> /dev/ttyUSB0".
std::string with_target(const std::filesystem::path& device);

// The name that the fitter knows the port's device by, which is the target if a link leads to it,
// and whether it exists at this moment.
struct PortDevice {
    std::string name; // empty for a number that has no device
    bool is_there;
};
PortDevice port_device(int port_number);

// The tip of a port, in the operator's language: "COM1: /dev/ttyUSB0 (not there)", with a link's
// target. Checks at each call whether the device exists.
std::string port_tip(int port_number);

} // namespace zol::link
