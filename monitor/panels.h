// The engine panel in place of the others.
#pragma once

namespace zol::monitor {

// With the polling: where that has to be started anew, it gets 500 ms before the panel comes.
void bring_back_engine_panel();

} // namespace zol::monitor
