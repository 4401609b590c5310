#include "view/qt/face.h"
#include "view/qt/instrument_parts.h"

#include <QStyleOptionSlider>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

bool is_horizontal(const QStyleOptionSlider& slider) {
    return slider.orientation == Qt::Horizontal;
}

// The position of the middle of the handle for a value, in pixels along the slider.
double middle_for(const QStyleOptionSlider& slider, const SliderPlaces& places, int value) {
    const bool across = is_horizontal(slider);
    const int handle = across ? places.handle.width() : places.handle.height();
    const int length = across ? places.groove.width() : places.groove.height();
    const int start = across ? places.groove.left() : places.groove.top();
    return start + handle / 2.0 +
           QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, value, length - handle,
                                           slider.upsideDown);
}

// Short lines next to the handle, at the distance that the table specifies.
void draw_ticks(QPainter& painter, const QStyleOptionSlider& slider, const SliderPlaces& places,
                const QWidget& widget) {
    if (slider.tickInterval <= 0 || slider.tickPosition == QSlider::NoTicks) return;
    const bool across = is_horizontal(slider);
    const double from = across ? places.handle.bottom() + 1 : places.handle.right() + 1;
    const double to = from + face::scaled(3, widget);
    painter.setPen(QPen(face::rule, face::scaled(1, widget)));
    for (int value = slider.minimum; value <= slider.maximum; value += slider.tickInterval) {
        const double at = qRound(middle_for(slider, places, value));
        if (across)
            painter.drawLine(QPointF(at, from), QPointF(at, to));
        else
            painter.drawLine(QPointF(from, at), QPointF(to, at));
    }
}

// A small triangle on the groove; the handle covers it where the two meet.
void draw_marker(QPainter& painter, const QStyleOptionSlider& slider, const SliderPlaces& places,
                 const QWidget& widget, int marked) {
    if (marked <= 0) return;
    const bool across = is_horizontal(slider);
    const double at = middle_for(slider, places, slider.minimum + marked);
    const double side = face::scaled(face::marker_px, widget) / 2.0;
    const double tip = (across ? places.groove.top() : places.groove.left()) - 1;
    const auto point = [&](double along, double over) {
        return across ? QPointF(at + along, tip - over) : QPointF(tip - over, at + along);
    };
    painter.setPen(Qt::NoPen);
    painter.setBrush(slider.state.testFlag(QStyle::State_Enabled) ? face::secondary : face::rule);
    painter.drawPolygon(QPolygonF{point(0, 0), point(-side, side * 1.3), point(side, side * 1.3)});
}

void draw_handle(QPainter& painter, const QStyleOptionSlider& slider, const QRect& handle,
                 const QWidget& widget) {
    PartState state = state_of(slider);
    const bool held = slider.activeSubControls.testFlag(QStyle::SC_SliderHandle);
    state.pressed = state.pressed && held;
    state.hover = state.hover && held;
    const QColor ground = face::ground_of(widget);
    const double radius = face::corner_px * face::measure(widget);
    const double line = face::scaled(face::outline_px, widget);
    const QPen pen = edge_pen(state, line);
    painter.setPen(pen);
    painter.setBrush(!state.enabled  ? face::mixed(ground, face::steel, 0.35)
                     : state.pressed ? face::steel.darker(122)
                     : state.hover   ? face::steel.lighter(109)
                                     : face::steel);
    painter.drawRoundedRect(within(handle, pen.widthF()), radius, radius);
    if (!state.focused) return;
    // The focus ring has a gap to the handle, and is clipped to a narrow slider.
    const int room = face::ring_room(widget);
    face::draw_ring(painter, handle.adjusted(-room, -room, room, room).intersected(slider.rect),
                    ground, widget);
}

} // namespace

SliderPlaces slider_places(const QStyleOptionSlider& slider, const QWidget& widget) {
    const bool across = is_horizontal(slider);
    const QRect& all = slider.rect;
    const int breadth = across ? all.height() : all.width();
    const int room = face::ring_room(widget); // at both ends, for the focus ring around the handle
    const int length = (across ? all.width() : all.height()) - 2 * room;
    const bool has_ticks = slider.tickPosition != QSlider::NoTicks;
    const int ticks = has_ticks ? face::scaled(4, widget) : 0;
    const int handle = face::scaled(face::handle_length_px, widget);
    const int handle_breadth =
        std::min(face::scaled(face::handle_breadth_px, widget), breadth - ticks);
    const int groove = face::scaled(face::groove_px, widget);
    const int at = QStyle::sliderPositionFromValue(
        slider.minimum, slider.maximum, slider.sliderPosition, length - handle, slider.upsideDown);
    const int middle = (breadth - ticks) / 2;
    if (across)
        return {{all.left() + room, all.top() + middle - groove / 2, length, groove},
                {all.left() + room + at, all.top() + middle - handle_breadth / 2, handle,
                 handle_breadth}};
    return {
        {all.left() + middle - groove / 2, all.top() + room, groove, length},
        {all.left() + middle - handle_breadth / 2, all.top() + room + at, handle_breadth, handle}};
}

void draw_slider(QPainter& painter, const QStyleOptionSlider& slider, const QWidget& widget,
                 int marked) {
    const SliderPlaces places = slider_places(slider, widget);
    const QRect& groove = places.groove;
    painter.save();
    draw_ticks(painter, slider, places, widget);
    painter.setRenderHint(QPainter::Antialiasing);
    const double end = std::min(groove.width(), groove.height()) / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(face::rule);
    painter.drawRoundedRect(groove, end, end);
    draw_marker(painter, slider, places, widget, marked);
    draw_handle(painter, slider, places.handle, widget);
    painter.restore();
}

} // namespace zol::view::qt
