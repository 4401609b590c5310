// Connects every handler of every module to its widget or timer. Call once, before the first window
// is loaded.
#pragma once

namespace zol::app {

void connect_handlers();

} // namespace zol::app
