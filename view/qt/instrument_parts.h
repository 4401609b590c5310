// Draws the parts of controls for InstrumentStyle: buttons, marks, fields, lists, sliders, bars.
// Each function draws within `option.rect` or the given place and restores the painter's state.
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

// The rectangle on which a pen of this width draws without leaving `place`.
QRectF within(const QRectF& place, double pen_width);
// The pen for the line around a field, a mark or a handle of `width` pixels.
QPen edge_pen(const PartState& state, double width);

// The part of a button with the caption: above the lower edge, and moved down while pressed.
QRect button_top(const QRect& button, bool pressed, bool enabled, const QWidget* widget);
void draw_button(QPainter& painter, const QStyleOption& option, const QWidget* widget);
// The background of the caption as drawn.
QColor button_ground(const QStyleOption& option, const QWidget& widget);
void draw_option_mark(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void draw_check_mark(QPainter& painter, const QStyleOption& option, const QWidget* widget);

// An entry field with its edge, or with the focus ring.
void draw_field(QPainter& painter, const QStyleOption& option, const QWidget* widget);
// A closed list: its field, and the arrow in the given place.
void draw_list_field(QPainter& painter, const QStyleOption& option, const QRect& arrow,
                     const QWidget* widget);
void draw_scroll_bar(QPainter& painter, const QStyleOption& option, const QRect& handle);
void draw_progress_trough(QPainter& painter, const QStyleOption& option);
void draw_progress(QPainter& painter, const QStyleOptionProgressBar& bar);

// The icon of a message box: a flat disc with a character. Null for any other icon.
QPixmap box_icon(QStyle::StandardPixmap icon, int side_px, double pixel_ratio);

// Where the parts of a slider are drawn.
struct SliderPlaces {
    QRect groove, handle;
};
SliderPlaces slider_places(const QStyleOptionSlider& slider, const QWidget& widget);
// The marker points at the value `marked` above the lowest one; 0 for no marker.
void draw_slider(QPainter& painter, const QStyleOptionSlider& slider, const QWidget& widget,
                 int marked);

} // namespace zol::view::qt
