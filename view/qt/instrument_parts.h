// The drawing of the parts that InstrumentStyle is made of. Each draws into `option.rect` or the
// places given, and restores the painter's state.
#pragma once

#include <QPainter>
#include <QPixmap>
#include <QStyleOption>

class QStyleOptionSlider;
class QWidget;

namespace zol::view::qt {

struct PartState {
    bool enabled, hover, pressed, focused, on;
};
PartState state_of(const QStyleOption& option);

// So that a pen of this width draws within the rectangle.
QRectF within(const QRectF& place, double pen_width);
// The line around a field, a mark or a handle.
QPen edge_pen(const PartState& state, double width);

// The part of a button that its caption stands on: above the lower edge, moved while it is pressed.
QRect button_top(const QRect& button, bool pressed, bool enabled, const QWidget* widget);
void draw_button(QPainter& painter, const QStyleOption& option, const QWidget* widget);
// What the caption of a button stands on, as drawn.
QColor button_ground(const QStyleOption& option, const QWidget& widget);
void draw_option_mark(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void draw_check_mark(QPainter& painter, const QStyleOption& option, const QWidget* widget);

// The ground of an entry field with its edge, or with the ring of the focus.
void draw_field(QPainter& painter, const QStyleOption& option, const QWidget* widget);
// A closed list: its field, and the arrow in the place given.
void draw_list_field(QPainter& painter, const QStyleOption& option, const QRect& arrow,
                     const QWidget* widget);
void draw_scroll_bar(QPainter& painter, const QStyleOption& option, const QRect& handle);
void draw_progress_trough(QPainter& painter, const QStyleOption& option);
void draw_progress(QPainter& painter, const QStyleOptionProgressBar& bar);

// The sign of a message box: a flat disc with its letter. Null for any other icon.
QPixmap box_icon(QStyle::StandardPixmap icon, int side_px, double pixel_ratio);

struct SliderPlaces {
    QRect groove, handle;
};
SliderPlaces slider_places(const QStyleOptionSlider& slider, const QWidget& widget);
// The marker points at the value that lies `marked` above the lowest one; none at 0.
void draw_slider(QPainter& painter, const QStyleOptionSlider& slider, const QWidget& widget,
                 int marked);

} // namespace zol::view::qt
