// The pointer of the two panel buttons while the injector menu writes parameters.
#pragma once

namespace zol::app {

// Shows the hourglass, or the buttons' own pointer again.
void show_busy_on_buttons();
void show_normal_on_buttons();

} // namespace zol::app
