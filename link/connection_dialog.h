// The connection dialog. It opens if the unit does not answer at the main window's activation,
// tests a port and, after a good test, runs the dialog path of the first read.
#pragma once

namespace zol::link {

// The port number of a list entry counted from 0; the list leaves out COM3. 0 if the index is -1.
double port_of_entry(int list_index);
// The list entry of a port number; -1 for 0. The list has no entry for 3, which gives that of COM2.
int entry_of_port(double port_number);

void connect_connection_dialog();

} // namespace zol::link
