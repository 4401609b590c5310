#include "tests/tour/hands.h"
#include "tests/tour/windows.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>

#include <chrono>
#include <cstdio>
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

void Hands::picture(const std::string& name) {
    act([&] {
        char number[16];
        std::snprintf(number, sizeof number, "%02d-", ++tally_.pictures);
        const auto file = pictures_ / (number + name + ".png");
        QGuiApplication::primaryScreen()->grabWindow(0).save(QString::fromStdString(file.string()));
    });
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
    if (holds) return;
    std::printf("MISSED: %s\n", sentence.c_str());
    std::fflush(stdout);
}

} // namespace zol::tour
