// Draws numbers in a large font quickly, such as the live values of the main window.
#pragma once

class QColor;
class QPainter;
class QRect;
class QString;

namespace zol::view::qt {

// Draws a number from cached images of its digits. The result equals that of the painter, except
// for rounding of colours. Returns false and draws nothing if the text is no number or not large,
// or the painter is no plain raster painter; the caller draws it then.
bool draw_large_figures(QPainter& painter, const QRect& place, int flags, const QString& text,
                        const QColor& ink);

} // namespace zol::view::qt
