#include "link/serial_port.h"

namespace zol::link {

void use_serial_port(SerialPort& port) { port_state.port = &port; }
SerialPort& serial_port() { return *port_state.port; }

} // namespace zol::link
