#include "tests/process/tour/ui.h"
#include "tests/process/tour/windows.h"

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

QString text_of_box() {
    if (const auto* message = qobject_cast<QMessageBox*>(box())) return message->text();
    const auto* prompt = box() ? box()->findChild<QLabel*>() : nullptr;
    return prompt ? prompt->text() : QString();
}

} // namespace

QString Ui::text(const QString& name, const QString& window) {
    return ask([&] { return text_of(find(name, window)); });
}

QString Ui::tip(const QString& name) {
    return ask([&] {
        const QWidget* widget = find(name, "Form1");
        return widget ? widget->toolTip() : QString();
    });
}

bool Ui::shown(const QString& window) {
    return ask([&] {
        const QWidget* top = window_named(window);
        return top && top->isVisible();
    });
}

bool Ui::enabled(const QString& name, const QString& window) {
    return ask([&] {
        if (const QAction* entry = action_named(name)) return entry->isEnabled();
        const QWidget* widget = find(name, window);
        return widget && widget->isEnabled();
    });
}

bool Ui::visible(const QString& name, const QString& window) {
    return ask([&] {
        const QWidget* widget = find(name, window);
        return widget && widget->isVisible();
    });
}

bool Ui::ticked(const QString& name, const QString& window) {
    return ask([&] {
        if (const QAction* entry = action_named(name)) return entry->isChecked();
        const auto* button = qobject_cast<const QAbstractButton*>(find(name, window));
        return button && button->isChecked();
    });
}

int Ui::value(const QString& slider, const QString& window) {
    return ask([&] {
        const auto* it = qobject_cast<QAbstractSlider*>(find(slider, window));
        return it ? it->value() : 0;
    });
}

bool Ui::box_open() {
    return ask([] { return box() != nullptr; });
}

bool Ui::menu_open() {
    return ask([] { return QApplication::activePopupWidget() != nullptr; });
}

QString Ui::box_text() { return ask(text_of_box); }

} // namespace zol::tour
