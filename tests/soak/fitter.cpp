#include "tests/soak/fitter.h"

#include "view/operator.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace zol::soak {
namespace {

using namespace view::operator_acts;
using view::Kind;
using view::Widget;

// What ends or blocks a run for long is done less often than the rest, or there would be nothing
// else to see. All else has the weight 1.
double weight(const Widget& widget) {
    static const std::map<std::string, double> rare = {
        {"Form1.Command_exit", 0.03},
        {"Centralina_Attiva.Command_cancel", 0.2},
        {"Form1.Command_hyperterminal", 0.03},
        {"Form1.Command_scarico", 0.03},
        {"Form1.mnu_reset_centralina", 0.3},
        {"Form1.Label12", 0.3},
        {"Form1.Label18", 0.3},
    };
    const auto found = rare.find(widget_name(widget));
    if (found != rare.end()) return found->second;
    // The menus would outnumber the panel that is on view.
    return widget.kind == Kind::menu_item ? 0.3 : 1;
}

bool answers(const Widget& widget) {
    const view::Handlers& on = widget.on;
    switch (widget.kind) {
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box:
    case Kind::text_box:
    case Kind::combo_box:
    case Kind::slider: return true;
    case Kind::label: return on.click || on.double_click;
    case Kind::menu_item: return static_cast<bool>(on.click);
    default: return false;
    }
}

std::vector<Widget*> windows_on_view() {
    std::vector<Widget*> some;
    for (Widget* window : view::all_windows())
        if (reachable(*window) && window->name != "frmSplash") some.push_back(window);
    return some;
}

} // namespace

void Fitter::do_it(Desk& desk, const std::string& what, std::function<void()> work) {
    // A box may have come up, or the end, since he made up his mind.
    if (desk.ended() || desk.box_is_up()) return;
    ++acts_;
    desk.act(what, std::move(work));
}

void Fitter::pause(Desk& desk, int longest_ms) {
    if (dice_.chance(0.3)) return;
    desk.pass(dice_.between(1, longest_ms));
}

Widget* Fitter::some_widget() {
    std::vector<std::pair<Widget*, double>> choices;
    double sum = 0;
    for (const Widget* window : windows_on_view())
        for (const auto* list : {&window->controls, &window->menus})
            for (Widget* widget : *list)
                if (answers(*widget) && reachable(*widget)) {
                    sum += weight(*widget);
                    choices.emplace_back(widget, sum);
                }
    const double at = dice_.unit() * sum;
    for (const auto& [widget, up_to] : choices)
        if (at < up_to) return widget;
    return nullptr;
}

std::string Fitter::some_text() {
    static const char* const texts[] = {
        "0",    "1",    "5",     "12",    "50",           "99",   "100",  "250",      "400", "850",
        "1234", "2500", "4000",  "65535", "65536",        "-5",   "12.5", "99.5",     "",    "abc",
        "45x",  "1e5",  "  7  ", "3.5.7", "999999999999", "-0.4", "0.5",  "\xC3\x9F", "+8",  ".25"};
    if (dice_.chance(0.01)) return std::string(400, '9');
    return texts[dice_.next() % std::size(texts)];
}

void Fitter::use_field(Desk& desk, Widget& field) {
    const std::string name = widget_name(field);
    do_it(desk, "enters " + name, [&field] { click(field); });
    pause(desk, 1500);
    const std::string text = some_text();
    do_it(desk, "types \"" + text + "\" into " + name, [&desk, &field, text] {
        desk.checks.operator_types = true;
        type(field, text);
        desk.checks.operator_types = false;
    });
    pause(desk, 1500);
    if (dice_.chance(0.15)) return;
    do_it(desk, "presses Enter in " + field.window->name,
          [&field] { key(*field.window, enter, 0); });
}

