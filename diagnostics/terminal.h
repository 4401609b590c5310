// The hand-over of the line to another program, and the unit's debug switches.
#pragma once

namespace zol::diagnostics {

void connect_terminal();

} // namespace zol::diagnostics
