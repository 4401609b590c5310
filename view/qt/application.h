// What holds for the whole application: one look and one icon on every desktop, and no life of its
// own.
#pragma once

class QApplication;

namespace zol::view::qt {

// Before the QApplication is made: boxes are drawn by Qt, whatever the desktop.
void prepare_toolkit();
// After it: one style and palette, for the system fixes colours that a desktop's theme would fight.
void settle_look(QApplication& application);

} // namespace zol::view::qt
