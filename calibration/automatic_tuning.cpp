#include "calibration/automatic_tuning.h"

#include "app/app_state.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "monitor/polling.h"
#include "monitor/polling_pass.h"
#include "monitor/status_telegram.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <numeric>
#include <optional>

namespace zol::calibration {
namespace {

using app::state;
using app::val;
using link::wait_ms;
using At = monitor::TelegramPosition;

constexpr double warm_enough_c = 50.0;
// The target range: in the end the gas time is below the petrol time by more than gas_margin_us,
// and by less than gas_margin_us + target_width_us. The margin is added to the mean on gas.
constexpr double gas_margin_us = 150.0;
constexpr double target_width_us = 300.0;
constexpr double highest_gain = 1800;
// The run stops before the slider's minimum of 1001: a lower gain means that the gas pressure is
// too high.
constexpr double lowest_tuned_gain = 1100;

enum class Round { again, over };

void show_status(const char* caption) { view::set_text(form1::lbl_tuning, caption); }

// --- Measuring

void show_fuel_state(const link::Reply& telegram) {
    const auto fuel_state = telegram.word(At::fuel_state);
    if (fuel_state == 0) {
        app::set_message(form1::Label_carburante, app::messages::petrol);
        state.on_gas = false;
        state.no_press = false;
    } else if (fuel_state == 1) {
        state.on_gas = true;
        app::set_message(form1::Label_carburante, link::mirrors.fuel_type == 1
                                                      ? app::messages::lpg
                                                      : app::messages::methane);
    } else if (fuel_state == 5) {
        view::set_text(form1::Label_carburante, "NO PRESS");
        state.no_press = true;
        state.gas_requested = false;
    }
}

// Requests a telegram and returns the reply to the previous request. Both this and the polling loop
// read from the same buffer, so a reply that is too short is discarded and the request repeated,
// without limit.
link::Reply next_telegram() {
    for (;;) {
        // Set in each turn, because a tuning that ran inside this one's waits has cleared it at its
        // end.
        state.tuning_measures = true;
        link::send_command(link::Command::status);
        view::set_text(form1::Label_sfondo, "1");
        const link::Reply telegram = link::read_reply();
        wait_ms(600);
        view::set_text(form1::Label_sfondo, std::to_string(telegram.length()));
        if (telegram.length() >= monitor::shortest_telegram) return telegram;
    }
}

double mean_injection_time() {
    for (double& sample : tuning.tinj_samples) {
        const link::Reply telegram = next_telegram();
        view::set_text(form1::Label_rpm, std::to_string(*telegram.word(At::rpm)));
        view::set_text(form1::Label_tinj, std::to_string(*telegram.word(At::injection_time)));
        view::set_text(form1::LabeL_pressure, std::to_string(*telegram.word(At::pressure)));
        show_fuel_state(telegram);
        sample = val(view::text(form1::Label_tinj));
        wait_ms(300);
    }
    state.tuning_measures = false;
    return std::accumulate(tuning.tinj_samples.begin(), tuning.tinj_samples.end(), 0.0) / 20.0;
}

void go_to_petrol() {
    if (state.on_gas || state.gas_requested) {
        monitor::stop_polling();
        wait_ms(200);
        link::send_command(link::Command::to_petrol);
        wait_ms(200);
        monitor::start_polling();
    }
    wait_ms(1000); // the engine settles
    monitor::stop_polling();
}

void go_to_gas() {
    monitor::stop_polling_and_wait();
    link::send_command(link::Command::to_gas);
    wait_ms(1000);
    monitor::start_polling();
}

void measure_both_fuels() {
    go_to_petrol();
    tuning.tinj_petrol_avg = mean_injection_time();
    go_to_gas();
    const double gas_avg = mean_injection_time();
    monitor::start_polling();
    tuning.tinj_gas_adjusted = gas_avg + gas_margin_us;
}

// --- Correcting

// The present gain times the ratio of gas to petrol time. Nothing if the petrol time is 0, that is
// if the engine does not run.
std::optional<double> corrected_gain() {
    if (tuning.tinj_petrol_avg == 0) return std::nullopt;
    const double ratio = tuning.tinj_gas_adjusted / tuning.tinj_petrol_avg;
    return app::round_half_even(view::value(form1::Slider_ktar) * ratio);
}

Round correct_lean() {
    const auto gain = corrected_gain();
    if (gain && *gain >= highest_gain) {
        view::set_value_and_run_handler(form1::Slider_ktar, highest_gain);
        show_status("-- AUTO MAGRA ALZ. PRESS... --");
        return Round::over;
    }
    if (gain) view::set_value_and_run_handler(form1::Slider_ktar, *gain);
    show_status("-- L - REPEAT WAIT TUNING   --");
    return Round::again;
}

Round correct_rich() {
    const auto gain = corrected_gain();
    if (gain && *gain <= lowest_tuned_gain) {
        show_status("-- AUTO RICCA DIMIN. PRESS. --");
        view::set_value_and_run_handler(form1::Slider_ktar, lowest_tuned_gain);
        return Round::over;
    }
    if (gain) view::set_value_and_run_handler(form1::Slider_ktar, *gain);
    show_status("-- R - REPEAT WAIT TUNING   --");
    return Round::again;
}

void finish() {
    show_status("-- FINISH --");
    wait_ms(2000);
    view::set_visible(form1::lbl_tuning, false);
    view::message_box({"AUTO READY TO GO!!!", ""});
}

Round decide() {
    const double petrol = tuning.tinj_petrol_avg, gas = tuning.tinj_gas_adjusted;
    const double lower_edge = petrol - target_width_us;
    if (gas > petrol) return correct_lean();
    if (gas < lower_edge) return correct_rich();
    // Exactly at an edge the run ends without a message.
    if (lower_edge < gas && gas < petrol) finish();
    return Round::over;
}

// --- The run

bool operator_agrees() {
    return view::message_box({"\rAutomatic Tuning System\r",
                              "        Automatic Tuning Mivra           ", view::Buttons::yes_no,
                              view::Icon::information}) == view::Answer::yes;
}

// A text that is not a number counts as 0.
bool engine_is_warm() { return val(view::text(form1::Label_temp)) >= warm_enough_c; }

void show_waiting_for_temperature() { show_status("-- WAIT TEMPERATURE... --"); }

// The polling loop updates the temperature meanwhile.
void wait_for_warm_engine() {
    while (!engine_is_warm()) {
        show_waiting_for_temperature();
        wait_ms(2000);
    }
}

void end() {
    wait_ms(2000);
    view::set_visible(form1::lbl_tuning, false);
}

void run() {
    wait_for_warm_engine();
    wait_ms(400);
    do
        measure_both_fuels();
    while (decide() == Round::again);
    state.tuning_mode = 0;
    end();
}

// Inside a poll pass this must not wait for a warm engine: the wait would delay the pass, and the
// temperature would never be updated. It checks again each time that the pass repeats its requests.
void begin() {
    if (engine_is_warm() || !monitor::pass_is_under_way()) return run();
    show_waiting_for_temperature();
    monitor::after_the_next_repeat(begin);
}

} // namespace

void tune_automatically() {
    if (!operator_agrees()) return end();
    state.tuning_mode = 1;
    view::set_visible(form1::lbl_tuning, true);
    show_status("-- WAIT TUNING... --");
    monitor::after_the_pass(begin);
}

} // namespace zol::calibration
