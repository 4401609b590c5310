#include "diagnostics/acquisition_window.h"

#include "app/app_state.h"
#include "app/colours.h"
#include "app/helper_texts.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "app/window_scaling.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "link/parameter_mirrors.h"
#include "monitor/panels.h"
#include "monitor/polling.h"
#include "monitor/status_telegram.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::diagnostics {
namespace {

using namespace acquisizione;
using app::number_text;
using app::round_half_even;
using app::state;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
using view::Widget;
namespace par = link::par;

Widget& the_window = acquisizione::acquisizione;

bool& acquiring = acquisition_state.acquiring;
bool& was_activated = acquisition_state.was_activated;

void window_loads() {
    app::set_message(Command_salva, app::messages::save);
    app::set_message(Command_chiudi, app::messages::close);
    view::set_enabled(form1::Form1, false);
    acquiring = true;
    was_activated = false;
    monitor::stop_polling();
    app::Module_Resize(the_window);
    if (const auto colour = app::text_colour()) {
        view::set_fore(Label1, *colour);
        view::set_fore(Label_max, *colour);
    }
    Timer1.on();
}

void window_activated() {
    if (was_activated) return;
    was_activated = true;
    // The changeover window loads this window without showing it; the main window may have been
    // re-enabled since.
    view::set_enabled(form1::Form1, false);
    monitor::stop_polling();
    view::set_text(Label2, "saved:  " + number_text(mirrors.tinj_upper));
    state.panel_colour = the_window.look.back;
    view::set_back(Label3, state.panel_colour);
    view::set_back(Label4, state.panel_colour);
    wait_ms(link::telegram_end_ms);
    // The window was closed meanwhile: its timers must stay off, even if the changeover window has
    // loaded it again.
    if (!the_window.shown) return;
    acquiring = true;
    Timer_tinj.on();
}

// Runs for every way of closing. Closing by the title bar runs no other handler, so this one
// enables the main window.
void window_unloads() {
    monitor::stop_polling();
    state.settings_panel_open = false;
    view::set_enabled(form1::Form1, true);
}

// Runs once, shortly after the window was opened: a poll pass that was under way then may have
// restarted the timer.
void polling_guard_ticks() {
    if (form1::Timer_stato_sistema.is_on()) monitor::stop_polling();
    Timer1.off();
}

void take_injection_time(const link::Reply& telegram) {
    if (telegram.length() < monitor::shortest_telegram) return;
    if (!telegram.echoes(link::Command::status)) return;
    view::set_text(Label1,
                   std::to_string(*telegram.word(monitor::TelegramPosition::injection_time)));
}

// The window may be closed during either wait; then nothing is shown.
void injection_time_ticks() {
    form1::Timer_stato_sistema.off();
    Timer_ricerca_max.on();
    if (!acquiring) {
        Timer_tinj.off();
        return;
    }
    // A poll pass that began before the window was opened may be reading live data. This read waits
    // while the unit may still answer that one, because each would take the other's replies.
    if (state.eobd_read_under_way) return;
    wait_ms(200);
    if (!link::port_is_open() || !the_window.shown) return;
    link::send_command(link::Command::status);
    wait_ms(200);
    if (!the_window.shown) return;
    take_injection_time(link::read_reply());
    if (!acquiring) Timer_tinj.off();
}

void maximum_ticks() {
    if (app::val(view::text(Label1)) > app::val(view::text(Label_max)))
        view::set_text(Label_max, view::text(Label1));
}

void stop_acquiring() {
    Timer_ricerca_max.off();
    Timer_tinj.off();
    acquiring = false;
}

void enable_buttons(bool enabled) {
    for (Widget* button : {&Command_salva, &Command_reset, &Command_chiudi})
        view::set_enabled(*button, enabled);
}

// A negative value is not sent, even if it would be rounded to 0; the wait stays.
void send_then_wait(int number, double value, int pause_ms) {
    if (value >= 0) link::send_parameter(number, value);
    wait_ms(pause_ms);
}

// Computes the three points, in µs, from the longest injection time. The third is sent twice.
void save_points(double maximum) {
    const double lower = maximum / 2 - 500;
    mirrors.tinj_upper = round_half_even(maximum + 2000);
    mirrors.tinj_lower = round_half_even(lower);
    const double third = mirrors.tinj_upper - 2000 - mirrors.tinj_upper * 3 / 10;
    send_then_wait(par::tinj_upper, mirrors.tinj_upper, 200);
    send_then_wait(par::tinj_third, third, 200);
    send_then_wait(par::tinj_third, third, 200);
    send_then_wait(par::tinj_lower, lower, 400);
}

void save_clicked() {
    view::set_pointer(the_window, Pointer::hourglass);
    enable_buttons(false);
    stop_acquiring();
    wait_ms(400);
    wait_ms(400);
    const double maximum = app::val(view::text(Label_max));
    save_points(maximum);
    acquiring = true;
    if (the_window.shown) {
        Timer_tinj.on();
        Timer_ricerca_max.on();
    }
    enable_buttons(true);
    wait_ms(200);
    view::set_enabled(form1::Form1, true);
    stop_acquiring();
    wait_ms(200);
    view::set_pointer(the_window, Pointer::normal);
    view::unload(the_window);
    wait_ms(400);
    state.ui_loading = false;
    monitor::start_polling();
    wait_ms(800);
    view::set_focus(form1::Text2);
}

// Unloading the window stops the polling that was started just before it; showing the engine panel
// starts it again.
void close_clicked() {
    view::set_pointer(Command_chiudi, Pointer::hourglass);
    Timer1.off();
    view::set_enabled(form1::Form1, true);
    stop_acquiring();
    view::wait_on(Timerx, 200);
    view::set_enabled(form1::Form1, true);
    view::set_focus(form1::Text2);
    monitor::start_polling();
    view::unload(the_window);
    monitor::bring_back_engine_panel();
    state.ui_loading = false;
}

} // namespace

void connect_acquisition_window() {
    the_window.on.load = window_loads;
    the_window.on.activate = window_activated;
    the_window.on.unload = window_unloads;
    Timer1.tick = polling_guard_ticks;
    Timer_tinj.tick = injection_time_ticks;
    Timer_ricerca_max.tick = maximum_ticks;
    Timerx.tick = [] { Timerx.off(); };
    Command_reset.on.click = [] { view::set_text(Label_max, "0"); };
    Command_salva.on.click = save_clicked;
    Command_chiudi.on.click = close_clicked;
    app::note_parameters(Command_salva, {par::tinj_upper, par::tinj_third, par::tinj_lower});
    app::note_parameters(Label2, {par::tinj_upper});
}

} // namespace zol::diagnostics
