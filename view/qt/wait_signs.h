// Shows that something is under way: a stripe that moves along the upper edge of a window while its
// pointer, or that of a control on it, is the hourglass; and, at the foot of the main window, what
// takes long: an automatic tuning or a factory reset, with no progress, because none is known.
#pragma once

#include "view/widget.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace zol::view::qt {

class WindowFace;

// A thin line along which a darker piece runs. Nothing is drawn and no time is spent while it is
// hidden.
class WaitStripe : public QWidget {
  public:
    explicit WaitStripe(QWidget& parent);
    void run(bool running);
    // Four pixels, more on a large screen.
    int thickness() const;

  private:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    QBasicTimer clock_;
    QElapsedTimer since_;
};

// The band at the foot of the main window, over what else is there, with a text in large type and
// a stripe. It lets the mouse through.
class WaitBand : public QWidget {
  public:
    explicit WaitBand(const WindowFace& main_window, QWidget& parent);
    // Shows the text; hidden for an empty one.
    void show_text(const QString& text);
    const QString& text() const { return text_; }

  private:
    void paintEvent(QPaintEvent* event) override;
    QRect place() const;

    const WindowFace& window_;
    QString text_;
    WaitStripe* stripe_;
};

class WaitSigns {
  public:
    // `content` holds the window's controls, which must be built; it owns what is shown.
    WaitSigns(const WindowFace& window, QWidget& content);
    // Call this whenever the data may have changed.
    void catch_up();

  private:
    const WindowFace& window_;
    WaitStripe* stripe_;
    WaitBand* band_ = nullptr; // the main window's
};

} // namespace zol::view::qt
