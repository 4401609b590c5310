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

// Requests a telegram and returns the reply to the previous request; the wait gives the present
// request its time. Repeats without limit and checks neither `poll_enabled` nor the port: if the
// unit is silent, this function keeps pumping until a telegram arrives.
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
        // Reading live data empties the receive buffer, so the tuning would never find the
        // telegrams that it requests.
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

// The delayed stop lets the telegram under way end.
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
