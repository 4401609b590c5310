// Shows which live values are stale: they are drawn as in a disabled window, with a pause mark.
// Neither their data nor the state of the Qt controls changes.
#pragma once

#include "view/widget.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <vector>

class QWidget;

namespace zol::view::qt {

class WindowFace;

// A value is fresh for 1.5 s, three polling cycles, after each good telegram, which flips the
// colour of Shape2, and after each assignment of its own text: the lambda panel and the tuning read
// a few values themselves. The trace is as fresh as the lambda value, the lamps as the engine
// speed. The fuel too, because the choice of the fuel sets its text without a telegram.
class LiveValues : public QObject {
  public:
    // `main_window` must have its controls already.
    explicit LiveValues(const WindowFace& main_window);
    // Call this whenever the data may have changed. A timer calls it when a value becomes stale.
    void catch_up();
    bool is_stale(const Widget& control) const;

  private:
    struct Value {
        const Widget* source;
        std::vector<QWidget*> faces; // of the source and of its followers
        std::int64_t last_read_us;   // when it was last read
        unsigned times_set;
        bool stale = false;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void add(const Widget& source, const std::vector<const Widget*>& followers = {});

    const WindowFace& window_;
    std::vector<Value> values_;
    Colour shape2_colour_; // colour of Shape2 at the last call
    QTimer expiry_;
};

} // namespace zol::view::qt
