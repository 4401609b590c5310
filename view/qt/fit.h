// Chooses font sizes such that no text is cut off. A text that is longer than its place gets a
// smaller, then a narrower font. Nothing here changes a text or a place.
#pragma once

#include "view/widget.h"

#include <functional>

class QFont;
class QFontMetrics;
class QMenuBar;
class QString;
class QWidget;

namespace zol::view::qt {

// The smallest font size.
constexpr double least_points = 4.5;

// Sets the font of `face`: at `points`, adjusted to the kind of text (view/qt/face.h), or the
// largest smaller one in which the text fits. From three quarters of that size on it may also be
// narrower.
void fit_text(const Widget& model, QWidget& face, double points);

// The same for a menu bar that is `width` pixels wide, so that no entry is hidden.
void fit_menu_bar(QMenuBar& bar, double points, int width);

// The first font for which `will_do` is true: smaller in steps of half a point, from three quarters
// of `points` on also narrower. The smallest and narrowest if there is none.
QFont largest_font(const QFont& plain, double points, const QWidget& face,
                   const std::function<bool(const QFont&)>& will_do);

// The height of the letters in a line, which may be less than the line height of the font.
double letters_height(const QFont& font);

// The Qt flag for breaking this text into lines of `width` pixels: between words, or also inside a
// word that is wider than that.
int line_breaks(const QFontMetrics& metrics, const QString& text, int width);

} // namespace zol::view::qt
