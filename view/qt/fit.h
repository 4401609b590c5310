// Text that is never cut: where it is longer than its place, its font gives way.
#pragma once

#include "view/widget.h"

class QFontMetrics;
class QMenuBar;
class QString;
class QWidget;

namespace zol::view::qt {

constexpr double least_points = 4.5;

// Gives `face` its font at `points`, or the largest below at which its text fits its size. Below
// the least size the letters grow narrower instead.
void fit_text(const Widget& model, QWidget& face, double points);

// The same for a menu bar that is `width` pixels wide: none of its entries is pushed off.
void fit_menu_bar(QMenuBar& bar, double points, int width);

// How a text breaks its lines in this width, as a flag of Qt's: between its words, or also inside
// one that is wider than the place.
int line_breaks(const QFontMetrics& metrics, const QString& text, int width);

} // namespace zol::view::qt
