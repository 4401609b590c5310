// What a widget really writes when it is painted: each run of letters with its place, its clip and
// its font, whatever class or style draws it.
#pragma once

#include <QRectF>
#include <QString>

#include <vector>

class QWidget;

namespace zol::view {

struct DrawnText {
    QString text;
    QRectF place; // its line's height, in the widget's pixels
    QRectF clip;  // what of the widget was open to painting
    double points;
};

// Paints the widget without its children.
std::vector<DrawnText> drawn_texts(QWidget& widget);

} // namespace zol::view
