#include "tests/soak/random_operator.h"

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

// Controls that end or block a run for long are used less often. All others have the weight 1.
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
    // There are more menu items than controls of the visible panel.
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

std::vector<Widget*> usable_windows() {
    std::vector<Widget*> some;
    for (Widget* window : view::all_windows())
        if (reachable(*window) && window->name != "frmSplash") some.push_back(window);
    return some;
}

} // namespace

void RandomOperator::act_once(Session& session, const std::string& what,
                              std::function<void()> work) {
    // A box may have opened, or the program ended, since the act was drawn.
    if (session.ended() || session.box_is_up()) return;
    ++acts_;
    session.act(what, std::move(work));
}

void RandomOperator::pause(Session& session, int longest_ms) {
    if (dice_.chance(0.3)) return;
    session.pass(dice_.between(1, longest_ms));
}

Widget* RandomOperator::some_widget() {
    std::vector<std::pair<Widget*, double>> choices;
    double sum = 0;
    for (const Widget* window : usable_windows())
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

std::string RandomOperator::some_text() {
    static const char* const texts[] = {
        "0",    "1",    "5",     "12",    "50",           "99",   "100",  "250",      "400", "850",
        "1234", "2500", "4000",  "65535", "65536",        "-5",   "12.5", "99.5",     "",    "abc",
        "45x",  "1e5",  "  7  ", "3.5.7", "999999999999", "-0.4", "0.5",  "\xC3\x9F", "+8",  ".25"};
    if (dice_.chance(0.01)) return std::string(400, '9');
    return texts[dice_.next() % std::size(texts)];
}

void RandomOperator::use_field(Session& session, Widget& field) {
    const std::string name = widget_name(field);
    act_once(session, "enters " + name, [&field] { click(field); });
    pause(session, 1500);
    const std::string text = some_text();
    act_once(session, "types \"" + text + "\" into " + name, [&session, &field, text] {
        session.checks.operator_types = true;
        type(field, text);
        session.checks.operator_types = false;
    });
    pause(session, 1500);
    if (dice_.chance(0.15)) return;
    act_once(session, "presses Enter in " + field.window->name,
             [&field] { key(*field.window, enter, 0); });
}

void RandomOperator::use_slider(Session& session, Widget& slider) {
    const std::string name = widget_name(slider);
    const auto to = [&](double value) {
        return name + " to " + std::to_string(std::lround(value));
    };
    const double low = slider.look.min, high = slider.look.max;
    const auto any = [&] { return dice_.between(static_cast<int>(low), static_cast<int>(high)); };
    switch (dice_.between(0, 3)) {
    case 0: { // a key or wheel step
        const int by = dice_.chance(0.5) ? slider.look.small_change : slider.look.large_change;
        const double value =
            std::clamp(slider.look.value + (dice_.chance(0.5) ? by : -by), low, high);
        return act_once(session, "steps " + to(value),
                        [&slider, value] { drag_to(slider, value); });
    }
    case 1: { // slowly, while the program runs
        const double before = slider.look.value;
        for (int move = dice_.between(1, 4); move > 0; --move) {
            const double value = any();
            act_once(session, "moves " + to(value), [&slider, value] { drag_on(slider, value); });
            pause(session, 800);
        }
        return act_once(session, "releases " + name,
                        [&slider, before] { end_drag(slider, before); });
    }
    default: {
        const double value = any();
        return act_once(session, "drags " + to(value),
                        [&slider, value] { drag_to(slider, value); });
    }
    }
}

void RandomOperator::use(Session& session, Widget& widget) {
    const std::string name = widget_name(widget);
    if (widget.kind == Kind::slider) return use_slider(session, widget);
    if (widget.kind == Kind::text_box && dice_.chance(0.9)) return use_field(session, widget);
    if (widget.kind == Kind::combo_box && !widget.look.items.empty()) {
        const int index = dice_.between(0, static_cast<int>(widget.look.items.size()) - 1);
        return act_once(session, "chooses " + std::to_string(index) + " in " + name,
                        [&widget, index] { choose(widget, index); });
    }
    if (widget.on.double_click && (!widget.on.click || dice_.chance(0.5)))
        return act_once(session, "double-clicks " + name, [&widget] { double_click(widget); });
    act_once(session, "clicks " + name, [&widget] { click(widget); });
}

void RandomOperator::press_key(Session& session) {
    struct Key {
        int code, shift;
    };
    static constexpr Key keys[] = {{32, 0},  {33, 0},    {34, 0},  {37, 0},  {38, 0},  {39, 0},
                                   {40, 0},  {enter, 0}, {'F', 2}, {'G', 2}, {'T', 2}, {'V', 2},
                                   {37, 4},  {32, 1},    {'T', 3}, {36, 0},  {35, 0},  {27, 0},
                                   {'F', 0}, {112, 0},   {9, 0},   {'V', 2}, {39, 0},  {37, 0}};
    const auto windows = usable_windows();
    if (windows.empty()) return;
    Widget& window = *windows[dice_.next() % windows.size()];
    const Key pressed = keys[dice_.next() % std::size(keys)];
    // A held key repeats.
    const int times = dice_.chance(0.1) ? dice_.between(2, 12) : 1;
    for (int i = 0; i < times && reachable(window); ++i) {
        act_once(session,
                 "presses " + std::to_string(pressed.code) + "/" + std::to_string(pressed.shift) +
                     " in " + window.name,
                 [&window, pressed] { key(window, pressed.code, pressed.shift); });
        if (times > 1) session.pass(30);
    }
}

void RandomOperator::move_focus(Session& session) {
    Widget* widget = some_widget();
    if (!widget) return;
    act_once(session, "focuses " + widget_name(*widget), [widget] { focus(*widget); });
}

void RandomOperator::close_window(Session& session) {
    const auto windows = usable_windows();
    if (windows.empty()) return;
    Widget& window = *windows[dice_.next() % windows.size()];
    if (&window == &form1::Form1 && !dice_.chance(0.05)) return;
    act_once(session, "closes " + window.name, [&window] { close(window); });
}

void RandomOperator::act(Session& session) {
    if (session.box_is_up() || session.ended()) return;
    const double kind = dice_.unit();
    if (kind < 0.14) return press_key(session);
    if (kind < 0.18) return move_focus(session);
    if (kind < 0.21) return close_window(session);
    if (Widget* widget = some_widget()) use(session, *widget);
}

} // namespace zol::soak
