// Where the mouse takes a slider's handle: the style places it, so the style is asked.
#pragma once

#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

namespace zol::tests {

// The centre of the slider's handle for this value.
inline QPoint handle_at(const QSlider& slider, int value) {
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.orientation = slider.orientation();
    option.minimum = slider.minimum(), option.maximum = slider.maximum();
    option.sliderPosition = option.sliderValue = value;
    option.upsideDown = slider.invertedAppearance() != (slider.orientation() == Qt::Vertical);
    option.tickPosition = slider.tickPosition();
    return slider.style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
        .center();
}

} // namespace zol::tests
