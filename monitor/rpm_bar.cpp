#include "monitor/rpm_bar.h"

#include "app/numbers.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>

namespace zol::monitor {
namespace {

using view::Colour;

constexpr int last_green = 27, last_yellow = 37, last_asked_for = 44;

void light(int lamp, Colour colour) {
    if (view::Widget* it = form1::led_rpm.find(lamp)) view::set_back(*it, colour);
}

void light_all(int first, int last, Colour colour) {
    for (int lamp = first; lamp <= last; ++lamp)
        light(lamp, colour);
}

// The lamp count of a speed from 400 rpm on: 1 and one more each 50 rpm to 1550. No speed gives
// 24: its stretch from 1250 lies inside the steps of 50.
int lamp_count(double rpm) {
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
    if (colour == view::green) {
        light_all(0, count, view::green);
    } else if (colour == view::yellow) {
        light_all(0, last_green, view::green);
        light_all(last_green + 1, count, view::yellow);
    } else if (colour == view::red) {
        light_all(0, last_green, view::green);
        light_all(last_green + 1, last_yellow, view::yellow);
        light_all(last_yellow + 1, count, view::red);
    }
}

void show_rpm(double rpm) {
    light_all(0, last_asked_for, form1::Form1.look.back);
    if (rpm <= 0) return;
    if (rpm < 400)
        light(0, view::green);
    else
        colora_led(lamp_count(rpm), zone(lamp_count(rpm)));
}

void connect_rpm_bar() {
    form1::Timer_rpm.tick = [] { show_rpm(app::val(view::text(form1::Label_rpm))); };
}

} // namespace zol::monitor
