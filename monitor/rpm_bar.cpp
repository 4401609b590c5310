#include "monitor/rpm_bar.h"

#include "app/numbers.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <optional>

namespace zol::monitor {
namespace {

using view::Colour;

constexpr int last_green = 27, last_yellow = 37;

// The colour that colora_led() gives to a lamp; nothing if the lamp keeps its colour.
std::optional<Colour> lit_colour(int lamp, int count, Colour colour) {
    if (colour == view::green) return lamp <= count ? std::optional(view::green) : std::nullopt;
    if (colour != view::yellow && colour != view::red) return std::nullopt;
    if (lamp <= last_green) return view::green;
    if (colour == view::red && lamp <= last_yellow) return view::yellow;
    return lamp <= count ? std::optional(colour) : std::nullopt;
}

// The lamp up to which a speed lights the bar; -1 for none. From 400 rpm it is 1, plus 1 for each
// further 50 rpm up to 1550. No speed gives 24. The values from 42 on are beyond the end of the
// bar, whose last lamp is 41.
int lamp_count(double rpm) {
    if (rpm <= 0) return -1;
    if (rpm < 400) return 0;
    if (rpm < 1550) return static_cast<int>((rpm - 400) / 50) + 1;
    if (rpm < 1700) return 25;
    if (rpm < 2000) return 26;
    if (rpm < 2400) return 27;
    if (rpm < 8000) return static_cast<int>((rpm - 2400) / 400) + 28;
    if (rpm < 8500) return 42;
    if (rpm < 9000) return 43;
    return 44;
}

Colour zone(int count) {
    return count <= last_green ? view::green : count <= last_yellow ? view::yellow : view::red;
}

} // namespace

void colora_led(int count, Colour colour) {
    for (view::Widget& lamp : form1::led_rpm.all())
        if (const auto lit = lit_colour(lamp.index, count, colour)) view::set_back(lamp, *lit);
}

void show_rpm(double rpm) {
    const int count = lamp_count(rpm);
    const Colour off = form1::Form1.look.back;
    for (view::Widget& lamp : form1::led_rpm.all())
        view::set_back(lamp, lit_colour(lamp.index, count, zone(count)).value_or(off));
}

void connect_rpm_bar() {
    form1::Timer_rpm.tick = [] { show_rpm(app::val(view::text(form1::Label_rpm))); };
}

} // namespace zol::monitor
