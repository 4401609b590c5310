#include "view/qt/menus.h"

#include "view/operator.h"
#include "view/qt/mirror.h"
#include "view/timers.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace zol::view::qt {

std::unordered_map<const Widget*, QAction*> build_menus(Widget& window, QMenuBar& bar) {
    std::unordered_map<const Widget*, QAction*> actions;
    for (Widget* widget : window.menus) {
        const QString name = QString::fromStdString(full_name(*widget));
        QMenu* parent = widget->parent == &window ? nullptr : actions.at(widget->parent)->menu();
        QAction* action = nullptr;
        if (widget->kind == Kind::menu) {
            QMenu* menu = parent ? parent->addMenu("") : bar.addMenu("");
            menu->setObjectName(name);
            menu->setToolTipsVisible(true);
            QObject::connect(menu, &QMenu::aboutToShow, menu,
                             [widget] { post([widget] { operator_acts::open(*widget); }); });
            action = menu->menuAction();
        } else {
            action = parent ? parent->addAction("") : bar.addAction("");
            action->setSeparator(widget->kind == Kind::separator);
            QObject::connect(action, &QAction::triggered, action, [widget, action] {
                mirror(*widget, *action,
                       Aspect::checked); // the logic decides the tick; Qt has just changed it
                post([widget] { operator_acts::click(*widget); });
            });
        }
        action->setObjectName(name);
        action->setMenuRole(QAction::NoRole);
        for (Aspect aspect : {Aspect::tip, Aspect::visible, Aspect::enabled, Aspect::checked})
            mirror(*widget, *action, aspect);
        // A separator has "-" as its text in the table, which Qt would draw as a heading.
        if (widget->kind != Kind::separator) mirror(*widget, *action, Aspect::text);
        actions.emplace(widget, action);
    }
    return actions;
}

} // namespace zol::view::qt
