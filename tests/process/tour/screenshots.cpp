#include "tests/process/tour/ui.h"
#include "tests/process/tour/windows.h"
#include "view/qt/wait_signs.h"

#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <cstdio>

namespace zol::tour {
namespace {

QPixmap whole_screen() { return QGuiApplication::primaryScreen()->grabWindow(0); }

// The screen shows the whole window. The moving stripe differs from one picture to the next.
bool painted_on(const QPixmap& screen, QWidget& top) {
    const QRect place(top.mapToGlobal(QPoint(0, 0)), top.size());
    QRegion stripes;
    for (QWidget* part : top.findChildren<QWidget*>())
        if (dynamic_cast<view::qt::WaitStripe*>(part))
            stripes += QRect(part->mapTo(&top, QPoint(0, 0)), part->size());
    const auto pixels = [&](QPixmap picture) {
        QPainter painter(&picture);
        painter.setClipRegion(stripes);
        if (!stripes.isEmpty()) painter.fillRect(picture.rect(), Qt::black);
        painter.end();
        return picture.toImage().convertToFormat(QImage::Format_RGB32);
    };
    return pixels(screen.copy(place)) == pixels(top.grab());
}

// Without a window manager a minimised window stays visible above others. This moves it outside the
// screen and back again.
class MinimisedWindows {
  public:
    void move_away() {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (!window->isVisible() || !(window->windowStates() & Qt::WindowMinimized)) continue;
            if (places_.contains(window)) continue;
            places_.insert(window, window->position());
            window->setPosition(window->position() +
                                QPoint(2 * window->screen()->size().width(), 0));
        }
    }
    void move_back() {
        for (auto it = places_.cbegin(); it != places_.cend(); ++it)
            if (QGuiApplication::topLevelWindows().contains(it.key()))
                it.key()->setPosition(it.value());
    }

  private:
    QHash<QWindow*, QPoint> places_;
};

} // namespace

void Ui::save(const QPixmap& screen, const std::string& name) {
    char number[16];
    std::snprintf(number, sizeof number, "%02d-", ++tally.screenshots);
    screen.save(QString::fromStdString((screenshots_ / (number + name + ".png")).string()));
}

void Ui::screenshot(const std::string& name) {
    act([&] { save(whole_screen(), name); });
    compare_with_data();
}

void Ui::screenshot_box(const std::string& name) {
    wait_until([&] { return box_open(); });
    screenshot(name);
}

// Compares and saves in one act: a window that is visible for a moment may be gone in the next.
bool Ui::screenshot_once_painted(const QString& window, const std::string& name, int most_ms) {
    MinimisedWindows minimised;
    const auto save_if_painted = [&] {
        QWidget* top = window_named(window);
        if (!top || !top->isVisible()) return false;
        const QPixmap screen = whole_screen();
        const bool painted = painted_on(screen, *top);
        if (painted) save(screen, name);
        if (!painted) minimised.move_away();
        return painted;
    };
    const bool painted = wait_until([&] { return ask(save_if_painted); }, most_ms);
    act([&] { minimised.move_back(); });
    if (!painted) screenshot(name);
    return painted;
}

} // namespace zol::tour
