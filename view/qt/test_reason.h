// The line under the result of the port test: why it failed and what to do about it. Its text is
// the result's own tip, which the program sets with the result.
#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QWidget;

namespace zol::view::qt {

class WindowFace;

class TestReason {
  public:
    // `dialog` is the connection dialog; its controls must be built.
    TestReason(const WindowFace& dialog, QWidget& content);
    // Call this whenever the data may have changed.
    void catch_up();

  private:
    QRect place() const;

    const WindowFace& dialog_;
    QLabel* line_;
};

} // namespace zol::view::qt
