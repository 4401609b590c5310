// The information window with six parameters, shown from their mirrors. Nothing is read from the
// unit.
#pragma once

namespace zol::maintenance {

void connect_parameter_window();

} // namespace zol::maintenance
