#include "view/qt/instrument_parts.h"

#include "view/qt/face.h"
#include "view/qt/instrument_style.h"

#include <QStyleOptionFrame>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

// An entry field or a closed list: its background with a line around it, a thicker red one while
// the field has an edit mark, or the focus ring if it has the focus and no edit mark.
void draw_entry_ground(QPainter& painter, const QStyleOption& option, const QColor& ground,
                       bool waiting, const QWidget& widget) {
    const PartState state = state_of(option);
    const bool ring = state.focused && !waiting;
    const int room = ring ? face::ring_room(widget) : 0;
    const double line = face::scaled(face::outline_px, widget);
    QPen pen = edge_pen(state, line);
    if (waiting) pen = QPen(face::waiting, std::max(2.0, 2 * line));
    if (ring) pen = Qt::NoPen;
    const double radius = face::corner_px * face::measure(widget) / 2;
    const QRectF place = QRectF(option.rect).adjusted(room, room, -room, -room);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(ground);
    painter.drawRoundedRect(ring ? place : within(place, pen.widthF()), radius, radius);
    painter.restore();
    if (ring) face::draw_ring(painter, option.rect, face::ground_of(widget), widget);
}

} // namespace

void draw_field(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    if (!widget) return;
    const QColor ground = option.palette.color(QPalette::Base);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    if (frame && frame->lineWidth == 0) { // part of another control, which draws the line
        painter.fillRect(option.rect, ground);
        return;
    }
    draw_entry_ground(painter, option, ground, widget->property("edit_marker").toBool(), *widget);
}

void draw_list_field(QPainter& painter, const QStyleOption& option, const QRect& arrow,
                     const QWidget* widget) {
    if (!widget) return;
    draw_entry_ground(painter, option, option.palette.color(QPalette::Button), false, *widget);
    const double side = arrow.height() * 0.16;
    const QPointF middle = QRectF(arrow).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(state_of(option).enabled ? face::ink : face::secondary,
                        std::max(1.5, arrow.height() / 14.0), Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{middle + QPointF(-side, -side / 2),
                                   middle + QPointF(0, side / 2),
                                   middle + QPointF(side, -side / 2)});
    painter.restore();
}

void draw_scroll_bar(QPainter& painter, const QStyleOption& option, const QRect& handle) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.fillRect(option.rect, face::ground);
    const double air = std::min(option.rect.width(), option.rect.height()) / 5.0;
    const QRectF place = QRectF(handle).adjusted(air, air, -air, -air);
    const double end = std::min(place.width(), place.height()) / 2;
    painter.setBrush(state_of(option).hover ? face::secondary : face::scroll_handle);
    painter.drawRoundedRect(place, end, end);
    painter.restore();
}

QPixmap box_icon(QStyle::StandardPixmap icon, int side_px, double pixel_ratio) {
    QColor disc = face::accent;
    QString letter;
    switch (icon) {
    case QStyle::SP_MessageBoxInformation: letter = "i"; break;
    case QStyle::SP_MessageBoxQuestion: letter = "?"; break;
    case QStyle::SP_MessageBoxWarning: letter = "!", disc = face::waiting; break;
    default: return {};
    }
    QPixmap picture(QSize(side_px, side_px) * pixel_ratio);
    picture.setDevicePixelRatio(pixel_ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    painter.drawEllipse(QRectF(0, 0, side_px, side_px));
    QFont font = face::font();
    font.setPixelSize(std::max(1, side_px * 7 / 10));
    font.setWeight(QFont::Bold);
    painter.setFont(font);
    painter.setPen(face::chosen_ink);
    painter.drawText(QRectF(0, 0, side_px, side_px), Qt::AlignCenter, letter);
    return picture;
}

namespace {

bool on_dark(const QStyleOption& option) {
    return option.palette.color(QPalette::Window).lightness() < 128;
}

} // namespace

// An empty bar has little contrast, so that only the filled part is noticed.
void draw_progress_trough(QPainter& painter, const QStyleOption& option) {
    painter.fillRect(option.rect, on_dark(option) ? QColor(48, 55, 62) : face::rule);
}

void draw_progress(QPainter& painter, const QStyleOptionProgressBar& bar) {
    if (bar.maximum <= bar.minimum || bar.progress <= bar.minimum) return;
    const double share =
        static_cast<double>(bar.progress - bar.minimum) / (bar.maximum - bar.minimum);
    QRectF filled = bar.rect;
    filled.setWidth(filled.width() * std::min(1.0, share));
    painter.fillRect(filled, on_dark(bar) ? face::light_accent : face::accent);
}

} // namespace zol::view::qt
