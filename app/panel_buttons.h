// The two panel buttons that show when the injector menu is at work.
#pragma once

namespace zol::app {

// Hourglass, and back to their own pointer.
void show_busy_on_buttons();
void show_normal_on_buttons();

} // namespace zol::app
