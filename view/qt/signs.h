// What a window shows beyond the letter of its data, drawn from the data that it mirrors: waits,
// values that are no longer read, the state of fault codes, why a port test failed.
#pragma once

#include "view/screen.h"

#include <memory>

class QWidget;

namespace zol::view::qt {

class FaultMarks;
class LiveValues;
class TestReason;
class WaitSigns;
class WindowFace;

class Signs {
  public:
    // The window's controls must be built; `content` holds them.
    Signs(const WindowFace& window, QWidget& content);
    ~Signs();
    void changed(const Widget& widget, Aspect aspect);
    // Before the operator looks.
    void catch_up();
    const LiveValues* live_values() const { return live_values_.get(); }

  private:
    std::unique_ptr<WaitSigns> waits_;
    std::unique_ptr<LiveValues> live_values_; // the main window's
    std::unique_ptr<FaultMarks> faults_;      // the main window's
    std::unique_ptr<TestReason> test_reason_; // the connection dialog's
};

} // namespace zol::view::qt
