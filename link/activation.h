// The activation of the main window, with the activation path of the first read.
#pragma once

namespace zol::link {

// The activation handler: sets captions and colours, sends the presence test, and then runs the
// first read, or opens the connection dialog if the unit does not answer. Does not return before
// the dialog has closed.
void main_window_activated();

} // namespace zol::link
