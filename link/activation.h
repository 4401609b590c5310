// The main window's activation.
#pragma once

namespace zol::link {

// Whole: captions and colours, the presence test, and the first read or the connection dialog.
void main_window_activated();

} // namespace zol::link
