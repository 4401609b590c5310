// What is drawn by hand: lamps and the drawing surface.
#include "view/qt/controls.h"
#include "view/qt/mirror.h"
#include "view/qt/window_face.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace zol::view::qt {

// A lamp in its window's colour is off: dim glass, darker than what it stands on.
void LampFace::paintEvent(QPaintEvent*) {
    const QColor glow = palette().color(backgroundRole());
    const bool off = glow == parentWidget()->palette().color(QPalette::Window);
    const double side = std::min(width(), height()) - 1.0;
    const QRectF circle((width() - side) / 2 + 0.5, (height() - side) / 2 + 0.5, side - 1,
                        side - 1);
    QRadialGradient glass(circle.center(), side / 2, circle.topLeft() + QPointF(side, side) * 0.36);
    glass.setColorAt(0, off ? glow.darker(108) : glow.lighter(165));
    glass.setColorAt(0.25, off ? glow.darker(114) : glow);
    glass.setColorAt(0.75, off ? glow.darker(114) : glow);
    glass.setColorAt(1, off ? glow.darker(124) : glow.darker(125));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(glow.darker(off ? 150 : 190), std::max(1.0, side / 16)));
    painter.setBrush(glass);
    painter.drawEllipse(circle);
}

StrokePen::StrokePen(QPainter& painter, const Widget& model, const QSize& size)
    : painter_(painter), x_scale_(size.width() / std::max(1.0, model.design.place.width)),
      y_scale_(size.height() / std::max(1.0, model.design.place.height)) {}

QRect StrokePen::draw(const Stroke& stroke) {
    const QPointF from(stroke.x1 * x_scale_, stroke.y1 * y_scale_);
    const QPointF to(stroke.x2 * x_scale_, stroke.y2 * y_scale_);
    const QRectF area = QRectF(from, to).normalized();
    // A line is a pixel broad before scaling, and keeps its share of the picture.
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

PictureFace::PictureFace(const Widget& model, QWidget& parent) : QWidget(&parent), model_(model) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureFace::start_anew() {
    canvas_ = QPixmap(size() * devicePixelRatioF());
    canvas_.setDevicePixelRatio(devicePixelRatioF());
    canvas_.fill(palette().color(backgroundRole()));
    drawn_ = 0;
    update();
}

// Strokes are measured in the surface's twips as its table has them; they fill it at any size.
void PictureFace::draw_new_strokes() {
    const auto& strokes = model_.look.strokes;
    if (strokes.size() < drawn_ || canvas_.isNull()) start_anew();
    if (strokes.size() == drawn_) return;
    QPainter painter(&canvas_);
    StrokePen pen(painter, model_, size());
    for (; drawn_ < strokes.size(); ++drawn_)
        update(pen.draw(strokes[drawn_]));
}

void PictureFace::paintEvent(QPaintEvent* event) {
    if (canvas_.isNull()) {
        start_anew();
        draw_new_strokes();
    }
    const double ratio = canvas_.devicePixelRatio();
    const QRect area = event->rect();
    QPainter painter(this);
    painter.drawPixmap(
        QRectF(area), canvas_,
        QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio));
    painter.setPen(palette().color(backgroundRole()).lighter(400));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PictureFace::resizeEvent(QResizeEvent*) {
    start_anew();
    draw_new_strokes();
}

void PictureFace::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && !size().isEmpty()) {
        start_anew();
        draw_new_strokes();
    }
    QWidget::changeEvent(event);
}

} // namespace zol::view::qt
