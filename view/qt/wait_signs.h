// Shows waits: a stripe moves along the upper edge of a window while its pointer, or that of one of
// its controls, is the hourglass; and a band at the bottom of the main window names an automatic
// tuning or a factory reset. No progress is shown, because none is known.
#pragma once

#include "view/widget.h"

#include <QBasicTimer>
#include <QColor>
#include <QElapsedTimer>
#include <QWidget>

namespace zol::view::qt {

class WindowFace;

// A thin line along which a darker piece moves. While it is hidden, its timer is off.
class WaitStripe : public QWidget {
  public:
    explicit WaitStripe(QWidget& parent);
    void run(bool running);
    // In pixels: four, or more in a window wider than 1366 pixels.
    int thickness() const;

  private:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    QBasicTimer clock_;
    QElapsedTimer since_;
};

// The band at the bottom of the main window: a text in a large font and a stripe. During a
// tuning it has the colours of lbl_tuning, which blinks. It covers the
// controls there, but not visible buttons, and lets mouse input through.
class WaitBand : public QWidget {
  public:
    explicit WaitBand(const WindowFace& main_window, QWidget& parent);
    // Shows the text, or hides the band if it is empty.
    void show_text(const QString& text);
    const QString& text() const { return text_; }

  private:
    void paintEvent(QPaintEvent* event) override;
    QRect place() const;
    void take_colours();

    const WindowFace& window_;
    QString text_;
    QColor ground_, ink_;
    WaitStripe* stripe_;
};

// The waits of one window.
class WaitSigns {
  public:
    // `window` must have its controls already; `content`, their parent, owns stripe and band.
    WaitSigns(const WindowFace& window, QWidget& content);
    // Call this whenever the data may have changed.
    void catch_up();

  private:
    const WindowFace& window_;
    WaitStripe* stripe_;
    WaitBand* band_ = nullptr; // main window only
};

} // namespace zol::view::qt
