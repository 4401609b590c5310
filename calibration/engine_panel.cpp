#include "calibration/engine_panel.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::calibration {
namespace {

using app::number_text;
using app::state;
using link::mirrors;
using link::send_parameter;
using link::wait_ms;
using view::Pointer;
using view::Widget;
namespace par = link::par;

// By how much the gain at high load is below the one at low load, in thousandths.
constexpr double coupling_on_lpg = 200, coupling_on_methane = 300;

// Keys go to the main window's shortcuts alone if no control has the focus.
void give_main_window_focus() { view::set_focus(form1::Form1); }

void show_tip(Widget& gain_slider) {
    view::set_tip(gain_slider, number_text(view::value(gain_slider) - gain_slider.design.min));
}

double coupled_high_gain() {
    const double distance = mirrors.fuel_type == 1 ? coupling_on_lpg : coupling_on_methane;
    return std::max(mirrors.ktar_low - distance, form1::Slider_power.design.min);
}

// Writes the present gas pressure, as shown, as the pressure at calibration.
void capture_calibration_pressure() {
    mirrors.calibration_pressure = app::val(view::text(form1::LabeL_pressure));
    send_parameter(par::calibration_pressure, mirrors.calibration_pressure);
    wait_ms(link::send_settle_ms);
}

void write_both_gains() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    show_tip(form1::Slider_ktar);
    monitor::stop_polling_and_wait();
    mirrors.ktar_low = view::value(form1::Slider_ktar);
    send_parameter(par::ktar_low, mirrors.ktar_low);
    wait_ms(link::send_settle_ms);
    mirrors.ktar_high = coupled_high_gain();
    // If the power slider's value changes, its handler writes the gain inside this assignment and
    // starts polling, which then runs during the rest of this function.
    view::set_value_and_run_handler(form1::Slider_power, mirrors.ktar_high);
    show_tip(form1::Slider_power);
    send_parameter(par::ktar_high, mirrors.ktar_high);
    wait_ms(link::send_settle_ms);
    if (state.on_gas && mirrors.pressure_sensor == 1) capture_calibration_pressure();
    view::set_pointer(form1::Form1, Pointer::normal);
    show_tip(form1::Slider_ktar);
    monitor::start_polling();
}

void ktar_changed() {
    if (!state.ui_loading) write_both_gains();
    give_main_window_focus();
    view::set_pointer(form1::Form1, Pointer::normal);
}

void power_changed() {
    if (state.ui_loading) return;
    view::set_pointer(form1::Form1, Pointer::hourglass);
    show_tip(form1::Slider_power);
    monitor::stop_polling_and_wait();
    mirrors.ktar_high = view::value(form1::Slider_power);
    send_parameter(par::ktar_high, mirrors.ktar_high);
    wait_ms(200);
    view::set_pointer(form1::Form1, Pointer::normal);
    show_tip(form1::Slider_power);
    monitor::start_polling();
    view::set_focus(form1::Text2);
    give_main_window_focus();
}

// Leaves the restart of polling to the watchdog.
void attenuation_changed() {
    if (state.ui_loading) return;
    view::set_pointer(form1::Form1, Pointer::hourglass);
    view::set_enabled(form1::Slider_attenuazione, false);
    monitor::stop_polling_and_wait();
    mirrors.attenuation = view::value(form1::Slider_attenuazione);
    view::set_text(form1::Label_attenuazione, number_text(mirrors.attenuation) + "- ");
    send_parameter(par::attenuation, mirrors.attenuation);
    wait_ms(200);
    view::set_pointer(form1::Form1, Pointer::normal);
    view::set_enabled(form1::Slider_attenuazione, true);
    view::set_focus(form1::Text2);
    give_main_window_focus();
}

// Writes even while the program fills its widgets, and does not stop polling.
void temperature_correction_changed() {
    Widget& slider = form1::Slider3;
    // A value from the unit beyond the designed range has extended it.
    if (view::value(slider) <= slider.design.max)
        view::set_range(slider, slider.design.min, slider.design.max);
    view::set_pointer(form1::Form1, Pointer::hourglass);
    mirrors.temperature_correction = view::value(slider);
    send_parameter(par::temperature_correction, mirrors.temperature_correction);
    wait_ms(200);
    view::set_pointer(form1::Form1, Pointer::normal);
}

