// The common start and end of a write by an item of the diagnosis menu.
#pragma once

namespace zol::diagnostics {

// Shows the hourglass, takes tab stop and focus away from the attenuation slider, stops polling and
// waits until a telegram under way has ended.
void begin_menu_write();
// Restores the pointer and the slider's tab stop and gives Text2 the focus. Does not restart
// polling.
void end_menu_write();

} // namespace zol::diagnostics
