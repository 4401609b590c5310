// Which device of a Linux machine stands behind a port number.
#pragma once

#include <filesystem>
#include <string>

namespace zol::link {

// What `ports/com<n>` in the application folder points to, where that exists; else 1 and 2 are
// /dev/ttyUSB0 and 1, 3 and 4 /dev/ttyACM0 and 1, 5 to 8 /dev/ttyS0 to 3. A fitter with one USB
// adapter thus finds it at COM1. Empty for any other number.
std::filesystem::path device_of_port(int port_number);

// "COM1: /dev/ttyUSB0 (not there)", and where a link leads behind an arrow. Whether the device is
// there is asked at this moment, and said in the operator's language.
std::string port_tip(int port_number);

} // namespace zol::link