void Fitter::use_slider(Desk& desk, Widget& slider) {
    const std::string name = widget_name(slider);
    const auto to = [&](double value) {
        return name + " to " + std::to_string(std::lround(value));
    };
    const double low = slider.look.min, high = slider.look.max;
    const auto any = [&] { return dice_.between(static_cast<int>(low), static_cast<int>(high)); };
    switch (dice_.between(0, 3)) {
    case 0: { // a key or the wheel
        const int by = dice_.chance(0.5) ? slider.look.small_change : slider.look.large_change;
        const double value =
            std::clamp(slider.look.value + (dice_.chance(0.5) ? by : -by), low, high);
        return do_it(desk, "steps " + to(value), [&slider, value] { drag_to(slider, value); });
    }
    case 1: { // slowly, with the world going on beneath the hand
        const double before = slider.look.value;
        for (int move = dice_.between(1, 4); move > 0; --move) {
            const double value = any();
            do_it(desk, "moves " + to(value), [&slider, value] { drag_on(slider, value); });
            pause(desk, 800);
        }
        return do_it(desk, "lets go of " + name, [&slider, before] { end_drag(slider, before); });
    }
    default: {
        const double value = any();
        return do_it(desk, "drags " + to(value), [&slider, value] { drag_to(slider, value); });
    }
    }
}

void Fitter::use(Desk& desk, Widget& widget) {
    const std::string name = widget_name(widget);
    if (widget.kind == Kind::slider) return use_slider(desk, widget);
    if (widget.kind == Kind::text_box && dice_.chance(0.9)) return use_field(desk, widget);
    if (widget.kind == Kind::combo_box && !widget.look.items.empty()) {
        const int index = dice_.between(0, static_cast<int>(widget.look.items.size()) - 1);
        return do_it(desk, "chooses " + std::to_string(index) + " in " + name,
                     [&widget, index] { choose(widget, index); });
    }
    if (widget.on.double_click && (!widget.on.click || dice_.chance(0.5)))
        return do_it(desk, "double-clicks " + name, [&widget] { double_click(widget); });
    do_it(desk, "clicks " + name, [&widget] { click(widget); });
}

void Fitter::press_key(Desk& desk) {
    struct Key {
        int code, shift;
    };
    static constexpr Key keys[] = {{32, 0},  {33, 0},    {34, 0},  {37, 0},  {38, 0},  {39, 0},
                                   {40, 0},  {enter, 0}, {'F', 2}, {'G', 2}, {'T', 2}, {'V', 2},
                                   {37, 4},  {32, 1},    {'T', 3}, {36, 0},  {35, 0},  {27, 0},
                                   {'F', 0}, {112, 0},   {9, 0},   {'V', 2}, {39, 0},  {37, 0}};
    const auto windows = windows_on_view();
    if (windows.empty()) return;
    Widget& window = *windows[dice_.next() % windows.size()];
    const Key pressed = keys[dice_.next() % std::size(keys)];
    // Held down, it repeats.
    const int times = dice_.chance(0.1) ? dice_.between(2, 12) : 1;
    for (int i = 0; i < times && reachable(window); ++i) {
        do_it(desk,
              "presses " + std::to_string(pressed.code) + "/" + std::to_string(pressed.shift) +
                  " in " + window.name,
              [&window, pressed] { key(window, pressed.code, pressed.shift); });
        if (times > 1) desk.pass(30);
    }
}

void Fitter::move_focus(Desk& desk) {
    Widget* widget = some_widget();
    if (!widget) return;
    do_it(desk, "goes to " + widget_name(*widget), [widget] { focus(*widget); });
}

void Fitter::close_window(Desk& desk) {
    const auto windows = windows_on_view();
    if (windows.empty()) return;
    Widget& window = *windows[dice_.next() % windows.size()];
    if (&window == &form1::Form1 && !dice_.chance(0.05)) return;
    do_it(desk, "closes " + window.name, [&window] { close(window); });
}

void Fitter::act(Desk& desk) {
    if (desk.box_is_up() || desk.ended()) return;
    const double kind = dice_.unit();
    if (kind < 0.14) return press_key(desk);
    if (kind < 0.18) return move_focus(desk);
    if (kind < 0.21) return close_window(desk);
    if (Widget* widget = some_widget()) use(desk, *widget);
}

} // namespace zol::soak
