// What a window shows in addition to its data, and derives from that data: the stripe of a wait,
// stale live values, the state of fault codes, the reason of a failed port test. Signs are drawn
// over the controls and change neither data nor controls.
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
    // `window` must have its controls already; `content` is their parent.
    Signs(const WindowFace& window, QWidget& content);
    ~Signs();
    // Call this after each change of a widget of the window.
    void changed(const Widget& widget, Aspect aspect);
    // Call this before the program idles.
    void catch_up();
    // Null but in the main window.
    const LiveValues* live_values() const { return live_values_.get(); }

  private:
    std::unique_ptr<WaitSigns> waits_;
    std::unique_ptr<LiveValues> live_values_; // main window only
    std::unique_ptr<FaultMarks> faults_;      // main window only
    std::unique_ptr<TestReason> test_reason_; // connection dialog only
};

} // namespace zol::view::qt
