#include "monitor/side_timers.h"

#include "app/app_state.h"
#include "app/captions.h"
#include "app/colours.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "link/read_marks.h"
#include "link/tank_display.h"
#include "monitor/lambda_trace.h"
#include "monitor/polling.h"
#include "monitor/status_telegram.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"

#include <algorithm>

namespace zol::monitor {
namespace {

using app::number_text;
using app::state;
using link::mirrors;

constexpr view::Colour button_grey = view::rgb(192, 192, 192);
// PAR_5 of a unit whose injection time was never acquired, in µs.
constexpr double tinj_not_acquired = 2502;

// The lambda panel's status read. It does not wait: its reply is read 100 ms later, by the next
// tick.
void lambda_panel_reads() {
    form1::Timer_stato_sistema.off();
    // A poll pass that began before the panel was opened may be reading live data. This read waits
    // while the unit may still answer that one, because each would take the other's replies.
    if (link::port_is_open() && !state.eobd_read_under_way) {
        link::send_command(link::Command::status);
        const link::Reply telegram = link::read_reply();
        if (telegram.length() >= shortest_telegram && telegram.echoes(link::Command::status)) {
            const auto state_number = telegram.word(TelegramPosition::state_number);
            if (*state_number < 10)
                view::set_text(form1::Label_stato, std::to_string(*state_number));
            trace_on_lambda_panel(telegram);
        }
    }
    rearm_polling();
    give_tab_stops();
}

// Blinks the label of the automatic tuning, even while it is hidden. Only if a text colour is set.
void tuning_line_blinks() {
    const auto colour = app::text_colour();
    if (!colour) return;
    const bool coloured = form1::lbl_tuning.look.fore == *colour;
    view::set_fore(form1::lbl_tuning, coloured ? view::black : *colour);
}

void remind(view::Widget& widget, bool reminding, view::Colour at_rest) {
    const bool flip = reminding && widget.look.back == at_rest;
    view::set_back(widget, flip ? view::red : at_rest);
}

void guard_and_remind() {
    if (state.settings_panel_open) stop_polling();
    remind(form1::Command5, mirrors.tinj_lower == tinj_not_acquired, button_grey);
    remind(form1::lbl_ore, mirrors.last_check_day == 0, form1::Form1.look.back);
}

// The watchdog. It is started at the end of the connection dialog and never stopped.
void restart_polling() {
    if (!state.settings_panel_open && !form1::Timer_stato_sistema.is_on()) start_polling();
}

void show_fuel() {
    if (mirrors.fuel_type == 1) {
        app::set_message(form1::Label_carburante, app::messages::lpg);
        view::select_and_run_handler(form1::Option_gpl);
    } else if (mirrors.fuel_type == 0) {
        view::select_and_run_handler(form1::Option_metano);
        app::set_message(form1::Label_carburante, app::messages::methane);
    }
}

void show_temperature_correction() {
    const double shown = mirrors.temperature_correction > 20 ? 10 : mirrors.temperature_correction;
    // Values from 11 to 20 are shown as they are, although the operator can only choose up to 10.
    view::set_range(form1::Slider3, form1::Slider3.design.min,
                    std::max(form1::Slider3.design.max, shown));
    view::set_value_and_run_handler(form1::Slider3, shown);
}

// Fills the main window once with what the dialog path has read.
void fill_after_dialog() {
    state.ui_loading = true;
    app::fill_tank_list();
    if (state.tank_type == 99) link::show_tank_type(99);
    link::show_gains();
    show_fuel();
    view::set_text(form1::text_temp_comm, number_text(mirrors.changeover_temperature));
    link::show_tank_ends();
    link::show_tank_thresholds(false);
    view::select_and_run_handler(mirrors.pressure_sensor == 1 ? form1::Option_press_yes
                                                              : form1::Option_press_no);
    view::set_value_and_run_handler(form1::Slider_attenuazione, mirrors.attenuation);
    view::set_text(form1::Label_attenuazione, number_text(mirrors.attenuation));
    show_temperature_correction();
    view::set_text(form1::Text_time_comm, number_text(mirrors.changeover_time));
    state.ui_loading = false;
    form1::Timer1.off();
    view::unload(frm_splash::frmSplash);
    view::set_enabled(form1::Form1, true);
    view::set_window_state(form1::Form1, view::WindowState::maximised);
    view::set_pointer(form1::Form1, view::Pointer::normal);
    view::set_focus(form1::Text2);
}

} // namespace

void connect_side_timers() {
    form1::Timer1.tick = fill_after_dialog;
    form1::Timer3.tick = lambda_panel_reads;
    form1::Timer4.tick = tuning_line_blinks;
    form1::Timer5.tick = guard_and_remind;
    form1::Timer6.tick = restart_polling;
}

} // namespace zol::monitor
