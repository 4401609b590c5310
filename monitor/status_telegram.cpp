#include "monitor/status_telegram.h"

#include "app/app_state.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "link/parameter_mirrors.h"
#include "monitor/lambda_trace.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::monitor {
namespace {

using app::message;
using app::number_text;
using app::state;
using link::mirrors;
using At = TelegramPosition;

void show_word(const link::Reply& telegram, std::size_t position, view::Widget& label) {
    if (const auto word = telegram.word(position)) view::set_text(label, std::to_string(*word));
}

// Changes the colour of Shape2 with each telegram.
void beat() {
    const bool at_rest = form1::Shape2.look.back == state.panel_colour;
    view::set_back(form1::Shape2, at_rest ? view::dark_red : state.panel_colour);
}

void show_battery(const link::Reply& telegram) {
    if (state.ecu_version < 7 || state.ecu_revision < 71) return;
    view::set_visible(form1::Label20, true);
    if (const auto word = telegram.word(At::battery)) {
        const double volts = app::round_half_even(link::battery_volts(*word), 2);
        view::set_text(form1::Label20, "Batt. " + number_text(volts) + "  Volts");
    }
}

// A state without a text of its own is shown as "Changeover". The label is set only once, so that
// it is painted again only when the state changes.
void show_fuel_state(const link::Reply& telegram) {
    const auto fuel_state = telegram.word(At::fuel_state);
    auto text = message(app::messages::changeover);
    const auto replace_by = [&text](int key) {
        if (auto other = message(key)) text = std::move(other);
    };
    state.gas_requested = fuel_state == 2;
    if (fuel_state == 0) {
        replace_by(app::messages::petrol);
        state.on_gas = false;
        state.no_press = false;
    } else if (fuel_state == 1) {
        state.on_gas = true;
        replace_by(mirrors.fuel_type == 1 ? app::messages::lpg : app::messages::methane);
    } else if (fuel_state == 5) {
        text = "NO PRESS";
        state.no_press = true;
    }
    if (text) view::set_text(form1::Label_carburante, *text);
}

} // namespace

void show_telegram(const link::Reply& telegram) {
    link::take(telegram.word(At::temperature), state.water_temperature);
    link::take(telegram.word(At::rpm), state.engine_rpm);
    link::take(telegram.word(At::pressure), state.gas_pressure);
    beat();
    show_word(telegram, At::rpm, form1::Label_rpm);
    show_word(telegram, At::injection_time, form1::Label_tinj);
    link::take(telegram.word(At::lambda), state.lambda_sample);
    trace_on_engine_panel();
    show_word(telegram, At::temperature, form1::Label_temp);
    show_word(telegram, At::tank, form1::Label_level_attuale);
    show_word(telegram, At::tank, form1::label_liv2);
    show_battery(telegram);
    show_word(telegram, At::ktar, form1::Label_ktar);
    show_word(telegram, At::state_number, form1::Label_ct);
    if (mirrors.pressure_sensor == 1)
        show_word(telegram, At::pressure, form1::LabeL_pressure);
    else
        view::set_text(form1::LabeL_pressure, "---   ");
    show_fuel_state(telegram);
    view::set_text(form1::Label_pressione_taratura, number_text(mirrors.calibration_pressure));
    view::set_text(form1::Label27, number_text(view::value(form1::Slider_ktar)));
    view::set_text(form1::Label44, number_text(view::value(form1::Slider_power)));
}

} // namespace zol::monitor
