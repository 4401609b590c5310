#include "view/qt/key_preview.h"

#include "view/operator.h"
#include "view/qt/qt_screen.h"
#include "view/timers.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {

KeyPreview::KeyPreview(const QtScreen& screen) : screen_(screen) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyPreview::eventFilter(QObject* watched, QEvent* event) {
    const bool pressed = event->type() == QEvent::KeyPress;
    if (delivering_ || !watched->isWidgetType()) return false;
    // While the operator moves through the menu bar, it has the focus.
    if (qobject_cast<QMenuBar*>(QApplication::focusWidget())) return false;
    if (!pressed && event->type() != QEvent::KeyRelease) return false;
    const QWidget* top = static_cast<QWidget*>(watched)->window();
    Widget* window = screen_.window_of(*top);
    if (!window) return false;
    auto& key = static_cast<QKeyEvent&>(*event);
    key.accept();
    post([this, window, pressed, copy = std::shared_ptr<QKeyEvent>(key.clone())] {
        pressed ? press(*window, *copy) : release(*window, *copy);
    });
    return true;
}

void KeyPreview::press(Widget& window, const QKeyEvent& event) {
    Press pressed{event.key(), nullptr};
    pending_.push_back(&pressed);
    const int code = key_code(event.key());
    const bool taken =
        code == 0 || operator_acts::key(window, code, shift_state(event.modifiers()));
    std::erase(pending_, &pressed);
    if (!taken) return; // the logic dropped the key, so the control does not get it
    const std::unique_ptr<QKeyEvent> copy(event.clone());
    deliver(window, *copy);
    if (pressed.release) deliver(window, *pressed.release);
}

void KeyPreview::release(Widget& window, QKeyEvent& event) {
    const auto it = std::find_if(pending_.rbegin(), pending_.rend(),
                                 [&](const Press* press) { return press->key == event.key(); });
    if (it == pending_.rend())
        deliver(window, event);
    else
        (*it)->release.reset(event.clone());
}

void KeyPreview::deliver(Widget& window, QKeyEvent& event) {
    WindowFace* face = screen_.face(window);
    if (!face || !reachable(window)) return;
    QWidget* target = face->top().focusWidget();
    if (!target) target = &face->top();
    const QScopedValueRollback guard(delivering_, true);
    const bool back = event.key() == Qt::Key_Backtab;
    if (event.type() == QEvent::KeyPress && (back || event.key() == Qt::Key_Tab) &&
        face->tab_from_parking(!back))
        return;
    QCoreApplication::sendEvent(target, &event);
}

int key_code(int qt_key) {
    if (qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z) return qt_key;
    if (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9) return qt_key;
    switch (qt_key) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return operator_acts::enter;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    default: return 0;
    }
}

int shift_state(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? operator_acts::shift_key : 0) |
           (modifiers & Qt::ControlModifier ? operator_acts::ctrl_key : 0) |
           (modifiers & Qt::AltModifier ? operator_acts::alt_key : 0);
}

} // namespace zol::view::qt
