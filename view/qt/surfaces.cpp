// Lamps, and strokes that are given in twips.
#include "view/qt/colours.h"
#include "view/qt/controls.h"
#include "view/qt/face.h"
#include "view/qt/instrument_parts.h"
#include "view/qt/window_face.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zol::view::qt {

// A lamp in its window's colour is off: an empty ring. A lamp in a frame represents a lamp of the
// indicator in the car and is never lit: a thick ring in that lamp's colour.
void LampFace::paintEvent(QPaintEvent*) {
    const QColor glow = palette().color(backgroundRole());
    const bool off = glow == parentWidget()->palette().color(QPalette::Window);
    const double side = std::min(width(), height());
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = std::max(1.0, side / 14);
    painter.setPen(QPen(off ? face::rule : glow.darker(135), line));
    if (!shows_car_indicator_) {
        painter.setBrush(off ? face::ground : glow);
        painter.drawEllipse(within(circle, line));
        return;
    }
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(within(circle, line));
    const double ring = side / 6;
    painter.setPen(QPen(glow, ring));
    painter.drawEllipse(within(circle.adjusted(line, line, -line, -line), ring));
    painter.setPen(QPen(glow.darker(135), line));
    const double hole = line + ring;
    painter.drawEllipse(within(circle.adjusted(hole, hole, -hole, -hole), line));
}

StrokePen::StrokePen(QPainter& painter, const Widget& model, const QSize& size)
    : painter_(painter), x_scale_(size.width() / std::max(1.0, model.design.place.width)),
      y_scale_(size.height() / std::max(1.0, model.design.place.height)) {}

QRect StrokePen::draw(const Stroke& stroke) {
    const QPointF from(stroke.x1 * x_scale_, stroke.y1 * y_scale_);
    const QPointF to(stroke.x2 * x_scale_, stroke.y2 * y_scale_);
    const QRectF area = QRectF(from, to).normalized();
    // A line is one pixel wide before scaling, and is scaled with the picture.
    const double breadth =
        std::max(1.0, std::round(std::min(x_scale_, y_scale_) * twips_per_pixel));
    if (stroke.shape == Stroke::Shape::line) {
        painter_.setPen(QPen(to_qcolor(stroke.colour), breadth, Qt::SolidLine, Qt::FlatCap));
        painter_.drawLine(from, to);
    } else {
        painter_.fillRect(area, to_qcolor(stroke.colour));
    }
    const int margin = qCeil(breadth);
    return area.toAlignedRect().adjusted(-margin, -margin, margin, margin);
}

} // namespace zol::view::qt
