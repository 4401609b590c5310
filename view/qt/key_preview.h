// Gives each key to the handlers of its window before the focused control gets it.
#pragma once

#include <QObject>

#include <memory>
#include <vector>

class QKeyEvent;

namespace zol::view {
struct Widget;
}

namespace zol::view::qt {

class QtScreen;

// Intercepts the keys that Qt delivers to the program's windows. Each is posted: the logic handles
// it first, and unless the logic drops it, the control that has the focus by then gets it. A
// release never overtakes its press. Keys in a box, an open list or the menu bar are not
// intercepted.
class KeyPreview : public QObject {
  public:
    explicit KeyPreview(const QtScreen& screen);

  private:
    struct Press { // being handled by the logic, not yet delivered to the control
        int key;
        std::unique_ptr<QKeyEvent> release; // arrived meanwhile; delivered after the press
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void press(Widget& window, const QKeyEvent& event);
    void release(Widget& window, QKeyEvent& event);
    void deliver(Widget& window, QKeyEvent& event);

    const QtScreen& screen_;
    bool delivering_ = false;
    std::vector<Press*> pending_;
};

// The key code that the logic uses for a Qt key, 0 if there is none; and the bits of its shift
// state.
int key_code(int qt_key);
int shift_state(Qt::KeyboardModifiers modifiers);

} // namespace zol::view::qt
