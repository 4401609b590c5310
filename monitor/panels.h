// Shows the engine panel in place of the other panels.
#pragma once

namespace zol::monitor {

// Also restarts polling if it is stopped, and then waits 500 ms before it shows the panel.
void bring_back_engine_panel();

} // namespace zol::monitor
