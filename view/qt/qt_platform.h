// The pump's world on Qt's event loop.
#pragma once

#include "view/timers.h"

#include <QTimer>

namespace zol::view::qt {

class QtPlatform : public Platform {
  public:
    QtPlatform();
    std::int64_t now_us() override; // the steady clock: unmoved by a new date
    // Delivers what waits in Qt's queue, else sleeps until something comes or the time is up.
    void idle(std::int64_t until_us) override;
    // At once: nothing is torn down, for handlers of any depth may still be on the stack.
    [[noreturn]] void end_program() override;

    std::function<void()> before_idle; // the screen's last chance before the operator looks

  private:
    QTimer wake_;
    int depth_ = 0; // idlings on the stack
};

} // namespace zol::view::qt
