// Text that is never cut: where it is longer than its place, its font gives way.
#pragma once

#include "view/widget.h"

#include <functional>

class QFont;
class QFontMetrics;
class QMenuBar;
class QString;
class QWidget;

namespace zol::view::qt {

constexpr double least_points = 4.5;

// Gives `face` its font at `points`, ranked by what it is for (view/qt/face.h), or the largest
// below at which its text fits its size. Below the least size the letters grow narrower instead.
void fit_text(const Widget& model, QWidget& face, double points);

// The same for a menu bar that is `width` pixels wide: none of its entries is pushed off.
void fit_menu_bar(QMenuBar& bar, double points, int width);

// The first of these fonts that will do: smaller by half points, and from three quarters of the
// wanted size on also narrower; the smallest and narrowest if none will.
QFont largest_font(const QFont& plain, double points, const QWidget& face,
                   const std::function<bool(const QFont&)>& will_do);

// The height of a line's letters: type may have more room above and below than any of them takes.
double letters_height(const QFont& font);

// How a text breaks its lines in this width, as a flag of Qt's: between its words, or also inside
// one that is wider than the place.
int line_breaks(const QFontMetrics& metrics, const QString& text, int width);

} // namespace zol::view::qt
