// Shows which live values are no longer read: they are drawn as they are behind a dialog, with a
// pause mark. Their data, and what the toolkit knows of them, stay as they are.
#pragma once

#include "view/widget.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <vector>

class QWidget;

namespace zol::view::qt {

class WindowFace;

// A value is alive for 1.5 s, three polling cycles, after each good telegram, which flips Shape2,
// and after each time that its own text is set: the lambda panel and the tuning read a few values
// by themselves. The trace goes with the lambda value, the lamps with the engine speed.
class LiveValues : public QObject {
  public:
    // The main window's; its controls must be built.
    explicit LiveValues(const WindowFace& main_window);
    // Call this whenever the data may have changed.
    void catch_up();
    bool is_stale(const Widget& control) const;

  private:
    struct Value {
        const Widget* source;
        std::vector<QWidget*> faces; // the source's own, then what goes with it
        std::int64_t alive_us;       // when it was last read
        unsigned times_set;
        bool stale = false;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void add(const WindowFace& main_window, const Widget& source,
             const std::vector<const Widget*>& followers = {});

    std::vector<Value> values_;
    Colour beat_; // of Shape2, as last seen
    QTimer expiry_;
};

} // namespace zol::view::qt
