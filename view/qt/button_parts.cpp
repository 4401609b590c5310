#include "view/qt/face.h"
#include "view/qt/instrument_parts.h"
#include "view/qt/instrument_style.h"

#include <QPainterPath>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

// A saturated colour, such as the flashing red, tells the operator something; the grey of ordinary
// buttons does not.
bool is_signal(const QColor& colour) { return colour.saturation() > 60; }

struct ButtonLook {
    QColor top, lower_edge, outline;
    bool hatched = false;
};

ButtonLook look_of(const QStyleOption& option, const QWidget& widget) {
    const PartState state = state_of(option);
    const QColor colour = option.palette.color(QPalette::Button);
    const bool panel_open = widget.property(panel_open_property).toBool();
    if (!state.enabled) {
        const bool hatched = is_signal(colour);
        // Nearly the background, so that pale letters are legible on it.
        const QColor ground = face::ground_of(widget);
        const double share = ground.lightness() < 128 ? 0.12 : 0.35;
        const QColor pale = face::mixed(ground, hatched ? face::steel : colour, share);
        return {pale, QColor(), QColor(), hatched};
    }
    const bool steel = colour == face::steel;
    QColor top = panel_open && steel ? face::panel_open : colour;
    if (state.pressed) return {top.darker(122), QColor(), face::secondary};
    if (state.hover) top = top.lighter(109);
    return {top, panel_open ? face::accent : colour.darker(126),
            state.hover ? face::secondary : QColor()};
}

void draw_hatch(QPainter& painter, const QRectF& place, const QColor& colour, double step) {
    painter.setPen(QPen(colour, step / 4));
    for (double x = place.left() - place.height(); x < place.right(); x += step)
        painter.drawLine(QPointF(x, place.bottom()), QPointF(x + place.height(), place.top()));
}

QRect without_ring(const QStyleOption& option, const PartState& state, const QWidget& widget) {
    const int room = state.focused ? face::ring_room(widget) : 0;
    return option.rect.adjusted(room, room, -room, -room);
}

} // namespace

PartState state_of(const QStyleOption& option) {
    const auto has = [&](QStyle::StateFlag flag) { return option.state.testFlag(flag); };
    const bool enabled = has(QStyle::State_Enabled);
    return {enabled, enabled && has(QStyle::State_MouseOver), enabled && has(QStyle::State_Sunken),
            enabled && has(QStyle::State_HasFocus), has(QStyle::State_On)};
}

QRectF within(const QRectF& place, double pen_width) {
    const double half = pen_width / 2;
    return place.adjusted(half, half, -half, -half);
}

QPen edge_pen(const PartState& state, double width) {
    if (!state.enabled) return QPen(face::rule, width);
    if (state.hover) return QPen(face::accent, 2 * width);
    return QPen(face::secondary, width);
}

QRect button_top(const QRect& button, bool pressed, bool enabled, const QWidget* widget) {
    const int edge = widget ? face::scaled(face::lower_edge_px, *widget) : 0;
    const int down = pressed && widget ? face::scaled(1, *widget) : 0;
    if (!enabled) return button.adjusted(0, 0, 0, -edge).translated(0, edge / 2);
    return button.adjusted(0, 0, 0, -edge).translated(0, down);
}

QColor button_ground(const QStyleOption& option, const QWidget& widget) {
    return look_of(option, widget).top;
}

void draw_button(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    if (!widget) return;
    const PartState state = state_of(option);
    const QColor ground = face::ground_of(*widget);
    const ButtonLook look = look_of(option, *widget);
    const QRectF place = without_ring(option, state, *widget);
    const double radius = face::corner_px * face::measure(*widget);
    const int edge = face::scaled(face::lower_edge_px, *widget);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (look.lower_edge.isValid()) {
        painter.setBrush(look.lower_edge);
        painter.drawRoundedRect(place, radius, radius);
    }
    painter.setBrush(look.top);
    const bool edged = look.lower_edge.isValid();
    const QRectF top = edged ? place.adjusted(0, 0, 0, -edge) : place;
    painter.drawRoundedRect(top, radius, radius);
    if (edged) painter.drawRect(top.adjusted(0, top.height() / 2, 0, 0));
    if (look.hatched) {
        QPainterPath outline;
        outline.addRoundedRect(place, radius, radius);
        painter.setClipPath(outline, Qt::IntersectClip);
        draw_hatch(painter, place, face::mixed(look.top, ground, 0.75),
                   face::scaled(face::hatch_px, *widget));
    }
    if (look.outline.isValid()) {
        const double width = face::scaled(face::outline_px, *widget);
        painter.setPen(QPen(look.outline, width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(within(place, width), radius, radius);
    }
    painter.restore();
    if (state.focused) face::draw_ring(painter, option.rect, ground, *widget);
}

namespace {

// The background of a mark: white while the operator can change it.
void set_mark_brush(QPainter& painter, const PartState& state, const QWidget& widget) {
    const QColor ground = face::ground_of(widget);
    painter.setBrush(!state.enabled ? ground : state.pressed ? face::rule : face::field_ground);
}

} // namespace

void draw_option_mark(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    if (!widget) return;
    const PartState state = state_of(option);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen pen = edge_pen(state, std::max(1.0, option.rect.height() / 13.0));
    painter.setPen(pen);
    set_mark_brush(painter, state, *widget);
    const QRectF ring = within(option.rect, pen.widthF());
    painter.drawEllipse(ring);
    if (state.on) {
        const double inset = ring.width() * 0.22;
        painter.setPen(Qt::NoPen);
        painter.setBrush(state.enabled ? face::accent : face::secondary);
        painter.drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
    }
    painter.restore();
}

void draw_check_mark(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    if (!widget) return;
    const PartState state = state_of(option);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen pen = edge_pen(state, std::max(1.0, option.rect.height() / 13.0));
    painter.setPen(pen);
    set_mark_brush(painter, state, *widget);
    const QRectF box = within(option.rect, pen.widthF());
    const double radius = box.width() / 8;
    painter.drawRoundedRect(box, radius, radius);
    if (state.on) {
        const auto at = [&box](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        painter.setPen(QPen(state.enabled ? face::accent : face::secondary, box.width() / 6,
                            Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{at(0.2, 0.52), at(0.42, 0.75), at(0.8, 0.25)});
    }
    painter.restore();
}

} // namespace zol::view::qt
