// The buttons that hand the serial line over to another program, and the unit's debug switch.
#pragma once

namespace zol::diagnostics {

void connect_terminal();

} // namespace zol::diagnostics
