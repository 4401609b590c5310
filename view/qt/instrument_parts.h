// The drawing of the parts that InstrumentStyle is made of. Each draws into `option.rect` or the
// places given, and saves nothing of the painter's state but what it says.
#pragma once

#include <QPainter>
#include <QStyleOption>

class QStyleOptionSlider;
class QWidget;

namespace zol::view::qt {

// How much larger than at design size text stands in the widget: measures follow it.
double magnification(const QWidget& widget);

void draw_button(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void draw_option_mark(QPainter& painter, const QStyleOption& option);
void draw_check_mark(QPainter& painter, const QStyleOption& option);
void draw_field_edge(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void draw_focus_line(QPainter& painter, const QRect& place);
// Around a button, a field or a list. Light outside and dark within: one of the two stands out from
// any ground.
void draw_focus_ring(QPainter& painter, const QRect& place, double light_px);
void draw_progress_trough(QPainter& painter, const QStyleOption& option);
void draw_progress(QPainter& painter, const QStyleOptionProgressBar& bar);
// Over the toolkit's own, which does not grow with the list.
void draw_list_arrow(QPainter& painter, const QStyleOption& option, const QRect& place);

struct SliderPlaces {
    QRect groove, handle;
};
SliderPlaces slider_places(const QStyleOptionSlider& slider, double magnified);
// `marked` steps from the lowest value on are marked in the groove.
void draw_slider(QPainter& painter, const QStyleOptionSlider& slider, double magnified, int marked);

} // namespace zol::view::qt
