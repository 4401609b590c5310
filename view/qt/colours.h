// Sets a widget's two colours in the palette of its Qt control, under its foreground and background
// roles, where assistive tools and tests read them; and computes legible text colours. Contrast is
// that of relative luminances, from 1 (the same colour) to 21.
#pragma once

#include "view/widget.h"

#include <QColor>

class QWidget;

namespace zol::view::qt {

// Sets palette, roles and background filling of `face` from the colours of `model`.
void mirror_colours(const Widget& model, QWidget& face);

// Returns `ink`, or black or white if the contrast of `ink` is below 2 : 1.
QColor legible_on(const QColor& ground, const QColor& ink);

// The text colour of disabled text: `ink` mixed with up to half of `ground`, at a contrast of at
// least 4.5 : 1.
QColor faded_on(const QColor& ground, const QColor& ink);

// The share of `ground` in that mixture, from 0 to 0.5.
double faded_share(const QColor& ground, const QColor& ink);

// `colour` must not be `system_colour`.
QColor to_qcolor(Colour colour);
Colour to_colour(const QColor& colour);

// The contrast of two colours.
double contrast(const QColor& one, const QColor& other);

} // namespace zol::view::qt
