// Time and idling for the pump, on Qt's event loop and a monotonic clock.
#pragma once

#include "view/timers.h"

#include <QTimer>

namespace zol::view::qt {

class QtPlatform : public Platform {
  public:
    QtPlatform();
    std::int64_t now_us() override; // monotonic: not affected by a change of the date
    // Delivers the events in Qt's queue; if there are none, sleeps until one arrives or the time is
    // reached.
    void idle(std::int64_t until_us) override;
    // Ends the process at once and runs no destructors, because handlers may be on the stack.
    [[noreturn]] void end_program() override;

    std::function<void()> before_idle; // called first in idle(), to bring the screen up to date

  private:
    QTimer wake_;
    int depth_ = 0; // calls of idle() on the stack
};

} // namespace zol::view::qt
