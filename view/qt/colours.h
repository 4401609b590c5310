// A widget's two colours, where assistive tools and testers look for them: in its palette, under
// its own foreground and background roles.
#pragma once

#include "view/widget.h"

#include <QColor>

class QWidget;

namespace zol::view::qt {

void mirror_colours(const Widget& model, QWidget& face);

// `ink`, or black or white where it could not be read on that ground at all: under 2 : 1 in
// contrast, as relative luminance has it.
QColor legible_on(const QColor& ground, const QColor& ink);

} // namespace zol::view::qt
