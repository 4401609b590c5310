// The texts that a widget paints, with position, clipping and font, whatever class or style draws
// them.
#pragma once

#include <QRectF>
#include <QString>

#include <vector>

class QWidget;

namespace zol::view {

struct DrawnText {
    QString text;
    QRectF place; // of its line, in the widget's pixels
    QRectF ink;   // what its letters cover of that
    QRectF clip;  // the visible part of the widget
    double points;
};

// Paints the widget without its children and returns its texts.
std::vector<DrawnText> drawn_texts(QWidget& widget);

} // namespace zol::view
