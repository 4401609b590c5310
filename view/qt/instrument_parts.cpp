#include "view/qt/instrument_parts.h"

#include "view/qt/instrument_style.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainterPath>
#include <QStyleOptionSlider>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace zol::view::qt {
namespace {

// What has the focus or the pointer; against the buttons' grey and white fields alike it stands out
// by more than 3 : 1.
const QColor accent = chosen_ground;
const QColor pale(250, 251, 252);
const QColor edge(110, 117, 124);
const QColor waiting_edge(176, 0, 0); // an entry field that waits for its number

struct State {
    bool enabled, hover, pressed, focused, on;
};

State state_of(const QStyleOption& option) {
    const auto has = [&](QStyle::StateFlag flag) { return option.state.testFlag(flag); };
    const bool enabled = has(QStyle::State_Enabled);
    return {enabled, enabled && has(QStyle::State_MouseOver), has(QStyle::State_Sunken),
            enabled && has(QStyle::State_HasFocus), has(QStyle::State_On)};
}

QPen edge_pen(const State& state, double width = 1) {
    if (!state.enabled) return QPen(QColor(edge.red(), edge.green(), edge.blue(), 110), width);
    if (state.focused) return QPen(accent, std::max(2.0, 2 * width));
    return QPen(state.hover ? accent : edge, width);
}

// So that a pen of this width draws within the rectangle.
QRectF within(const QRect& place, double pen_width) {
    const double half = pen_width / 2;
    return QRectF(place).adjusted(half, half, -half, -half);
}

QBrush raised(const QColor& ground, const QRect& place, const State& state) {
    if (!state.enabled) return ground.lighter(108);
    if (state.pressed) return ground.darker(125);
    const QColor base = state.hover ? ground.lighter(112) : ground;
    QLinearGradient light(place.topLeft(), place.bottomLeft());
    light.setColorAt(0, base.lighter(112));
    light.setColorAt(1, base.darker(108));
    return light;
}

} // namespace

double magnification(const QWidget& widget) {
    constexpr double design_line = 13; // the height of a line of 8.25 points
    return std::max(0.8, QFontMetrics(widget.font()).height() / design_line);
}

