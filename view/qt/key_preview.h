// A window sees each key before its focused control does.
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

// Takes the keys that Qt delivers to the program's windows, hands each to the logic, and only then
// to the control that has the focus. Keys of a box, of an open list and of the menu bar are left
// alone.
class KeyPreview : public QObject {
  public:
    explicit KeyPreview(const QtScreen& screen);

  private:
    struct Press { // on its way: the logic has it, its control does not yet
        int key;
        std::unique_ptr<QKeyEvent> release; // came in the meantime, and must follow it
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void press(Widget& window, const QKeyEvent& event);
    void release(Widget& window, QKeyEvent& event);
    void deliver(Widget& window, QKeyEvent& event);

    const QtScreen& screen_;
    bool delivering_ = false;
    std::vector<Press*> on_their_way_;
};

// The system's code for a Qt key, 0 for one that has none, and the bits of a shift state.
int key_code(int qt_key);
int shift_state(Qt::KeyboardModifiers modifiers);

} // namespace zol::view::qt
