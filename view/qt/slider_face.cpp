#include "view/operator.h"
#include "view/qt/act.h"
#include "view/qt/controls.h"
#include "view/qt/instrument_style.h"

namespace zol::view::qt {

namespace acts = operator_acts;

SliderFace::SliderFace(Widget& model, QWidget& parent)
    : QSlider(model.look.vertical ? Qt::Vertical : Qt::Horizontal, &parent) {
    // A vertical slider has its lowest value at the top, and an arrow key moves the handle in its
    // own direction.
    setInvertedAppearance(model.look.vertical);
    setInvertedControls(model.look.vertical);
    connect(this, &QSlider::sliderMoved, this, [this, &model](int position) {
        // If the model takes another value, the handle moves to that.
        post_act(model, *this, Aspect::value, [&model, position] {
            return acts::drag_on(model, position) && model.look.value == position;
        });
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
    // Keys, wheel, and clicks on the groove.
    connect(this, &QSlider::actionTriggered, this, [this, &model] {
        if (isSliderDown()) return;
        post_act(model, *this, Aspect::value,
                 [&model, position = sliderPosition()] { return acts::drag_to(model, position); });
    });
}

void SliderFace::mark_stretch(int length) {
    if (length == property(marked_stretch_property).toInt()) return;
    setProperty(marked_stretch_property, length);
    update();
}

} // namespace zol::view::qt