void draw_button(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const State state = state_of(option);
    const double radius = 3;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen pen = edge_pen(state);
    painter.setPen(pen);
    painter.setBrush(raised(option.palette.color(QPalette::Button), option.rect, state));
    painter.drawRoundedRect(within(option.rect, pen.widthF()), radius, radius);
    if (state.focused)
        draw_focus_ring(painter, option.rect, widget ? magnification(*widget) / 1.5 : 1);
    if (widget && widget->property(on_view_property).toBool()) {
        const double thickness = std::max(3.0, option.rect.height() / 9.0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(state.enabled ? accent : edge);
        painter.drawRect(QRectF(option.rect.left() + thickness, option.rect.bottom() - thickness,
                                option.rect.width() - 2 * thickness, thickness));
    }
    painter.restore();
}

void draw_option_mark(QPainter& painter, const QStyleOption& option) {
    const State state = state_of(option);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen pen = edge_pen(state, std::max(1.0, option.rect.height() / 13.0));
    painter.setPen(pen);
    painter.setBrush(option.palette.color(state.pressed ? QPalette::Midlight : QPalette::Base));
    const QRectF ring = within(option.rect, pen.widthF());
    painter.drawEllipse(ring);
    if (state.on) {
        const double inset = ring.width() * 0.24;
        painter.setPen(Qt::NoPen);
        painter.setBrush(state.enabled ? accent : edge);
        painter.drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
    }
    painter.restore();
}

void draw_check_mark(QPainter& painter, const QStyleOption& option) {
    const State state = state_of(option);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen pen = edge_pen(state, std::max(1.0, option.rect.height() / 13.0));
    painter.setPen(pen);
    painter.setBrush(option.palette.color(state.pressed ? QPalette::Midlight : QPalette::Base));
    const QRectF box = within(option.rect, pen.widthF());
    painter.drawRoundedRect(box, 2, 2);
    if (state.on) {
        const auto at = [&box](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        painter.setPen(QPen(state.enabled ? accent : edge, box.width() / 6, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{at(0.2, 0.52), at(0.42, 0.75), at(0.8, 0.25)});
    }
    painter.restore();
}

void draw_field_edge(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const State state = state_of(option);
    const bool waiting = widget && widget->property("edit_marker").toBool();
    if (state.focused && !waiting) {
        draw_focus_ring(painter, option.rect, 1);
        return;
    }
    const QPen pen = waiting ? QPen(waiting_edge, 2) : edge_pen(state);
    painter.save();
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(within(option.rect, pen.widthF()));
    painter.restore();
}

void draw_list_arrow(QPainter& painter, const QStyleOption& option, const QRect& place) {
    const double side = place.height() * 0.2;
    const QPointF middle = QRectF(place).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(state_of(option).enabled ? QColor(Qt::black) : edge);
    painter.drawPolygon(QPolygonF{middle + QPointF(-side, -side / 2),
                                  middle + QPointF(side, -side / 2),
                                  middle + QPointF(0, side / 2)});
    painter.restore();
}

void draw_focus_line(QPainter& painter, const QRect& place) {
    painter.save();
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen : {QPen(pale, 1), QPen(accent, 1, Qt::DotLine)}) {
        painter.setPen(pen);
        painter.drawRect(within(place, 1));
    }
    painter.restore();
}

void draw_focus_ring(QPainter& painter, const QRect& place, double light_px) {
    const double light_width = std::max(1.0, std::round(light_px)), dark_width = light_width + 1;
    const double radius = 3;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(pale, light_width));
    painter.drawRoundedRect(within(place, light_width), radius, radius);
    painter.setPen(QPen(accent, dark_width));
    painter.drawRoundedRect(within(place, 2 * light_width + dark_width), radius, radius);
    painter.restore();
}

namespace {

bool on_dark(const QStyleOption& option) {
    return option.palette.color(QPalette::Window).lightness() < 128;
}

} // namespace

// An empty bar is close to its window, so that only what fills it stands out.
void draw_progress_trough(QPainter& painter, const QStyleOption& option) {
    painter.save();
    painter.setPen(QPen(on_dark(option) ? QColor(140, 148, 156) : edge, 1));
    painter.setBrush(on_dark(option) ? QColor(48, 55, 62) : QColor(206, 211, 216));
    painter.drawRect(within(option.rect, 1));
    painter.restore();
}

void draw_progress(QPainter& painter, const QStyleOptionProgressBar& bar) {
    if (bar.maximum <= bar.minimum || bar.progress <= bar.minimum) return;
    const double share =
        static_cast<double>(bar.progress - bar.minimum) / (bar.maximum - bar.minimum);
    QRectF filled = QRectF(bar.rect).adjusted(2, 2, -2, -2);
    filled.setWidth(filled.width() * std::min(1.0, share));
    painter.fillRect(filled, on_dark(bar) ? QColor(96, 178, 232) : accent);
}

SliderPlaces slider_places(const QStyleOptionSlider& slider, double magnified) {
    const bool across = slider.orientation == Qt::Horizontal;
    const QRect& all = slider.rect;
    const int handle = qRound(15 * magnified);
    const int groove = std::max(4, qRound(5 * magnified));
    const int length = across ? all.width() : all.height();
    const int at = QStyle::sliderPositionFromValue(
        slider.minimum, slider.maximum, slider.sliderPosition, length - handle, slider.upsideDown);
    const int ticks = slider.tickPosition == QSlider::NoTicks ? 0 : qRound(5 * magnified);
    const int middle = ((across ? all.height() : all.width()) - ticks) / 2;
    if (across)
        return {{all.left(), all.top() + middle - groove / 2, length, groove},
                {all.left() + at, all.top() + middle - handle / 2, handle, handle}};
    return {{all.left() + middle - groove / 2, all.top(), groove, length},
            {all.left() + middle - handle / 2, all.top() + at, handle, handle}};
}

namespace {

// Short lines beside the groove, at the handle's middle for each value.
void draw_ticks(QPainter& painter, const QStyleOptionSlider& slider, const QRect& handle,
                double magnified) {
    if (slider.tickInterval <= 0 || slider.tickPosition == QSlider::NoTicks) return;
    const bool across = slider.orientation == Qt::Horizontal;
    const int handle_length = across ? handle.width() : handle.height();
    const int span = (across ? slider.rect.width() : slider.rect.height()) - handle_length;
    const double length = 4 * magnified;
    const double from = (across ? handle.bottom() : handle.right()) + 2 * magnified;
    painter.setPen(QPen(edge, std::max(1.0, magnified / 1.5)));
    const int last = slider.maximum;
    for (int value = slider.minimum; value <= last; value += slider.tickInterval) {
        const double at =
            handle_length / 2.0 + QStyle::sliderPositionFromValue(slider.minimum, slider.maximum,
                                                                  value, span, slider.upsideDown);
        if (across)
            painter.drawLine(QPointF(at, from), QPointF(at, from + length));
        else
            painter.drawLine(QPointF(from, at), QPointF(from + length, at));
    }
}

// A thin pale line in the groove, from its lowest end to the tick of the value.
void draw_mark(QPainter& painter, const QStyleOptionSlider& slider, const SliderPlaces& places,
               int length, const QPainterPath& inside_groove) {
    if (length <= 0) return;
    const auto& [groove, handle] = places;
    const bool across = slider.orientation == Qt::Horizontal;
    const int handle_length = across ? handle.width() : handle.height();
    const int whole = across ? groove.width() : groove.height();
    const double at =
        handle_length / 2.0 +
        QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, slider.minimum + length,
                                        whole - handle_length, slider.upsideDown);
    const double from = slider.upsideDown ? at : 0, to = slider.upsideDown ? whole : at;
    const double thickness = std::max(2.0, (across ? groove.height() : groove.width()) * 0.4);
    const QPointF middle = QRectF(groove).center();
    const QRectF mark =
        across ? QRectF(groove.left() + from, middle.y() - thickness / 2, to - from, thickness)
               : QRectF(middle.x() - thickness / 2, groove.top() + from, thickness, to - from);
    painter.save();
    painter.setClipPath(inside_groove, Qt::IntersectClip);
    painter.fillRect(mark, QColor(140, 180, 214));
    painter.restore();
}

} // namespace

void draw_slider(QPainter& painter, const QStyleOptionSlider& slider, double magnified,
                 int marked) {
    const SliderPlaces places = slider_places(slider, magnified);
    const auto& [groove, handle] = places;
    State state = state_of(slider);
    const bool held = slider.activeSubControls.testFlag(QStyle::SC_SliderHandle);
    state.pressed = state.pressed && held;
    state.hover = state.hover && held;
    painter.save();
    draw_ticks(painter, slider, handle, magnified);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge_pen({state.enabled, false, false, false, false}));
    painter.setBrush(pale);
    const double end =
        groove.width() < groove.height() ? groove.width() / 2.0 : groove.height() / 2.0;
    painter.drawRoundedRect(within(groove, 1), end, end);
    QPainterPath inside_groove;
    inside_groove.addRoundedRect(within(groove, 2), end, end);
    draw_mark(painter, slider, places, marked, inside_groove);
    const QPen pen = edge_pen(state, std::max(1.0, magnified / 1.5));
    painter.setPen(pen);
    painter.setBrush(raised(QColor(226, 229, 232), handle, state));
    painter.drawRoundedRect(within(handle, pen.widthF()), 3 * magnified, 3 * magnified);
    painter.restore();
}

} // namespace zol::view::qt
