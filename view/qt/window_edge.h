// The line around a window that the desktop gives no frame: it parts it from the one beneath, which
// may have the same colour.
#pragma once

class QWidget;

namespace zol::view::qt {

// For the window's whole life; its layout or table leaves the outermost two pixels free.
void give_edge(QWidget& window);

} // namespace zol::view::qt
