// Copies the look of a model, the data of a widget (Widget::look), to its face, the Qt control,
// window or menu item that shows it, one aspect at a time. A copy never arrives at the logic as an
// act of the operator. An aspect that has no meaning for the kind of widget is ignored.
#pragma once

#include "view/screen.h"

class QAction;
class QWidget;

namespace zol::view::qt {

// Copies one aspect. Place, font and window state are set by WindowFace, not here.
void mirror(const Widget& model, QWidget& face, Aspect aspect);
void mirror(const Widget& model, QAction& face, Aspect aspect);
// Copies all aspects of a new control, except place and font, which depend on the size of the
// window, and its drawing.
void mirror_all(const Widget& model, QWidget& face);

} // namespace zol::view::qt
