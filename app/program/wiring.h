// Ties every handler to its widget or timer.
#pragma once

namespace zol::app {

void connect_handlers();

} // namespace zol::app
