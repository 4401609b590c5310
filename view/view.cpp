#include "view/view.h"

#include "view/screen.h"
#include "view/timers.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace zol::view {
namespace {

ViewState& the_view = view_state;

// Changes one member of a look and reports it to the screen, if the value differs.
template <typename T>
bool assign(Widget& w, T Look::*member, const T& value, Aspect aspect) {
    if (w.look.*member == value) return false;
    w.look.*member = value;
    if (w.window->loaded) the_view.screen->changed(w, aspect);
    return true;
}

// A control that the operator can no longer use gives the focus to its window.
void drop_lost_focus(const Widget& w) {
    if (!the_view.focus || the_view.focus->window != w.window) return;
    if (!reachable(*the_view.focus)) the_view.focus = w.window;
}

Widget* active_window() { return the_view.shown.empty() ? nullptr : the_view.shown.back(); }

// The window is activated in the next turn of the pump, once, if it is still the active one.
void post_activation(Widget& window) {
    if (window.activation_due) return;
    window.activation_due = true;
    post([&window] {
        if (!std::exchange(window.activation_due, false)) return;
        if (&window == active_window()) run(window.on.activate);
    });
}

void leave_stack(Widget& window) {
    const bool was_active = &window == active_window();
    std::erase(the_view.shown, &window);
    window.shown = false;
    if (the_view.focus && the_view.focus->window == &window) the_view.focus = nullptr;
    the_view.screen->window_shown(window, false);
    if (!was_active) return;
    run(window.on.deactivate);
    if (Widget* next = active_window()) post_activation(*next);
}

} // namespace

bool reachable(const Widget& widget) {
    if (!widget.window->shown) return false;
    for (const Widget* w = &widget; w; w = w->parent)
        if (!w->look.visible || !w->look.enabled) return false;
    return true;
}

void use_screen(Screen& screen) { the_view.screen = &screen; }

void set_text(Widget& w, const std::string& text) {
    ++w.times_set;
    if (assign(w, &Look::text, text, Aspect::text) && w.kind == Kind::label) run(w.on.change);
}

void set_tip(Widget& w, const std::string& tip) { assign(w, &Look::tip, tip, Aspect::tip); }

void set_help(Widget& w, const Help& help) {
    if (w.help == help) return;
    w.help = help;
    if (w.window->loaded) the_view.screen->changed(w, Aspect::help);
}

void set_back(Widget& w, Colour colour) { assign(w, &Look::back, colour, Aspect::colours); }
void set_fore(Widget& w, Colour colour) { assign(w, &Look::fore, colour, Aspect::colours); }

void set_visible(Widget& w, bool visible) {
    if (assign(w, &Look::visible, visible, Aspect::visible)) drop_lost_focus(w);
}

void set_enabled(Widget& w, bool enabled) {
    if (assign(w, &Look::enabled, enabled, Aspect::enabled)) drop_lost_focus(w);
}

void set_pointer(Widget& w, Pointer pointer) {
    assign(w, &Look::pointer, pointer, Aspect::pointer);
}

void set_checked(Widget& menu_item, bool checked) {
    assign(menu_item, &Look::checked, checked, Aspect::checked);
}

void set_tab_stop(Widget& w, bool tab_stop) {
    assign(w, &Look::tab_stop, tab_stop, Aspect::tab_stop);
}

void set_edit_marker(Widget& text_box, bool marked) {
    assign(text_box, &Look::edit_marker, marked, Aspect::edit_marker);
}

void set_selection_length(Widget& slider, double length) {
    assign(slider, &Look::selection_length, length, Aspect::range);
}

void set_place(Widget& w, const Place& place) { assign(w, &Look::place, place, Aspect::place); }

void set_font(Widget& w, double points, bool bold) {
    assign(w, &Look::font_size, points, Aspect::font);
    assign(w, &Look::font_bold, bold, Aspect::font);
}

bool set_value_and_run_handler(Widget& w, double value) {
    if (value < w.look.min || value > w.look.max) return false;
    if (assign(w, &Look::value, value, Aspect::value) && w.changes_on_assignment) run(w.on.change);
    return true;
}

bool place_value(Widget& slider, double value) {
    if (value < slider.look.min || value > slider.look.max) return false;
    assign(slider, &Look::value, value, Aspect::value);
    return true;
}

void set_range(Widget& slider, double min, double max) {
    assign(slider, &Look::min, min, Aspect::range);
    assign(slider, &Look::max, max, Aspect::range);
    assign(slider, &Look::value, std::clamp(slider.look.value, min, max), Aspect::value);
}

