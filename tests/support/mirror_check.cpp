#include "tests/support/mirror_check.h"

#include "tests/support/mirror_differences.h"
#include "view/view.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTextDocument>

namespace zol::tests {

using view::Kind;
using view::Widget;
using view::WindowState;

void Differences::add(const Widget& widget, const std::string& what) {
    const bool is_window = widget.kind == Kind::window;
    const std::string name =
        is_window ? widget.name : widget.window->name + "." + full_name(widget);
    lines.push_back(name + ": " + what);
}

bool effectively_visible(const Widget& control) {
    for (const Widget* w = &control; w->kind != Kind::window; w = w->parent)
        if (!w->look.visible) return false;
    return true;
}

bool effectively_enabled(const Widget& widget) {
    for (const Widget* w = &widget; w; w = w->parent)
        if (!w->look.enabled) return false;
    return true;
}

QString tip_as_read(const QString& tool_tip) {
    if (!Qt::mightBeRichText(tool_tip)) return tool_tip.simplified();
    static QHash<QString, QString> known; // a document for each tip would be slow
    const auto it = known.constFind(tool_tip);
    if (it != known.constEnd()) return *it;
    QTextDocument document;
    document.setHtml(tool_tip);
    return *known.insert(tool_tip, document.toPlainText().simplified());
}

QString tip_in_data(const Widget& widget) {
    const std::string& tip = widget.look.tip.empty() ? widget.help.text : widget.look.tip;
    return QString::fromStdString(tip).simplified();
}

namespace {

// The objects of a window, by name.
template <typename T>
QMultiHash<QString, T*> parts_of(const QWidget& top) {
    QMultiHash<QString, T*> parts;
    for (T* part : top.findChildren<T*>())
        if (!part->objectName().isEmpty()) parts.insert(part->objectName(), part);
    return parts;
}

template <typename T>
T* part_for(const Widget& widget, const QMultiHash<QString, T*>& parts, Differences& found) {
    const auto named = parts.values(QString::fromStdString(full_name(widget)));
    if (named.size() == 1) return named.first();
    found.add(widget, "is " + std::to_string(named.size()) + " times on the screen");
    return nullptr;
}

// An action is usable if it, its menus and the menu bar are visible and enabled. The toolkit treats
// a hidden action as disabled.
bool can_be_chosen(const QAction& action, const Widget& entry,
                   const QMultiHash<QString, QAction*>& actions, const QMenuBar& bar) {
    if (!bar.isEnabled() || !action.isEnabled() || !action.isVisible()) return false;
    if (action.menu() && !action.menu()->isEnabled()) return false;
    if (entry.parent->kind == Kind::window) return true;
    const QAction* above = actions.value(QString::fromStdString(full_name(*entry.parent)));
    return above && can_be_chosen(*above, *entry.parent, actions, bar);
}

void compare_entry(const Widget& entry, const QAction& action, Differences& found) {
    const bool separator = entry.kind == Kind::separator;
    found.compare(entry, "separator", action.isSeparator(), separator);
    found.compare(entry, "menu", action.menu() != nullptr, entry.kind == Kind::menu);
    found.compare(entry, "visible", action.isVisible(), entry.look.visible);
    if (separator) return;
    found.compare(entry, "text", action.text().replace("&&", "&"),
                  QString::fromStdString(entry.look.text));
    found.compare(entry, "checked", action.isChecked(), entry.look.checked);
    // Without a tick there is no empty box.
    found.compare(entry, "checkable", action.isCheckable(), entry.look.checked);
    // The toolkit uses the caption as the tip of an action without one.
    const QString tip = tip_in_data(entry);
    if (!tip.isEmpty()) found.compare(entry, "tip", tip_as_read(action.toolTip()), tip);
}

void compare_menus(const Widget& window, const QWidget& top, Differences& found) {
    if (window.menus.empty()) return;
    const auto* bar = qobject_cast<QMenuBar*>(qobject_cast<const QMainWindow*>(&top)->menuWidget());
    const auto actions = parts_of<QAction>(top);
    for (const Widget* entry : window.menus) {
        const QAction* action = part_for(*entry, actions, found);
        if (!action) continue;
        compare_entry(*entry, *action, found);
        if (entry->kind != Kind::separator)
            found.compare(*entry, "enabled", can_be_chosen(*action, *entry, actions, *bar),
                          effectively_enabled(*entry) && effectively_visible(*entry));
        const QWidget* holder = bar;
        if (entry->parent != &window) {
            const QAction* above = actions.value(QString::fromStdString(full_name(*entry->parent)));
            holder = above ? above->menu() : nullptr;
        }
        found.compare(*entry, "in its menu", holder && holder->actions().contains(action), true);
    }
}

QString state_name(WindowState state) {
    switch (state) {
    case WindowState::normal: return "normal";
    case WindowState::minimised: return "minimised";
    case WindowState::maximised: return "maximised";
    }
    return {};
}

void compare_window(const Widget& window, const QWidget& top, Differences& found) {
    // Qt shows "[*][*]" as "[*]"; a single one would be its mark of unsaved changes.
    found.compare(window, "title", top.windowTitle().replace("[*][*]", "[*]"),
                  QString::fromStdString(window.look.text));
    found.compare(window, "shown", top.isVisible(), window.shown);
    found.compare(window, "enabled", top.isEnabled(), window.look.enabled);
    if (window.shown) {
        const WindowState state = top.isMinimized()   ? WindowState::minimised
                                  : top.isMaximized() ? WindowState::maximised
                                                      : WindowState::normal;
        found.compare(window, "state", state_name(state), state_name(window.look.state));
    }
    compare_colours(window, top, found);
    compare_pointer(window, top, found);
}

// The program has one focus, the toolkit one for each window. They are the same in the program's
// focus window, and the active window has no other. An open list or menu may have the keyboard.
void compare_focus(const Widget& window, const QWidget& top, Differences& found) {
    const Widget* focus = view::focus();
    const bool here = focus && focus->window == &window && window.shown;
    if (!here && !top.isActiveWindow()) return;
    const QWidget* face = top.focusWidget();
    if (qobject_cast<const QMenuBar*>(face)) return;
    const bool none = !face || face == &top;
    const QString on_screen = none ? "none" : face->objectName();
    const bool on_control = here && focus != &window;
    const QString in_data = on_control ? QString::fromStdString(full_name(*focus)) : "none";
    found.compare(window, "focus", on_screen, in_data);
}

// Boxes and the manual have no data.
bool has_no_data(const QWidget& top) {
    if (qobject_cast<const QDialog*>(&top)) return top.objectName().endsWith("_box");
    return top.objectName() == "Manual";
}

QHash<QString, const QWidget*> windows_on_screen(Differences& found) {
    QHash<QString, const QWidget*> windows;
    for (const QWidget* top : QApplication::topLevelWidgets()) {
        const auto type = top->windowType();
        const bool is_list = type == Qt::Popup || type == Qt::ToolTip;
        if (is_list || has_no_data(*top)) continue;
        const std::string name = top->objectName().toStdString();
        const bool known = std::ranges::any_of(view::all_windows(), [&](const Widget* window) {
            return window->loaded && window->name == name;
        });
        if (windows.contains(top->objectName()) || (!known && (top->isVisible() || name != "")))
            found.lines.push_back(name + ": a window on the screen that the data does not have");
        windows.insert(top->objectName(), top);
    }
    return windows;
}

} // namespace

std::vector<std::string> mirror_differences() {
    Differences found;
    const auto windows = windows_on_screen(found);
    for (const Widget* window : view::all_windows()) {
        if (!window->loaded) continue;
        const QWidget* top = windows.value(QString::fromStdString(window->name));
        if (!top) {
            found.add(*window, "is not on the screen");
            continue;
        }
        compare_window(*window, *top, found);
        const auto faces = parts_of<QWidget>(*top);
        for (const Widget* control : window->controls)
            if (const QWidget* face = part_for(*control, faces, found))
                compare_control(*control, *face, *top, found);
        compare_menus(*window, *top, found);
        compare_focus(*window, *top, found);
    }
    return found.lines;
}

} // namespace zol::tests
