#include "view/qt/accessible_roles.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QRadioButton>

#include <cstring>

namespace zol::view::qt {
namespace {

class AccessibleOption : public QAccessibleWidget {
  public:
    explicit AccessibleOption(QRadioButton& button)
        : QAccessibleWidget(&button, QAccessible::RadioButton), button_(button) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button_.isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == toggleAction())
            button_.click();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    QRadioButton& button_;
};

// The accessible name is "Serial port: COM1": like a live value, a list announces its name and what
// it shows. Its entries are its children. While the list is being destroyed, the toolkit may still
// ask; object() is no list any more then.
class AccessibleList : public QAccessibleWidget {
  public:
    explicit AccessibleList(QComboBox& list) : QAccessibleWidget(&list, QAccessible::ComboBox) {}

    QString text(QAccessible::Text what) const override {
        const QString own = QAccessibleWidget::text(what);
        const QString entry = list() ? list()->currentText() : QString();
        if (what == QAccessible::Value) return entry;
        if (what != QAccessible::Name || entry.isEmpty()) return own;
        return own.isEmpty() ? entry : own + ": " + entry;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = list() && list()->view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }
    int childCount() const override { return list() ? 1 : 0; }
    QAccessibleInterface* child(int index) const override {
        const bool there = list() && index == 0;
        return there ? QAccessible::queryAccessibleInterface(list()->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return list() && child->object() == list()->view() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QStringList actionNames() const override {
        return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == showMenuAction() && list())
            list()->view()->isVisible() ? list()->hidePopup() : list()->showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    QComboBox* list() const { return qobject_cast<QComboBox*>(object()); }
};

QAccessibleInterface* accessible_of(const QString&, QObject* object) {
    if (auto* button = qobject_cast<QRadioButton*>(object)) return new AccessibleOption(*button);
    if (auto* list = qobject_cast<QComboBox*>(object)) return new AccessibleList(*list);
    auto* widget = qobject_cast<QWidget*>(object);
    const bool plain = widget && std::strcmp(widget->metaObject()->className(), "QWidget") == 0;
    if (plain && widget->isWindow()) return new QAccessibleWidget(widget, QAccessible::Window);
    return nullptr;
}

} // namespace

void correct_accessible_roles() { QAccessible::installFactory(accessible_of); }

} // namespace zol::view::qt