void place_selected(Widget& option) {
    for (Widget* other : option.window->controls)
        if (other != &option && other->kind == Kind::option_button &&
            other->parent == option.parent)
            assign(*other, &Look::value, 0.0, Aspect::value);
    assign(option, &Look::value, 1.0, Aspect::value);
}

void select_and_run_handler(Widget& w, bool on) {
    if (selected(w) == on) return;
    if (w.kind == Kind::option_button && on)
        place_selected(w);
    else
        assign(w, &Look::value, on ? 1.0 : 0.0, Aspect::value);
    if (on || w.kind == Kind::check_box) run(w.on.click);
}

void set_items(Widget& combo, std::vector<std::string> items) {
    combo.look.list_index = -1;
    combo.look.items = std::move(items);
    combo.look.item_tips.clear();
    combo.look.item_notes.clear();
    if (combo.window->loaded) the_view.screen->changed(combo, Aspect::items);
}

void set_item_tips(Widget& combo, const std::vector<std::string>& tips) {
    assign(combo, &Look::item_tips, tips, Aspect::tip);
}

void set_item_notes(Widget& combo, const std::vector<ItemNote>& notes) {
    assign(combo, &Look::item_notes, notes, Aspect::tip);
}

bool set_list_index(Widget& combo, int index) {
    if (index < -1 || index >= static_cast<int>(combo.look.items.size())) return false;
    assign(combo, &Look::list_index, index, Aspect::value);
    return true;
}

void set_focus(Widget& w) {
    if (!reachable(w) || the_view.focus == &w) return;
    the_view.focus = &w;
    the_view.screen->focus_moved(w);
    run(w.on.got_focus);
}

const Widget* focus() { return the_view.focus; }

namespace {

void draw(Widget& picture, const Stroke& stroke) {
    picture.look.strokes.push_back(stroke);
    if (picture.window->loaded) the_view.screen->changed(picture, Aspect::drawing);
}

} // namespace

void draw_line(Widget& picture, double x1, double y1, double x2, double y2, Colour colour) {
    draw(picture, {Stroke::Shape::line, x1, y1, x2, y2, colour});
}

void fill_rectangle(Widget& picture, double x1, double y1, double x2, double y2, Colour colour) {
    draw(picture, {Stroke::Shape::filled_rectangle, x1, y1, x2, y2, colour});
}

void clear_drawing(Widget& picture) {
    picture.look.strokes.clear();
    if (picture.window->loaded) the_view.screen->changed(picture, Aspect::drawing);
}

void load(Widget& window) {
    if (window.loaded) return;
    window.look = window.design;
    for (auto* list : {&window.controls, &window.menus})
        for (Widget* w : *list)
            w->look = w->design;
    window.loaded = true;
    the_view.screen->window_loaded(window);
    load_timers(window);
    run(window.on.load);
}

void show(Widget& window) {
    load(window);
    if (&window == active_window()) return;
    Widget* before = active_window();
    std::erase(the_view.shown, &window);
    the_view.shown.push_back(&window);
    window.shown = true;
    the_view.screen->window_shown(window, true);
    if (before) run(before->on.deactivate);
    post_activation(window);
}

void hide(Widget& window) {
    if (window.shown) leave_stack(window);
}

void unload(Widget& window) {
    if (!window.loaded || window.unloading) return;
    window.unloading = true;
    run(window.on.closing);
    run(window.on.unload);
    unload_timers(window);
    hide(window);
    window.activation_due = false;
    window.loaded = false;
    window.unloading = false;
    the_view.screen->window_unloaded(window);
}

void show_modal(Widget& window) {
    show(window);
    while (window.shown)
        pump();
}

void set_window_state(Widget& window, WindowState state) {
    assign(window, &Look::state, state, Aspect::window_state);
}

Answer message_box(const MessageBox& box) { return the_view.screen->message_box(box); }

std::string input_box(const std::string& prompt, const std::string& title) {
    return the_view.screen->input_box(prompt, title);
}

Colour colour_box(Colour start) { return the_view.screen->colour_box(start); }

void offer_box_texts(std::map<std::string, std::string> texts) {
    the_view.box_texts = std::move(texts);
}

void show_manual(const std::string& file, const std::string& topic) {
    the_view.screen->show_manual(file, topic);
}

ScreenSize screen_size() { return the_view.screen->size(); }

void reset() {
    for (Widget* window : all_windows()) {
        window->look = window->design;
        window->loaded = window->shown = window->activation_due = window->unloading = false;
        for (auto* list : {&window->controls, &window->menus})
            for (Widget* w : *list) {
                w->look = w->design;
                w->help = {};
                w->times_set = 0;
            }
    }
    the_view.shown.clear();
    the_view.focus = nullptr;
    reset_timers();
}

} // namespace zol::view
