#include "view/widget.h"

#include <utility>

namespace zol::view {

Design window(std::string_view name, std::string text, Place place) {
    Design design{name, Kind::window, nullptr, {}};
    design.look.text = std::move(text);
    design.look.place = place;
    return design;
}

Design menu(std::string_view name, Widget& parent, std::string text) {
    Design design{name, Kind::menu, &parent, {}};
    design.look.text = std::move(text);
    return design;
}

Design menu_item(std::string_view name, Widget& parent, std::string text) {
    Design design{name, Kind::menu_item, &parent, {}};
    design.look.text = std::move(text);
    return design;
}

Design separator(std::string_view name, Widget& parent, std::string text) {
    Design design{name, Kind::separator, &parent, {}};
    design.look.text = std::move(text);
    return design;
}

Design control(Kind kind, std::string_view name, Widget& parent, Place place, std::string text) {
    Design design{name, kind, &parent, {}};
    design.look.place = place;
    design.look.text = std::move(text);
    return design;
}

Widget::Widget(const Design& d)
    : name(d.name), index(d.index), kind(d.kind), parent(d.parent),
      window(d.kind == Kind::window ? this : d.parent->window),
      changes_on_assignment(d.changes_on_assignment), panel(d.panel), design(d.look), look(d.look) {
    switch (kind) {
    case Kind::window: all_windows().push_back(this); break;
    case Kind::menu:
    case Kind::menu_item:
    case Kind::separator: window->menus.push_back(this); break;
    default: window->controls.push_back(this);
    }
}

WidgetArray::WidgetArray(int first, int last, int missing,
                         const std::function<Design(int)>& design) {
    for (int i = first; i <= last; ++i)
        if (i != missing) items_.emplace_back(design(i).at_index(i));
}

Widget* WidgetArray::find(int index) {
    for (Widget& item : items_)
        if (item.index == index) return &item;
    return nullptr;
}

Widget& WidgetArray::operator[](int index) { return *find(index); }

std::string full_name(const Widget& widget) {
    if (widget.index < 0) return widget.name;
    return widget.name + "(" + std::to_string(widget.index) + ")";
}

std::vector<Widget*>& all_windows() {
    static std::vector<Widget*> windows;
    return windows;
}

Widget* find_widget(Widget& window, std::string_view name) {
    for (auto* list : {&window.controls, &window.menus})
        for (Widget* widget : *list)
            if (full_name(*widget) == name) return widget;
    return nullptr;
}

} // namespace zol::view
