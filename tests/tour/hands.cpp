#include "tests/tour/hands.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <chrono>
#include <cstdio>
#include <memory>
#include <semaphore>
#include <thread>

namespace zol::tour {
namespace {

QWidget* window_named(const QString& name) {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == name) return top;
    return nullptr;
}

QDialog* box() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

QString text_of(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) return field->text();
    if (const auto* note = qobject_cast<const QPlainTextEdit*>(widget)) return note->toPlainText();
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) return list->currentText();
    return {};
}

QAbstractButton* button_of(const QDialog& dialog, QString text) {
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        if (button->text().remove('&') == text) return button;
    return nullptr;
}

} // namespace

void Hands::act(const std::function<void()>& work) {
    // Shared, since a handler that never ends holds the act for as long as the program runs.
    const auto taken_in = std::make_shared<std::binary_semaphore>(0);
    QMetaObject::invokeMethod(qApp, work, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        qApp, [taken_in] { taken_in->release(); }, Qt::QueuedConnection);
    taken_in->acquire();
}

QWidget* Hands::find(const QString& name, const QString& window) {
    QWidget* top = window_named(window);
    if (top && top->objectName() == name) return top;
    QWidget* found = top ? top->findChild<QWidget*>(name) : nullptr;
    if (!found) std::fprintf(stderr, "no %s in %s\n", qPrintable(name), qPrintable(window));
    return found;
}

void Hands::click(const QString& name, const QString& window) {
    act([=, this] {
        if (QWidget* widget = find(name, window))
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
    });
}

void Hands::double_click(const QString& name) {
    act([=, this] {
        if (QWidget* widget = find(name, "Form1")) QTest::mouseDClick(widget, Qt::LeftButton);
    });
}

void Hands::drag(const QString& name, int value, const QString& window) {
    act([=, this] {
        auto* slider = qobject_cast<QAbstractSlider*>(find(name, window));
        if (!slider) return;
        const bool across = slider->orientation() == Qt::Horizontal;
        const int length = across ? slider->width() : slider->height();
        const auto spot = [&](int at) {
            // The handle's middle keeps half a handle away from both ends.
            constexpr int half_handle = 7;
            const int range = slider->maximum() - slider->minimum();
            const int along =
                half_handle + (at - slider->minimum()) * (length - 2 * half_handle) / range;
            return across ? QPoint(along, slider->height() / 2)
                          : QPoint(slider->width() / 2, along);
        };
        QTest::mousePress(slider, Qt::LeftButton, {}, spot(slider->value()));
        QTest::mouseMove(slider, spot((slider->value() + value) / 2));
        QTest::mouseMove(slider, spot(value));
        QTest::mouseRelease(slider, Qt::LeftButton, {}, spot(value));
    });
}

void Hands::menu(const QStringList& way) {
    for (const QString& step : way) {
        act([=] {
            QWidget* form = window_named("Form1");
            QAction* action = form ? form->findChild<QAction*>(step) : nullptr;
            QMenu* submenu = form ? form->findChild<QMenu*>(step) : nullptr;
            if (submenu) action = submenu->menuAction();
            if (!action) {
                std::fprintf(stderr, "no menu %s\n", qPrintable(step));
                return;
            }
            auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (popup)
                QTest::mouseClick(popup, Qt::LeftButton, {},
                                  popup->actionGeometry(action).center());
            else if (auto* bar = form->findChild<QMenuBar*>())
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
        });
        rest(150);
    }
}

void Hands::choose(const QString& combo, int index, const QString& window) {
    act([=, this] {
        auto* list = qobject_cast<QComboBox*>(find(combo, window));
        if (!list) return;
        list->setFocus();
        QTest::mouseClick(list, Qt::LeftButton);
    });
    rest(150);
    act([=, this] {
        QWidget* popup = QApplication::activePopupWidget();
        auto* list = qobject_cast<QComboBox*>(find(combo, window));
        if (!popup || !list) return;
        for (int step = list->currentIndex(); step < index; ++step)
            QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, Qt::Key_Down);
        for (int step = list->currentIndex(); step > index; --step)
            QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, Qt::Key_Up);
        QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, Qt::Key_Return);
    });
}

void Hands::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    act([=] {
        QWidget* top = QApplication::activeWindow();
        if (!top) top = window_named("Form1");
        QTest::keyClick(top->focusWidget() ? top->focusWidget() : top, key, modifiers);
    });
}

void Hands::enter(const QString& name, const QString& text, const QString& window) {
    click(name, window);
    rest(100);
    act([=, this] {
        if (QWidget* field = find(name, window)) QTest::keyClicks(field, text);
    });
    rest(100);
    act([=, this] {
        if (QWidget* field = find(name, window)) QTest::keyClick(field, Qt::Key_Return);
    });
}

void Hands::answer(const QString& button, const QString& entry) {
    act([=] {
        QDialog* dialog = box();
        if (!dialog) {
            std::fprintf(stderr, "no box to answer with %s\n", qPrintable(button));
            return;
        }
        if (auto* field = dialog->findChild<QLineEdit*>(); field && !entry.isNull())
            QTest::keyClicks(field, entry);
        if (QAbstractButton* it = button_of(*dialog, button)) QTest::mouseClick(it, Qt::LeftButton);
    });
}

void Hands::close(const QString& window) {
    act([=] {
        if (QWidget* top = window_named(window)) top->close();
    });
}

QString Hands::text(const QString& name, const QString& window) {
    QString result;
    act([&] {
        const QWidget* widget = find(name, window);
        result = widget ? text_of(widget) : QString();
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

QString Hands::box_text() {
    QString result;
    act([&] {
        if (const auto* message = qobject_cast<QMessageBox*>(box())) result = message->text();
    });
    return result;
}

void Hands::rest(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

bool Hands::until(const std::function<bool()>& holds, int most_ms) {
    for (int waited = 0; waited < most_ms; waited += 50) {
        if (holds()) return true;
        rest(50);
    }
    return holds();
}

void Hands::see(const std::string& sentence, bool holds) {
    ++(holds ? seen_ : missed_);
    std::printf("%s %s\n", holds ? "  seen:" : "MISSED:", sentence.c_str());
    std::fflush(stdout);
}

void Hands::picture(const std::string& name, const QString& window) {
    // The uppermost first.
    static const char* const windows[] = {"acquisizione", "Form3", "Form2", "Centralina_Attiva",
                                          "Form1"};
    act([&] {
        QWidget* top = window.isEmpty() ? QApplication::activeModalWidget() : window_named(window);
        for (const char* each : windows) {
            QWidget* candidate = window_named(each);
            if (!top && candidate && candidate->isVisible()) top = candidate;
        }
        if (!top) return;
        char number[16];
        std::snprintf(number, sizeof number, "%02d-", ++taken_);
        const auto file = pictures_ / (number + name + ".png");
        top->grab().save(QString::fromStdString(file.string()));
    });
}

} // namespace zol::tour
