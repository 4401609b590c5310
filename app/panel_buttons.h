// The pointer of the engine and settings buttons while the injector menu writes parameters.
#pragma once

namespace zol::app {

void show_busy_on_buttons();   // the hourglass
void show_normal_on_buttons(); // the buttons' own pointer

} // namespace zol::app
