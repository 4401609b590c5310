// Tips that show which device belongs to each port number: in the port menu and in the list of the
// connection dialog. Devices can be plugged in at any time, so the tips are set again whenever menu
// or list opens.
#pragma once

namespace zol::link {

void refresh_port_tips();
void connect_port_tips();

} // namespace zol::link
