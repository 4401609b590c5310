// Draws a line around a window, because a desktop without window frames would show no border
// between it and the window below it, which may have the same colour.
#pragma once

class QWidget;

namespace zol::view::qt {

// Call this once for a window. Its layout or table must leave the outermost two pixels free.
void give_edge(QWidget& window);

} // namespace zol::view::qt
