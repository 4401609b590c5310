// How the six fault codes of the diagnosis panel are drawn: an empty place light and small, a code
// in the bold type of its table with a red bar at its left, and an outline around the code whose
// text is in the box. Their data stays as it is.
#pragma once

#include "view/screen.h"

#include <QObject>

class QLabel;

namespace zol::view::qt {

class WindowFace;

class FaultMarks : public QObject {
  public:
    // The main window's; its controls must be built.
    explicit FaultMarks(const WindowFace& main_window);
    void changed(const Widget& widget, Aspect aspect);

  private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void explain(const Widget* code);

    const WindowFace& window_;
    const Widget* explained_ = nullptr; // whose text is in the box
};

} // namespace zol::view::qt
