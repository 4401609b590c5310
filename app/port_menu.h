// The port menu of the main window: "COM1" to "COM8", of which "COM3" is hidden.
#pragma once

#include "view/widget.h"

namespace zol::app {

// The item of a port number from 1 to 8; null for any other number.
view::Widget* port_menu_item(double port_number);

// Makes the items COM1 to COM7 store their number. COM8 has no handler, on purpose.
void connect_port_menu();

} // namespace zol::app
