#include "monitor/eobd_live.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/telegram_positions.h"
#include "monitor/polling_pass.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::monitor {
namespace {

using app::state;

constexpr int no_data = 255;
constexpr int reply_ms = 100;

std::string trim_text(int byte) { return app::number_text(link::trim_percent(byte)) + " % "; }

void show_loop_state(int loop_state) {
    if (loop_state == 0) view::set_text(form1::Label1, "OPEN LOOP  ");
    if (loop_state == 2) view::set_text(form1::Label1, "CLOSED LOOP  ");
    if (loop_state == 4) view::set_text(form1::Label1, "OPEN LOOP TRANS.  ");
}

void show_live_data(const link::Reply& reply) {
    const int fast_trim = *reply.byte(7), long_trim = *reply.byte(8);
    if (fast_trim == 0 && long_trim == 0) {
        view::set_text(form1::Label1, "WAIT INIT  PROT..  ");
        for (view::Widget* label : {&form1::Label13, &form1::Label14, &form1::Label42})
            view::set_text(*label, "--");
        return;
    }
    view::set_text(form1::Label13, trim_text(fast_trim));
    view::set_text(form1::Label14, trim_text(long_trim));
    view::set_text(form1::Label49, "L= " + std::to_string(*reply.word(9)));
    view::set_text(form1::Label42, std::to_string(*reply.word(11)) + "mV");
    show_loop_state(*reply.byte(6));
}

// The count is a total over the whole run, so after four such replies a single one shows the text.
void count_lost(const link::Reply& reply) {
    state.lost_counter += 1;
    if (reply.byte(6) == no_data && state.lost_counter >= 4)
        view::set_text(form1::Label1, "LOST CONNECTION");
}

// The lambda panel and the acquisition window request status telegrams themselves.
bool another_reads_the_status() {
    return form1::Timer3.is_on() || acquisizione::Timer_tinj.is_on();
}

// Both kinds of read use one receive buffer, so each would take the other's replies without end.
// While the unit may still answer this request, the other readers wait (`eobd_read_under_way`).
// After that this function asks only once in `repeat_timeout_ms`. It must not stop asking, because
// it may have begun inside a wait of the other reader, which cannot continue before this returns.
bool read_until_shown() {
    for (int repeated_ms = 0;; repeated_ms += reply_ms) {
        if (repeated_ms >= repeat_timeout_ms) {
            state.eobd_read_under_way = false;
            if (another_reads_the_status()) link::wait_ms(repeat_timeout_ms);
        }
        link::send_command(link::Command::eobd_live);
        link::wait_ms(reply_ms);
        const link::Reply reply = link::read_reply();
        if (reply.length() == 8) return false;
        if (reply.length() == 12) {
            if (reply.byte(7) == no_data)
                count_lost(reply);
            else
                show_live_data(reply);
            return true;
        }
        request_is_repeated(reply_ms);
    }
}

} // namespace

bool read_eobd_live() {
    state.eobd_read_under_way = true;
    const bool shown = read_until_shown();
    state.eobd_read_under_way = false;
    return shown;
}

} // namespace zol::monitor
