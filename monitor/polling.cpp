#include "monitor/polling.h"

#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "monitor/eobd_live.h"
#include "monitor/polling_pass.h"
#include "monitor/status_telegram.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

namespace zol::monitor {
namespace {

using app::state;
using link::Command;
using link::Reply;

constexpr int cycle_ms = 300;

// Asks, and takes what the request before this one brought: the wait gives the present request its
// time to be answered. Has no limit, and looks at neither flag nor port: with a silent unit the
// program stays here, pumping, until a telegram comes.
Reply next_reply() {
    for (;;) {
        link::send_command(Command::status);
        Reply reply = link::read_reply();
        link::wait_ms(cycle_ms);
        const bool dropped = !reply.empty() && reply.length() < shortest_telegram;
        if (dropped || reply.echoes(Command::status)) return reply;
        request_is_repeated(cycle_ms);
    }
}

void poll_once() {
    for (;;) {
        const Reply reply = next_reply();
        if (reply.length() >= shortest_telegram) show_telegram(reply);
        // The read of the live data empties the buffer in which the tuning's sampler looks for its
        // telegrams: it would find none, for ever.
        const bool has_eobd =
            (state.ecu_family == 2 || state.ecu_family == 4) && !state.tuning_measures;
        if (!has_eobd || read_eobd_live()) return;
        request_is_repeated(cycle_ms);
    }
}

void poll_ticks() {
    const PollingPass pass;
    view::unload(centralina_attiva::Centralina_Attiva);
    form1::Timer_stato_sistema.off();
    if (state.poll_enabled && link::port_is_open()) {
        poll_once();
        rearm_polling();
    }
    give_tab_stops();
}

// The delayed stop: the telegram under way ends first.
void delayed_stop_ticks() {
    stop_polling();
    form1::Timer_chiusura_stato.off();
}

} // namespace

void start_polling() {
    state.poll_enabled = true;
    form1::Timer_stato_sistema.on();
}

void stop_polling() {
    state.poll_enabled = false;
    form1::Timer_stato_sistema.off();
}

void stop_polling_and_wait() {
    stop_polling();
    link::wait_ms(link::telegram_end_ms);
}

void rearm_polling() {
    if (state.poll_enabled)
        form1::Timer_stato_sistema.on();
    else
        form1::Timer_stato_sistema.off();
}

void give_tab_stops() {
    view::set_tab_stop(form1::Slider_attenuazione, true);
    view::set_tab_stop(form1::Slider_ktar, true);
}

void connect_polling() {
    form1::Timer_stato_sistema.tick = poll_ticks;
    form1::Timer_chiusura_stato.tick = delayed_stop_ticks;
}

} // namespace zol::monitor
