// Draws the six fault codes of the diagnosis panel: an empty place in a small light font, a code in
// bold with a red bar at its left, and an outline around the code that the note box explains. It
// changes neither the widgets' data nor the labels' texts.
#pragma once

#include "view/screen.h"

#include <QObject>

class QLabel;

namespace zol::view::qt {

class WindowFace;

class FaultMarks : public QObject {
  public:
    // `main_window` must have its controls already.
    explicit FaultMarks(const WindowFace& main_window);
    // Call this after each change of a widget of the main window.
    void changed(const Widget& widget, Aspect aspect);

  private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void explain(const Widget* code);

    const WindowFace& window_;
    const Widget* explained_ = nullptr; // the code that the note box explains, or null
};

} // namespace zol::view::qt
