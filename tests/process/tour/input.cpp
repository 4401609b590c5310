#include "tests/process/tour/touched.h"
#include "tests/process/tour/ui.h"
#include "tests/process/tour/windows.h"
#include "tests/support/slider_handle.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <semaphore>

namespace zol::tour {
namespace {

// The toolkit's name of the colour dialog's field for "#00ff00".
constexpr const char* colour_field = "qt_colorname_lineedit";

// By its English text, in whatever language the box is.
QAbstractButton* button_of(const QDialog& dialog, const QString& text) {
    const auto* message = qobject_cast<const QMessageBox*>(&dialog);
    if (message && text == "Yes") return message->button(QMessageBox::Yes);
    if (message && text == "No") return message->button(QMessageBox::No);
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

void Ui::act(const std::function<void()>& work) {
    // Shared, because a handler that never ends keeps the second call queued.
    const auto received = std::make_shared<std::binary_semaphore>(0);
    QMetaObject::invokeMethod(qApp, work, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        qApp, [received] { received->release(); }, Qt::QueuedConnection);
    received->acquire();
}

QWidget* Ui::find(const QString& name, const QString& window) {
    QWidget* top = window_named(window);
    if (top && top->objectName() == name) return top;
    QWidget* found = top ? top->findChild<QWidget*>(name) : nullptr;
    if (!found) std::fprintf(stderr, "no %s in %s\n", qPrintable(name), qPrintable(window));
    return found;
}

void Ui::note(const QString& name, const QString& window) {
    note_touched(screenshots_ / touched_file, window.toStdString(), name.toStdString());
}

void Ui::click(const QString& name, const QString& window) {
    note(name, window);
    act([=] {
        if (QWidget* widget = find(name, window))
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
    });
}

void Ui::double_click(const QString& name) {
    note(name);
    act([=] {
        if (QWidget* widget = find(name, "Form1")) QTest::mouseDClick(widget, Qt::LeftButton);
    });
}

void Ui::drag(const QString& name, int value, const QString& window) {
    note(name, window);
    act([=] {
        auto* slider = qobject_cast<QSlider*>(find(name, window));
        if (!slider) return;
        const auto spot = [&](int at) { return tests::handle_at(*slider, at); };
        QTest::mousePress(slider, Qt::LeftButton, {}, spot(slider->value()));
        QTest::mouseMove(slider, spot((slider->value() + value) / 2));
        QTest::mouseMove(slider, spot(value));
        QTest::mouseRelease(slider, Qt::LeftButton, {}, spot(value));
    });
}

void Ui::menu(const QStringList& path) {
    note(path.last());
    for (const QString& step : path) {
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

void Ui::close_menus() {
    constexpr int deepest = 4;
    for (int level = 0; level < deepest; ++level)
        act([] {
            if (QWidget* popup = QApplication::activePopupWidget())
                QTest::keyClick(popup, Qt::Key_Escape);
        });
}

void Ui::choose(const QString& combo, int index, const QString& window) {
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
        if (popup->focusWidget()) popup = popup->focusWidget();
        const int steps = index - list->currentIndex();
        for (int step = 0; step < std::abs(steps); ++step)
            QTest::keyClick(popup, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
        QTest::keyClick(popup, Qt::Key_Return);
    });
}

void Ui::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    act([=] {
        QWidget* top = QApplication::activeWindow();
        if (!top) top = window_named("Form1");
        QTest::keyClick(top->focusWidget() ? top->focusWidget() : top, key, modifiers);
    });
}

void Ui::enter(const QString& name, const QString& text, const QString& window) {
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

void Ui::answer(const QString& button, const QString& entry) {
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

void Ui::close(const QString& window) {
    act([=] {
        if (QWidget* top = window_named(window)) top->close();
    });
}

} // namespace zol::tour
