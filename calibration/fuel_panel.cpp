#include "calibration/fuel_panel.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/message_catalogue.h"
#include "link/ecu_frames.h"
#include "link/entry_field.h"
#include "link/parameter_catalogue.h"
#include "link/parameter_mirrors.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>
#include <span>

namespace zol::calibration {
namespace {

using app::state;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
using view::Widget;
namespace par = link::par;

void park_focus() { view::set_focus(form1::cmd_focus); }

void show_busy(Widget& option) {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    view::set_pointer(option, Pointer::hourglass);
}

// The parameters that a choice of fuel writes. The two choices write different ones; what only one
// choice writes keeps its value.
struct FuelWrite {
    int parameter;
    double& mirror;
    double held;                  // value of the mirror
    double sent;                  // value written to the unit
    std::array<int, 2> settle_ms; // waits after the write; 0: none
};

const FuelWrite methane_writes[] = {
    {par::fuel_type, mirrors.fuel_type, 0, 0, {300}},
    {par::calibration_temperature, mirrors.calibration_temperature, 60, 60, {300, 300}},
    {par::reference_ktar, mirrors.reference_ktar, 1001, 1001, {500}},
    {par::fuel_offset, mirrors.fuel_offset, 92, 92, {500}},
    {par::calibration_pressure, mirrors.calibration_pressure, 1200, 1200, {300}},
};

const FuelWrite lpg_writes[] = {
    {par::fuel_type, mirrors.fuel_type, 1, 1, {200, 300}},
    // The pressure written differs from the one that is shown until the next read of the unit.
    {par::calibration_pressure, mirrors.calibration_pressure, 1200, 1600, {200}},
    {par::fuel_offset, mirrors.fuel_offset, 100, 100, {500, 200}},
    {par::reference_inj_threshold, mirrors.reference_inj_threshold, 0, 0, {500, 300}},
};

void write_in_turn(std::span<const FuelWrite> writes) {
    for (const FuelWrite& write : writes) {
        write.mirror = write.held;
        link::send_parameter(write.parameter, write.sent);
        for (const int ms : write.settle_ms)
            if (ms > 0) wait_ms(ms);
    }
}

void methane_clicked() {
    const bool silent = state.ui_loading;
    show_busy(form1::Option_metano);
    if (!silent) {
        app::set_message(form1::Label_carburante, app::messages::methane);
        write_in_turn(methane_writes);
    }
    view::set_pointer(form1::Form1, Pointer::normal);
    if (!silent) park_focus();
    view::set_pointer(form1::Option_metano, Pointer::custom);
}

void lpg_clicked() {
    if (state.ui_loading) return;
    app::set_message(form1::Label_carburante, app::messages::lpg);
    show_busy(form1::Option_gpl);
    write_in_turn(lpg_writes);
    view::set_pointer(form1::Form1, Pointer::normal);
    view::set_pointer(form1::Option_gpl, Pointer::custom);
}

void pressure_sensor_clicked(Widget& option, double fitted) {
    if (state.ui_loading) return;
    show_busy(option);
    mirrors.pressure_sensor = fitted;
    link::send_parameter(par::pressure_sensor, fitted);
    wait_ms(200);
    view::set_pointer(form1::Form1, Pointer::normal);
    if (fitted == 0) park_focus();
    view::set_pointer(option, Pointer::custom);
}

// Writes only a change from the opposite value. If the unit has any other value, nothing is
// written.
void modular_clicked(Widget& option, double on, const char* caption) {
    if (state.ui_loading) return;
    show_busy(option);
    if (mirrors.modular_changeover == 1 - on) {
        view::select_and_run_handler(option);
        view::set_text(option, caption);
        link::write_parameter(par::modular_changeover, on);
        mirrors.modular_changeover = on;
    }
    view::set_pointer(form1::Form1, Pointer::custom);
    view::set_pointer(option, Pointer::custom);
}

const link::EntryField entries[] = {
    {.field = form1::text_temp_comm,
     .parameter = par::changeover_temperature,
     .mirror = mirrors.changeover_temperature,
     .settle_ms = 200,
     .wait_timer = form1::Timer2,
     .done = park_focus},
    {.field = form1::Text_time_comm,
     .parameter = par::changeover_time,
     .mirror = mirrors.changeover_time,
     .settle_ms = 200,
     .wait_timer = form1::Timer2,
     .done = park_focus},
};

} // namespace

void connect_fuel_panel() {
    using namespace form1;
    Option_metano.on.click = methane_clicked;
    Option_gpl.on.click = lpg_clicked;
    Option_press_yes.on.click = [] { pressure_sensor_clicked(Option_press_yes, 1); };
    Option_press_no.on.click = [] { pressure_sensor_clicked(Option_press_no, 0); };
    Opt_modulare_yes.on.click = [] { modular_clicked(Opt_modulare_yes, 1, "yes"); };
    Opt_modulare_no.on.click = [] { modular_clicked(Opt_modulare_no, 0, "no"); };
    for (const link::EntryField& entry : entries)
        link::connect_entry_field(entry);
    for (const FuelWrite& write : methane_writes)
        app::note_parameters(Option_metano, {write.parameter});
    for (const FuelWrite& write : lpg_writes)
        app::note_parameters(Option_gpl, {write.parameter});
    for (Widget* option : {&Option_press_yes, &Option_press_no})
        app::note_parameters(*option, {par::pressure_sensor});
    for (Widget* option : {&Opt_modulare_yes, &Opt_modulare_no})
        app::note_parameters(*option, {par::modular_changeover});
}

} // namespace zol::calibration
