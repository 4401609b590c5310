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

// `ink` for what is disabled: up to halfway to the ground, but still to be read, at 4.5 : 1.
QColor faded_on(const QColor& ground, const QColor& ink);

// The share of the ground in that mixture, from 0 to 0.5.
double faded_share(const QColor& ground, const QColor& ink);

// From 1, for one and the same, to 21.
double contrast(const QColor& one, const QColor& other);

} // namespace zol::view::qt
