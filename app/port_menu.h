// The port menu of the main window: "COM1" to "COM8", of which "COM3" is hidden.
#pragma once

#include "view/widget.h"

namespace zol::app {

// The item of a port number from 1 to 8; null for any other number.
view::Widget* port_menu_item(double port_number);

// Makes the items COM1 to COM7 tick themselves and store a port for the next start: COM1 and COM2
// their own number, the others one more (see write_port in app/settings_file.h). COM8 has no
// handler. Both are intended.
void connect_port_menu();

} // namespace zol::app
