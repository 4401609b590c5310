// Shows, in the connection dialog, why a port test failed and what to do. The text is the tip of
// the result label (`Label2`), which the program sets with the result; without one the line is
// hidden.
#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QWidget;

namespace zol::view::qt {

class WindowFace;

class TestReason {
  public:
    // `dialog` is the connection dialog, with its controls; `content` is their parent.
    TestReason(const WindowFace& dialog, QWidget& content);
    // Call this whenever the data may have changed.
    void catch_up();

  private:
    QRect place() const;

    const WindowFace& dialog_;
    QLabel* line_;
};

} // namespace zol::view::qt
