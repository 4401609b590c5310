// Brings a model's look onto its Qt face, one aspect at a time. Nothing is echoed back as an act of
// the operator, and what is equal already is left alone.
#pragma once

#include "view/screen.h"

#include <QColor>

class QAction;
class QWidget;

namespace zol::view::qt {

void mirror(const Widget& model, QWidget& face, Aspect aspect);
void mirror(const Widget& model, QAction& face, Aspect aspect);
// Every aspect but place and font, which depend on the window's size, and the drawing.
void mirror_all(const Widget& model, QWidget& face);

QColor to_qcolor(Colour colour);
Colour to_colour(const QColor& colour);

} // namespace zol::view::qt