// At the end of its range the slider rejects the step and keeps its value.
void step_low_gain(double step) {
    view::set_value_and_run_handler(form1::Slider_ktar, view::value(form1::Slider_ktar) + step);
    refresh_ktar_tip();
    state.ui_loading = false;
    give_main_window_focus();
}

// The multiplier divides the rpm signal: a lower multiplier shows a higher speed.
struct RpmButton {
    Widget& pressed;
    Widget& other;
    int wait_before_ms;
    int wait_after_ms;
};

void begin_rpm_step(const RpmButton& button) {
    view::set_enabled(button.pressed, false);
    view::set_pointer(button.pressed, Pointer::hourglass);
    view::set_pointer(form1::Form1, Pointer::hourglass);
    view::set_enabled(button.other, false);
    monitor::stop_polling();
    wait_ms(button.wait_before_ms);
    if (form1::Timer_stato_sistema.is_on()) { // the watchdog has restarted it meanwhile
        monitor::stop_polling();
        wait_ms(500);
    }
}

// `poll_enabled` is still false, so the polling timer's tick only switches it off again. The
// watchdog, if it runs, restarts polling.
void end_rpm_step(const RpmButton& button) {
    send_parameter(par::rpm_multiplier, mirrors.rpm_multiplier);
    wait_ms(button.wait_after_ms);
    form1::Timer_stato_sistema.on();
    view::set_enabled(form1::Command_rpm_piu, true);
    view::set_enabled(form1::Command_rpm_meno, true);
    view::set_pointer(button.pressed, Pointer::custom);
    view::set_pointer(form1::Form1, Pointer::normal);
}

void show_more_rpm() {
    const RpmButton button{form1::Command_rpm_piu, form1::Command_rpm_meno, 200, 600};
    begin_rpm_step(button);
    // The value does not go below 5: from 2 the next one is 5.
    const double less = mirrors.rpm_multiplier - 5;
    mirrors.rpm_multiplier = less > 0 ? less : 5;
    end_rpm_step(button);
    view::set_focus(form1::Text2);
}

void show_less_rpm() {
    const RpmButton button{form1::Command_rpm_meno, form1::Command_rpm_piu, 400, 300};
    begin_rpm_step(button);
    mirrors.rpm_multiplier += 5;
    end_rpm_step(button);
    give_main_window_focus();
}

void note_all_parameters() {
    using app::note_parameters;
    for (Widget* control : {&form1::Slider_ktar, &form1::Command7, &form1::Command8})
        note_parameters(*control, {par::ktar_low, par::ktar_high, par::calibration_pressure});
    note_parameters(form1::Label27, {par::ktar_low});
    for (Widget* control : {&form1::Slider_power, &form1::Label44})
        note_parameters(*control, {par::ktar_high});
    for (Widget* control : {&form1::Slider_attenuazione, &form1::Label_attenuazione})
        note_parameters(*control, {par::attenuation});
    note_parameters(form1::Label_pressione_taratura, {par::calibration_pressure});
    note_parameters(form1::Slider3, {par::temperature_correction});
    for (Widget* control : {&form1::Command_rpm_piu, &form1::Command_rpm_meno})
        note_parameters(*control, {par::rpm_multiplier});
}

} // namespace

void refresh_ktar_tip() {
    show_tip(form1::Slider_ktar);
    give_main_window_focus();
}

void refresh_power_tip() {
    show_tip(form1::Slider_power);
    give_main_window_focus();
}

void connect_engine_panel() {
    form1::Slider_ktar.on.change = ktar_changed;
    form1::Slider_ktar.on.scroll = refresh_ktar_tip;
    form1::Slider_power.on.change = power_changed;
    form1::Slider_power.on.scroll = refresh_power_tip;
    form1::Slider_attenuazione.on.change = attenuation_changed;
    for (Widget* slider : {&form1::Slider_ktar, &form1::Slider_power, &form1::Slider_attenuazione})
        slider->on.click = give_main_window_focus;
    form1::Slider3.on.change = temperature_correction_changed;
    form1::Command7.on.click = [] { step_low_gain(100); };
    form1::Command8.on.click = [] { step_low_gain(-100); };
    form1::Command_rpm_piu.on.click = show_more_rpm;
    form1::Command_rpm_meno.on.click = show_less_rpm;
    note_all_parameters();
}

} // namespace zol::calibration
