// Passes an act of the operator from a Qt event to the logic. Nothing of the logic runs inside the
// Qt event itself.
#pragma once

#include "view/qt/mirror.h"
#include "view/timers.h"

#include <QPointer>
#include <QWidget>

namespace zol::view::qt {

// The text box whose typed text is being passed to its model; null at other times.
inline const Widget* being_typed = nullptr;

// Runs `act` in the pump's next turn. `act` returns false if the logic rejects it; then `aspect` of
// the Qt control, which may already show the change, is set back from the model.
template <typename Act>
void post_act(Widget& model, QWidget& face, Aspect aspect, Act act) {
    post([&model, face = QPointer<QWidget>(&face), aspect, act] {
        if (!act() && face) mirror(model, *face, aspect);
    });
}

} // namespace zol::view::qt
