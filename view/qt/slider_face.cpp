#include "view/operator.h"
#include "view/qt/act.h"
#include "view/qt/controls.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

namespace zol::view::qt {

namespace acts = operator_acts;

SliderFace::SliderFace(Widget& model, QWidget& parent)
    : QSlider(model.look.vertical ? Qt::Vertical : Qt::Horizontal, &parent) {
    // Upright, the lowest value is at the top: the keys move the handle the way they point.
    setInvertedAppearance(model.look.vertical);
    setInvertedControls(model.look.vertical);
    connect(this, &QSlider::sliderMoved, this, [this, &model](int position) {
        post_act(model, *this, Aspect::value,
                 [&model, position] { return acts::drag_on(model, position); });
    });
    connect(this, &QSlider::sliderPressed, this, [this, &model] {
        const double before = model.look.value;
        connect(
            this, &QSlider::sliderReleased, this,
            [this, &model, before] {
                post_act(model, *this, Aspect::value,
                         [&model, before] { return acts::end_drag(model, before); });
            },
            Qt::SingleShotConnection);
    });
    // Keys, wheel and clicks beside the handle.
    connect(this, &QSlider::actionTriggered, this, [this, &model] {
        if (isSliderDown()) return;
        post_act(model, *this, Aspect::value,
                 [&model, position = sliderPosition()] { return acts::drag_to(model, position); });
    });
}

void SliderFace::mark_stretch(int length) {
    if (length == stretch_) return;
    stretch_ = length;
    update();
}

void SliderFace::paintEvent(QPaintEvent* event) {
    QSlider::paintEvent(event);
    if (stretch_ <= 0) return;
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const bool upright = orientation() == Qt::Vertical;
    const int span = upright ? groove.height() : groove.width();
    const int end =
        QStyle::sliderPositionFromValue(minimum(), maximum(), minimum() + stretch_, span);
    constexpr int thickness = 3;
    const QRect stretch = upright
                              ? QRect(groove.left(), groove.top(), thickness, end)
                              : QRect(groove.left(), groove.bottom() - thickness, end, thickness);
    QPainter(this).fillRect(stretch, palette().color(QPalette::Highlight));
}

} // namespace zol::view::qt
