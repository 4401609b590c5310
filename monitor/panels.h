// The engine panel in place of the others.
#pragma once

namespace zol::monitor {

// With the polling: if it has to be restarted, it gets 500 ms before the panel is shown.
void bring_back_engine_panel();

} // namespace zol::monitor
