// The information window with six parameters, from their mirrors.
#pragma once

namespace zol::maintenance {

void connect_parameter_window();

} // namespace zol::maintenance
