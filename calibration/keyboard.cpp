#include "calibration/keyboard.h"

#include "app/app_state.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "calibration/automatic_tuning.h"
#include "calibration/engine_panel.h"
#include "calibration/parameter_edit.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/operator.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::calibration {
namespace {

using app::state;
using link::wait_ms;
using view::Pointer;
using view::Widget;
namespace par = link::par;

void step_slider(Widget& slider, double step, void (*refresh_tip)()) {
    const double limit = step > 0 ? slider.look.max : slider.look.min;
    const double moved = view::value(slider) + step;
    const bool inside = step > 0 ? moved < limit : moved > limit;
    view::set_value_and_run_handler(slider, inside ? moved : limit);
    if (inside && refresh_tip) refresh_tip();
    view::set_focus(form1::Text2);
}

void toggle_changeover() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    const bool to_petrol = state.on_gas || state.gas_requested || state.no_press;
    monitor::stop_polling_and_wait();
    link::send_command(to_petrol ? link::Command::to_petrol : link::Command::to_gas);
    wait_ms(link::send_settle_ms);
    monitor::start_polling();
    view::set_pointer(form1::Form1, Pointer::normal);
}

bool operator_confirms(const std::string& text, const std::string& title) {
    return view::message_box({text, title, view::Buttons::yes_no}) == view::Answer::yes;
}

// Leaves the restart of polling to the watchdog.
void write_setting(double number, double value) {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling_and_wait();
    link::write_parameter(number, value);
    wait_ms(link::send_settle_ms);
    view::set_pointer(form1::Form1, Pointer::normal);
}

// The answer no also writes: it switches the forced start off.
void set_forced_start() {
    const bool forced = operator_confirms(
        app::message(app::messages::forced_start_question).value_or(""), "Forced START");
    write_setting(par::forced_start_mode, forced ? 1 : 0);
}

void capture_changeover_speed() {
    const double rpm = app::val(view::text(form1::Label_rpm));
    const std::string question =
        app::message(app::messages::changeover_speed_question).value_or("") + app::number_text(rpm);
    if (operator_confirms(question, "RPM SWITCH")) write_setting(par::changeover_rpm, rpm);
}

struct Shortcut {
    int code;
    int shift;
    void (*action)();
};

constexpr int plain = 0, ctrl = view::operator_acts::ctrl_key;

constexpr Shortcut shortcuts[] = {
    {32, plain, toggle_changeover},       // Space
    {70, ctrl, set_forced_start},         // F
    {71, ctrl, capture_changeover_speed}, // G
    {84, ctrl, tune_automatically},       // T
    {86, ctrl, edit_parameter_by_number}, // V
};

struct SliderKey {
    int code;
    Widget& slider;
    double step;
    void (*refresh_tip)(); // null for none
};

// Up lowers the attenuation, because its slider has its lowest value at the top. Up also refreshes
// the tip of Slider_ktar, which has no effect.
constexpr SliderKey slider_keys[] = {
    {33, form1::Slider_power, 10, refresh_power_tip},       // Page Up
    {34, form1::Slider_power, -10, refresh_power_tip},      // Page Down
    {37, form1::Slider_ktar, -10, refresh_ktar_tip},        // Left
    {39, form1::Slider_ktar, 10, refresh_ktar_tip},         // Right
    {38, form1::Slider_attenuazione, -5, refresh_ktar_tip}, // Up
    {40, form1::Slider_attenuazione, 5, nullptr},           // Down
};

// Keys are also handled during the waits of an earlier key's handler.
void key_pressed(int code, int shift) {
    for (const Shortcut& shortcut : shortcuts)
        if (shortcut.code == code && shortcut.shift == shift) return shortcut.action();
    if (shift != plain) return;
    for (const SliderKey& key : slider_keys)
        if (key.code == code) return step_slider(key.slider, key.step, key.refresh_tip);
}

} // namespace

void connect_keyboard() { form1::Form1.on.key = key_pressed; }

} // namespace zol::calibration
