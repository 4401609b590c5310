// Which device stands behind each port number, told where the fitter chooses one: in the port menu
// and in the list of the connection dialog. What is plugged in may change at any time, so both are
// told anew whenever they open.
#pragma once

namespace zol::link {

void refresh_port_tips();
void connect_port_tips();

} // namespace zol::link
