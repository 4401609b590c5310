#include "view/qt/colours.h"
#include "view/qt/controls.h"
#include "view/qt/face.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zol::view::qt {
namespace {

constexpr double dimmed_share = 0.38;
// The distance of two bars is 5/3 of their width, so a bar and the next two extend over five
// widths.
constexpr double gap_widths = 5;

bool is_bar(const Stroke& stroke) { return stroke.shape == Stroke::Shape::filled_rectangle; }

Stroke dimmed(Stroke stroke, const QColor& ground) {
    stroke.colour = to_colour(face::mixed(ground, to_qcolor(stroke.colour), dimmed_share));
    return stroke;
}

} // namespace

PictureFace::PictureFace(const Widget& model, QWidget& parent) : QWidget(&parent), model_(model) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

// A grid of six by four fields.
void PictureFace::draw_backdrop(QPainter& painter) const {
    painter.fillRect(rect(), palette().color(backgroundRole()));
    painter.setPen(QPen(face::trace_grid, face::scaled(1, *this)));
    constexpr int across = 6, down = 4;
    for (int i = 1; i < across; ++i)
        painter.drawLine(width() * i / across, 0, width() * i / across, height());
    for (int i = 1; i < down; ++i)
        painter.drawLine(0, height() * i / down, width(), height() * i / down);
}

// Draws the canvas again, from the strokes that were drawn on it.
void PictureFace::start_canvas() {
    backdrop_ = QPixmap(size() * devicePixelRatioF());
    backdrop_.setDevicePixelRatio(devicePixelRatioF());
    {
        QPainter painter(&backdrop_);
        draw_backdrop(painter);
    }
    canvas_ = backdrop_;
    QPainter painter(&canvas_);
    StrokePen pen(painter, model_, size());
    const QColor ground = palette().color(backgroundRole());
    for (const Stroke& stroke : before_)
        if (is_bar(stroke)) pen.draw(dimmed(stroke, ground));
    for (const Stroke& stroke : sweep_) {
        if (is_bar(stroke)) clear_for(painter, stroke);
        pen.draw(stroke);
    }
    update();
}

// Restores the backdrop and the line across it where the bar and the gap ahead of it will be.
// Returns the area.
QRect PictureFace::clear_for(QPainter& painter, const Stroke& bar) {
    const double x_scale = width() / std::max(1.0, model_.design.place.width);
    const double left = std::min(bar.x1, bar.x2), breadth = std::abs(bar.x2 - bar.x1);
    const QRect area = QRectF(left * x_scale, 0, gap_widths * breadth * x_scale, height())
                           .toAlignedRect()
                           .intersected(rect());
    const double ratio = backdrop_.devicePixelRatio();
    painter.drawPixmap(
        QRectF(area), backdrop_,
        QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio));
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    StrokePen pen(painter, model_, size());
    const auto line = std::find_if_not(sweep_.begin(), sweep_.end(), is_bar);
    if (line != sweep_.end()) pen.draw(*line);
    painter.restore();
    return area;
}

// The pen is at the left again: what was drawn so far becomes the previous sweep.
void PictureFace::begin_sweep() {
    before_ = std::move(sweep_);
    sweep_.clear();
    start_canvas();
}

// Strokes are given in the twips of the table and scaled to the surface's size. Fewer strokes than
// before mean that the drawing was cleared.
void PictureFace::draw_new_strokes() {
    const auto& strokes = model_.look.strokes;
    if (strokes.size() < taken_) {
        taken_ = 0;
        begin_sweep();
    }
    if (canvas_.isNull()) start_canvas();
    for (; taken_ < strokes.size(); ++taken_) {
        const Stroke& stroke = strokes[taken_];
        const auto last = std::find_if(sweep_.rbegin(), sweep_.rend(), is_bar);
        if (is_bar(stroke) && last != sweep_.rend() && stroke.x1 < last->x1) begin_sweep();
        QPainter painter(&canvas_);
        StrokePen pen(painter, model_, size());
        if (is_bar(stroke)) update(clear_for(painter, stroke));
        sweep_.push_back(stroke);
        update(pen.draw(stroke));
    }
}

QRect PictureFace::text_line() const {
    const int air = face::scaled(10, *this);
    return {air, face::scaled(4, *this), width() - 2 * air, fontMetrics().height()};
}

QRect PictureFace::title_place() const {
    QRect place = text_line();
    place.setWidth(fontMetrics().horizontalAdvance(QString::fromStdString(model_.help.name)));
    return place;
}

void PictureFace::draw_texts(QPainter& painter) const {
    const QRect line = text_line();
    painter.setPen(face::trace_title);
    painter.drawText(line, Qt::AlignLeft | Qt::TextSingleLine,
                     QString::fromStdString(model_.help.name));
    painter.drawText(line, Qt::AlignRight | Qt::TextSingleLine,
                     QString::fromStdString(model_.look.text));
}

void PictureFace::paintEvent(QPaintEvent* event) {
    if (canvas_.isNull()) draw_new_strokes();
    const double ratio = canvas_.devicePixelRatio();
    const QRect area = event->rect();
    QPainter painter(this);
    painter.drawPixmap(
        QRectF(area), canvas_,
        QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio));
    if (area.top() < 2 * fontMetrics().height()) draw_texts(painter);
}

void PictureFace::resizeEvent(QResizeEvent*) { start_canvas(); }

void PictureFace::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && !size().isEmpty()) start_canvas();
    QWidget::changeEvent(event);
}

} // namespace zol::view::qt
