// The connection dialog: it opens when the unit is silent at the main window's activation, tests a
// port and, after a good test, runs the first read.
#pragma once

namespace zol::link {

// The real port number of a list entry from 0: the list leaves out COM3. 0 where none is selected.
double port_of_entry(int list_index);
// The list entry of a port number, by its own rule; -1 for none. 3 gives the entry of COM2.
int entry_of_port(double port_number);

void connect_connection_dialog();

} // namespace zol::link
