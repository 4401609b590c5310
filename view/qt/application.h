// Settings of the whole application: the same style, palette and icon on every desktop, and no
// quitting when the last window closes (the logic ends the program). It builds no window.
#pragma once

class QApplication;

namespace zol::view::qt {

// Call this before the QApplication is constructed: boxes and menus are drawn by Qt on every
// desktop.
void prepare_toolkit();
// Call this after it. Sets style, palette, font, icon and translator; a desktop's theme would clash
// with the colours of the windows' tables.
void settle_look(QApplication& application);

} // namespace zol::view::qt
