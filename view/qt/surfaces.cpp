// What is drawn by hand: lamps and the drawing surface.
#include "view/qt/controls.h"
#include "view/qt/mirror.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace zol::view::qt {

void LampFace::paintEvent(QPaintEvent*) {
    const QColor glow = palette().color(backgroundRole());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(glow.darker(160));
    painter.setBrush(glow);
    const double side = std::min(width(), height()) - 1.0;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
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
    const double x_scale = width() / std::max(1.0, model_.design.place.width);
    const double y_scale = height() / std::max(1.0, model_.design.place.height);
    QPainter painter(&canvas_);
    for (; drawn_ < strokes.size(); ++drawn_) {
        const Stroke& stroke = strokes[drawn_];
        const QPointF from(stroke.x1 * x_scale, stroke.y1 * y_scale);
        const QPointF to(stroke.x2 * x_scale, stroke.y2 * y_scale);
        const QRectF area = QRectF(from, to).normalized();
        if (stroke.shape == Stroke::Shape::line) {
            painter.setPen(to_qcolor(stroke.colour));
            painter.drawLine(from, to);
        } else {
            painter.fillRect(area, to_qcolor(stroke.colour));
        }
        update(area.toAlignedRect().adjusted(-1, -1, 1, 1));
    }
}

void PictureFace::paintEvent(QPaintEvent* event) {
    if (canvas_.isNull()) {
        start_anew();
        draw_new_strokes();
    }
    const double ratio = canvas_.devicePixelRatio();
    const QRect area = event->rect();
    QPainter(this).drawPixmap(
        QRectF(area), canvas_,
        QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio));
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
