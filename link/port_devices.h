// Which device of a Linux machine stands behind a port number.
#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace zol::link {

// What was found when a port number was opened. Written by the serial port alone.
struct FoundDevice {
    std::filesystem::path path; // empty while the number has not been opened
    std::string identity;       // as link/device_identity.h tells it
    std::string link, node;     // the marks of the path itself and of what it leads to
};
inline std::array<FoundDevice, 8> found_devices; // of port numbers 1 to 8

// What `ports/com<n>` in the application folder points to, where that exists; else 1 and 2 are
// /dev/ttyUSB0 and 1, 3 and 4 /dev/ttyACM0 and 1, 5 to 8 /dev/ttyS0 to 3. A fitter with one USB
// adapter thus finds it at COM1. A number that was opened through its link stays with the link for
// the rest of the run: the adapter in the usual device's place may belong to another car. Empty for
// any other number.
std::filesystem::path device_of_port(int port_number);

// Where the device that was found for a port number is now. A USB adapter that is pulled while the
// port is open comes back as another ttyUSB: it is looked for among the usual devices by its serial
// number. Any other device is where it was found.
std::filesystem::path place_of_found(int port_number);

// The path and, for a link, an arrow and its target: "ports/com1 -> /dev/ttyUSB0".
std::string with_target(const std::filesystem::path& device);

// "COM1: /dev/ttyUSB0 (not there)", with the link's target. Whether the device is there is asked at
// this moment, and said in the operator's language.
std::string port_tip(int port_number);

} // namespace zol::link
