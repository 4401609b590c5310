// What stands before and behind the writes of a diagnosis menu item.
#pragma once

namespace zol::diagnostics {

// Hourglass, the keyboard away from the attenuation slider, the polling stopped, 400 ms for the
// telegram under way.
void begin_menu_write();
// The normal pointer, the slider's tab stop, the keyboard to Text2. The polling stays stopped.
void end_menu_write();

} // namespace zol::diagnostics
