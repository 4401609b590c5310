#include "tests/process/tour/hands.h"
#include "tests/process/tour/windows.h"
#include "tests/support/mirror_check.h"
#include "view/timers.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QScreen>
#include <QWindow>

#include <chrono>
#include <cstdio>
#include <semaphore>
#include <thread>

namespace zol::tour {
namespace {

QString text_of(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) return field->text();
    if (const auto* note = qobject_cast<const QPlainTextEdit*>(widget)) return note->toPlainText();
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) return list->currentText();
    return {};
}

QPixmap whole_screen() { return QGuiApplication::primaryScreen()->grabWindow(0); }

// Whether the window stands on this screen as it draws itself.
bool painted_on(const QPixmap& screen, QWidget& top) {
    const QRect place(top.mapToGlobal(QPoint(0, 0)), top.size());
    const auto pixels = [](const QPixmap& picture) {
        return picture.toImage().convertToFormat(QImage::Format_RGB32);
    };
    return pixels(screen.copy(place)) == pixels(top.grab());
}

// A screen without a desktop leaves a minimised window where it stands, above others. This puts it
// out of sight as a desktop would, and brings it back in the end.
class MinimisedAside {
  public:
    void put() {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (!window->isVisible() || !(window->windowStates() & Qt::WindowMinimized)) continue;
            if (places_.contains(window)) continue;
            places_.insert(window, window->position());
            window->setPosition(window->position() +
                                QPoint(2 * window->screen()->size().width(), 0));
        }
    }
    void bring_back() {
        for (auto it = places_.cbegin(); it != places_.cend(); ++it)
            if (QGuiApplication::topLevelWindows().contains(it.key()))
                it.key()->setPosition(it.value());
    }

  private:
    QHash<QWindow*, QPoint> places_;
};

} // namespace

QString Hands::text(const QString& name, const QString& window) {
    QString result;
    act([&] { result = text_of(find(name, window)); });
    return result;
}

QString Hands::tip(const QString& name) {
    QString result;
    act([&] {
        if (const QWidget* widget = find(name, "Form1")) result = widget->toolTip();
    });
    return result;
}

bool Hands::shown(const QString& window) {
    bool result = false;
    act([&] {
        const QWidget* top = window_named(window);
        result = top && top->isVisible();
    });
    return result;
}

bool Hands::enabled(const QString& name, const QString& window) {
    bool result = false;
    act([&] {
        if (const QAction* entry = action_named(name)) {
            result = entry->isEnabled();
            return;
        }
        const QWidget* widget = find(name, window);
        result = widget && widget->isEnabled();
    });
    return result;
}

bool Hands::visible(const QString& name, const QString& window) {
    bool result = false;
    act([&] {
        const QWidget* widget = find(name, window);
        result = widget && widget->isVisible();
    });
    return result;
}

bool Hands::ticked(const QString& name, const QString& window) {
    bool result = false;
    act([&] {
        if (const QAction* entry = action_named(name)) {
            result = entry->isChecked();
            return;
        }
        const auto* it = qobject_cast<const QAbstractButton*>(find(name, window));
        result = it && it->isChecked();
    });
    return result;
}

int Hands::value(const QString& slider, const QString& window) {
    int result = 0;
    act([&] {
        const auto* it = qobject_cast<QAbstractSlider*>(find(slider, window));
        result = it ? it->value() : 0;
    });
    return result;
}

bool Hands::box_on_view() {
    bool result = false;
    act([&] { result = box() != nullptr; });
    return result;
}

bool Hands::menu_open() {
    bool result = false;
    act([&] { result = QApplication::activePopupWidget() != nullptr; });
    return result;
}

QString Hands::box_text() {
    QString result;
    act([&] {
        if (const auto* message = qobject_cast<QMessageBox*>(box()))
            result = message->text();
        else if (const QDialog* other = box())
            if (const auto* prompt = other->findChild<QLabel*>()) result = prompt->text();
    });
    return result;
}

void Hands::save(const QPixmap& screen, const std::string& name) {
    char number[16];
    std::snprintf(number, sizeof number, "%02d-", ++tally_.pictures);
    screen.save(QString::fromStdString((pictures_ / (number + name + ".png")).string()));
}

void Hands::picture(const std::string& name) {
    act([&] { save(whole_screen(), name); });
    compare_with_data();
}

// Looks and takes in one go: a window that is on view for a moment may be gone in the next turn.
bool Hands::picture_once_painted(const QString& window, const std::string& name, int most_ms) {
    MinimisedAside minimised;
    const auto take = [&] {
        bool taken = false;
        act([&] {
            QWidget* top = window_named(window);
            if (!top || !top->isVisible()) return;
            const QPixmap screen = whole_screen();
            taken = painted_on(screen, *top);
            if (taken) save(screen, name);
            if (!taken) minimised.put();
        });
        return taken;
    };
    const bool painted = until(take, most_ms);
    act([&] { minimised.bring_back(); });
    if (!painted) picture(name);
    return painted;
}

void Hands::rest(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

bool Hands::until(const std::function<bool()>& holds, int most_ms) {
    for (int waited = 0; waited < most_ms; waited += 50) {
        if (holds()) return true;
        rest(50);
    }
    return holds();
}

void Hands::until_idle(const QString& window) {
    const auto idle = [&] {
        bool result = true;
        act([&] {
            const QWidget* top = window_named(window);
            result = !top || top->cursor().shape() != Qt::WaitCursor;
        });
        return result;
    };
    // A handler may show the ordinary pointer between two of its steps.
    const auto for_a_while = [&] {
        if (!idle()) return false;
        rest(250);
        return idle();
    };
    until(for_a_while, 15000);
}

void Hands::see(const std::string& sentence, bool holds) {
    ++(holds ? tally_.seen : tally_.missed);
    if (!holds) {
        std::printf("MISSED: %s\n", sentence.c_str());
        std::fflush(stdout);
    }
    compare_with_data();
}

// The program's pump runs what was posted before, then idles: by then the screen has caught up, and
// no act of the operator is on its way.
std::vector<std::string> Hands::differences() {
    std::vector<std::string> found;
    std::binary_semaphore compared(0);
    const auto compare = [&] {
        found = tests::mirror_differences();
        compared.release();
    };
    const auto once_idle = [&] { QMetaObject::invokeMethod(qApp, compare, Qt::QueuedConnection); };
    QMetaObject::invokeMethod(
        qApp, [&] { view::post(once_idle); }, Qt::QueuedConnection);
    compared.acquire();
    return found;
}

void Hands::compare_with_data() {
    ++tally_.compared;
    std::vector<std::string> found;
    // The display takes a moment to make another window the active one.
    constexpr int longest_change_ms = 2000;
    const auto same = [&] { return (found = differences()).empty(); };
    if (until(same, longest_change_ms)) return;
    tally_.missed += static_cast<int>(found.size());
    for (const std::string& difference : found)
        std::printf("MISSED: on the screen as in the data: %s\n", difference.c_str());
    std::fflush(stdout);
}

} // namespace zol::tour
