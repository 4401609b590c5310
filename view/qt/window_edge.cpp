#include "view/qt/window_edge.h"

#include "view/qt/face.h"

#include <QEvent>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

// Draws before the window paints itself; windows paint nothing on these pixels.
class Edge : public QObject {
  public:
    explicit Edge(QWidget& window) : QObject(&window), window_(window) {
        window.installEventFilter(this);
    }

  private:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &window_ && event->type() == QEvent::Paint) draw();
        return false;
    }
    void draw() {
        const int width = std::min(face::scaled(1, window_), 2);
        const QColor colour = window_.palette().color(window_.backgroundRole()).darker(200);
        QPainter painter(&window_);
        for (int i = 0; i < width; ++i) {
            painter.setPen(colour);
            painter.drawRect(window_.rect().adjusted(i, i, -1 - i, -1 - i));
        }
    }
    QWidget& window_;
};

} // namespace

void give_edge(QWidget& window) { new Edge(window); }

} // namespace zol::view::qt
