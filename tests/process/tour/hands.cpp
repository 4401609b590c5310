#include "tests/process/tour/hands.h"
#include "tests/process/tour/touched.h"
#include "tests/process/tour/windows.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <cstdio>
#include <memory>
#include <semaphore>

namespace zol::tour {
namespace {

// The colour dialog has several fields; this is the toolkit's name of the one that takes "#00ff00".
constexpr const char* colour_field = "qt_colorname_lineedit";

QAbstractButton* button_of(const QDialog& dialog, QString text) {
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        if (button->text().remove('&') == text) return button;
    return nullptr;
}

} // namespace

QWidget* window_named(const QString& name) {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == name) return top;
    return nullptr;
}

QAction* action_named(const QString& name) {
    const QWidget* form = window_named("Form1");
    if (!form) return nullptr;
    if (const QMenu* submenu = form->findChild<QMenu*>(name)) return submenu->menuAction();
    return form->findChild<QAction*>(name);
}

QDialog* box() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

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

void Hands::note(const QString& name, const QString& window) {
    note_touched(pictures_ / touched_file, window.toStdString(), name.toStdString());
}

void Hands::click(const QString& name, const QString& window) {
    note(name, window);
    act([=] {
        if (QWidget* widget = find(name, window))
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
    });
}

void Hands::double_click(const QString& name) {
    note(name);
    act([=] {
        if (QWidget* widget = find(name, "Form1")) QTest::mouseDClick(widget, Qt::LeftButton);
    });
}

void Hands::drag(const QString& name, int value, const QString& window) {
    note(name, window);
    act([=] {
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
    note(way.last());
    for (const QString& step : way) {
        act([=] {
            QAction* action = action_named(step);
            if (!action) {
                std::fprintf(stderr, "no menu %s\n", qPrintable(step));
                return;
            }
            auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (popup)
                QTest::mouseClick(popup, Qt::LeftButton, {},
                                  popup->actionGeometry(action).center());
            else if (auto* bar = window_named("Form1")->findChild<QMenuBar*>())
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
        });
        rest(150);
    }
}

void Hands::leave_menus() {
    constexpr int deepest = 4;
    for (int level = 0; level < deepest; ++level)
        act([] {
            if (QWidget* popup = QApplication::activePopupWidget())
                QTest::keyClick(popup, Qt::Key_Escape);
        });
}

void Hands::choose(const QString& combo, int index, const QString& window) {
    note(combo, window);
    act([=] {
        auto* list = qobject_cast<QComboBox*>(find(combo, window));
        if (!list) return;
        list->setFocus();
        QTest::mouseClick(list, Qt::LeftButton);
    });
    rest(150);
    act([=] {
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
    act([=] {
        if (QWidget* field = find(name, window)) QTest::keyClicks(field, text);
    });
    rest(100);
    act([=] {
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
        auto* field = dialog->findChild<QLineEdit*>(colour_field);
        if (!field) field = dialog->findChild<QLineEdit*>();
        if (field && !entry.isNull()) {
            field->selectAll();
            QTest::keyClicks(field, entry);
        }
        if (QAbstractButton* it = button_of(*dialog, button)) QTest::mouseClick(it, Qt::LeftButton);
    });
}

void Hands::close(const QString& window) {
    act([=] {
        if (QWidget* top = window_named(window)) top->close();
    });
}

} // namespace zol::tour
