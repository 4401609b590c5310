#include "view/qt/movie.h"

#include "view/qt/face.h"

#include <QBasicTimer>
#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zol::view::qt {
namespace {

constexpr int frame_ms = 100;
constexpr int least_moving_px = 60;
constexpr double pi = std::numbers::pi;

class Movie : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    double seconds() const { return frame_ * frame_ms / 1000.0; }

  private:
    void showEvent(QShowEvent*) override {
        if (std::min(width(), height()) >= least_moving_px) timer_.start(frame_ms, this);
    }
    void hideEvent(QHideEvent*) override { timer_.stop(); }
    void timerEvent(QTimerEvent*) override {
        if (window()->isMinimized()) return;
        ++frame_;
        update();
    }

    QBasicTimer timer_;
    int frame_ = 0;
};

// A globe of meridians and parallels that turns once in twelve seconds.
class Globe : public Movie {
  public:
    using Movie::Movie;

  private:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double line =
            std::clamp(std::min(width(), height()) / 28.0, 1.0, 2.0 * face::scaled(1, *this));
        const double radius = std::min(width(), height()) / 2.0 - line;
        painter.translate(width() / 2.0, height() / 2.0);
        const bool dark = face::ground_of(*this).lightness() < 128;
        painter.setPen(QPen(dark ? face::trace_title : face::secondary, line));
        painter.drawEllipse(QPointF(0, 0), radius, radius);
        painter.setPen(QPen(dark ? face::secondary : face::rule, line / 2));
        for (double latitude : {-60.0, -30.0, 0.0, 30.0, 60.0}) {
            const double y = radius * std::sin(latitude * pi / 180);
            const double half = radius * std::cos(latitude * pi / 180);
            painter.drawLine(QPointF(-half, y), QPointF(half, y));
        }
        constexpr int meridians = 6;
        for (int i = 0; i < meridians; ++i) {
            const double turn = std::fmod(seconds() / 12 + i / (2.0 * meridians), 0.5) * 2 * pi;
            painter.drawEllipse(QPointF(0, 0), std::abs(radius * std::cos(turn)), radius);
        }
    }
};

// Three bands of light that move over a night sky.
class Aurora : public Movie {
  public:
    using Movie::Movie;

  private:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), QColor(10, 14, 34));
        for (int i = 0; i < 3; ++i)
            veil(painter, i);
    }

    void veil(QPainter& painter, int number) const {
        constexpr int folds = 12;
        const double foot = height() * (0.45 + 0.2 * number);
        const double step = width() / static_cast<double>(folds);
        QPainterPath path(QPointF(0, 0));
        for (int i = 0; i <= folds; ++i) {
            const double wave = std::sin(seconds() * (0.5 + 0.2 * number) + i * 0.7 + number * 2);
            path.lineTo(i * step, foot + wave * height() * 0.1);
        }
        path.lineTo(width(), 0);
        QLinearGradient light(0, 0, 0, foot);
        QColor colour = QColor::fromHsv(130 + 25 * number, 200, 230);
        colour.setAlpha(0);
        light.setColorAt(0, colour);
        colour.setAlpha(110);
        light.setColorAt(1, colour);
        painter.fillPath(path, light);
    }
};

} // namespace

QWidget* make_movie(const Widget& model, QWidget& parent) {
    QWidget* movie = nullptr;
    if (model.window->name == "Centralina_Attiva")
        movie = new Aurora(&parent);
    else
        movie = new Globe(&parent);
    movie->setAttribute(Qt::WA_TransparentForMouseEvents);
    return movie;
}

} // namespace zol::view::qt
