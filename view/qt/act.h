// An act of the operator on its way from a Qt event to the logic.
#pragma once

#include "view/qt/mirror.h"
#include "view/timers.h"

#include <QPointer>
#include <QWidget>

namespace zol::view::qt {

// The text box whose typed text is on its way into its model.
inline const Widget* being_typed = nullptr;

// Runs `act` in the pump's next turn. Where the logic refuses it, the Qt face, which may already
// show it as done, goes back to what the model has.
template <typename Act>
void post_act(Widget& model, QWidget& face, Aspect aspect, Act act) {
    post([&model, face = QPointer<QWidget>(&face), aspect, act] {
        if (!act() && face) mirror(model, *face, aspect);
    });
}

} // namespace zol::view::qt
