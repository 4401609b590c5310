#include "view/operator.h"
#include "view/qt/controls.h"
#include "view/timers.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace zol::view::qt {

void LabelFace::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (model_.on.click) post([this_label = &model_] { operator_acts::click(*this_label); });
        if (model_.on.double_click)
            post([this_label = &model_] { operator_acts::double_click(*this_label); });
        break;
    default: QLabel::keyPressEvent(event);
    }
}

void LabelFace::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus() || !operator_acts::takes_focus_by_tab(model_)) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(backgroundRole());
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

} // namespace zol::view::qt
