#include "maintenance/factory_reset.h"

#include "app/message_catalogue.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <vector>

namespace zol::maintenance {
namespace {

using link::Command;
using link::mirrors;
using link::Parameter;
using link::parameter;
using link::wait_ms;
using view::Pointer;
namespace par = link::par;

enum class Store { no_mirror, own_mirror, threshold_mirror };
using enum Store;

struct Default {
    const Parameter& parameter; // with its factory value
    Store store;
};

// In the order of writing. Four values are stored in the mirror of the reference threshold, which
// in the end holds the last of them, whatever the unit holds. Some mirrors are not changed.
constexpr Default defaults[] = {
    {parameter(par::low_pressure_delay), own_mirror},
    {parameter(par::calibration_temperature), own_mirror},
    {parameter(par::temperature_correction), own_mirror},
    {parameter(par::tank_min_mv), own_mirror},
    {parameter(par::tank_max_mv), own_mirror},
    {parameter(par::tank_threshold_1), own_mirror},
    {parameter(par::tank_threshold_2), own_mirror},
    {parameter(par::tank_threshold_3), own_mirror},
    {parameter(par::tank_threshold_4), own_mirror},
    {parameter(par::simulated_changeover_delay), no_mirror},
    {parameter(par::modular_changeover), own_mirror},
    {parameter(par::attenuation), own_mirror},
    {parameter(par::main_pulse_change), own_mirror},
    {parameter(par::calibration_pressure), own_mirror},
    {parameter(par::rpm_multiplier), own_mirror},
    {parameter(par::injector_latency), own_mirror},
    {parameter(par::emergency_start_pulses), no_mirror},
    {parameter(par::changeover_rpm), own_mirror},
    {parameter(par::cut_off_inj_time), own_mirror},
    {parameter(par::cut_off_rpm), no_mirror},
    {parameter(par::coil_signal_filter), no_mirror},
    {parameter(par::warm_up_pulses), no_mirror},
    {parameter(par::reference_inj_threshold), own_mirror},
    {parameter(par::reference_ktar), threshold_mirror},
    {parameter(par::internal_215), own_mirror},
    {parameter(par::injector_opening), threshold_mirror},
    {parameter(par::injector_time_constant), threshold_mirror},
    {parameter(par::eobd_correction), no_mirror},
    {parameter(par::eobd_period), no_mirror},
    {parameter(par::internal_54), no_mirror},
    {parameter(par::internal_55), no_mirror},
    {parameter(par::internal_45), no_mirror},
    {parameter(par::eobd_protocol), no_mirror},
    {parameter(par::internal_14), no_mirror},
    {parameter(par::internal_19), no_mirror},
    {parameter(par::debug_flag), no_mirror},
    {parameter(par::lambda_input_kind), no_mirror},
    {parameter(par::changeover_pressure), no_mirror},
};

consteval bool each_factory_value_is_written_once() {
    for (const Parameter& row : link::parameter_catalogue) {
        int times = 0;
        for (const Default& d : defaults)
            times += d.parameter.number == row.number;
        if (times != (row.factory_value ? 1 : 0)) return false;
    }
    return true;
}

consteval bool own_mirrors_exist() {
    for (const Default& d : defaults)
        if (d.store == own_mirror && !d.parameter.mirror) return false;
    return true;
}

static_assert(each_factory_value_is_written_once());
static_assert(own_mirrors_exist());

std::vector<int> correction_cells() {
    std::vector<int> cells;
    for (const link::CellRun& run : link::correction_cell_runs)
        for (int number = run.first; number <= run.last; ++number)
            cells.push_back(number);
    return cells;
}

// A language without this message uses the menu item's caption as the question, so that nothing is
// reset without one.
bool operator_confirms() {
    const auto question = app::message(app::messages::reset_question);
    return view::message_box({.text = question.value_or(view::text(form1::mnu_reset_centralina)),
                              .title = "",
                              .buttons = view::Buttons::yes_no,
                              .icon = view::Icon::question,
                              .no_by_default = true}) == view::Answer::yes;
}

// Repeats the reset command until the unit confirms it.
void reset_unit() {
    for (;;) {
        wait_ms(link::telegram_end_ms);
        link::send_command(Command::reset);
        wait_ms(600);
        const link::Reply reply = link::read_reply();
        const bool good_length = reply.length() == 5 || reply.length() == 6;
        if (good_length && reply.echoes(Command::reset)) return;
    }
}

void write_defaults() {
    for (const Default& d : defaults) {
        const int value = *d.parameter.factory_value;
        if (d.store == own_mirror) mirrors.*d.parameter.mirror = value;
        if (d.store == threshold_mirror) mirrors.reference_inj_threshold = value;
        link::send_parameter(d.parameter.number, value);
        wait_ms(100);
    }
}

} // namespace

void reset_control_unit() {
    const std::vector<int> cells = correction_cells();
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling();
    if (operator_confirms()) {
        view::set_pointer(form1::Form1, Pointer::hourglass);
        reset_unit();
        // The unit restarts in this time.
        wait_ms(1200);
        wait_ms(1800);
        view::set_pointer(form1::Form1, Pointer::hourglass);
        write_defaults();
        for (const int cell : cells)
            link::write_parameter(cell, link::correction_cell_factory_value);
        view::message_box({.text = "FINE RESET ECU", .title = "", .icon = view::Icon::information});
    }
    view::set_pointer(form1::Form1, Pointer::normal);
}

void send_reset_only() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling_and_wait();
    link::send_command(Command::reset);
    wait_ms(link::send_settle_ms);
    view::set_pointer(form1::Form1, Pointer::normal);
}

void connect_factory_reset() { form1::mnu_reset_centralina.on.click = reset_control_unit; }

} // namespace zol::maintenance
