// Numbers in large type, such as the live values of the main window.
#pragma once

class QColor;
class QPainter;
class QRect;
class QString;

namespace zol::view::qt {

// Draws a number in large type as the painter would, to the rounding of a shade, from kept pictures
// of its figures. False, and nothing is drawn, if the text is something else: that is left to the
// painter.
bool draw_large_figures(QPainter& painter, const QRect& place, int flags, const QString& text,
                        const QColor& ink);

} // namespace zol::view::qt
