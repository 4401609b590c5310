// The fixture of the acquisition window: opened on a quiet line, with telegrams made to order.
#pragma once

#include "monitor/polling.h"
#include "tests/support/frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::tests {

namespace acq = acquisizione;

class Acquisition : public LogicTest {
  protected:
    // The unit's telegrams have this injection time from now on.
    void engine_injects(int injection_time, std::size_t length = 29, int echo = 3) {
        const Telegram telegram{.injection_time = injection_time, .echo = echo};
        port->alter = [bytes = of_length(reply_to(telegram), length)](const link::Bytes&) {
            return bytes;
        };
    }
    void open_window() {
        start_quietly();
        operator_clicks(form1::Command5);
    }
    // Open with this maximum on a silent line. The main window will not read the unit again.
    void open_with_maximum(const std::string& maximum) {
        open_window();
        run_for(2000);
        app::state.no_reread = true;
        port->silent = true;
        view::set_text(acq::Label1, "0");
        view::set_text(acq::Label_max, maximum);
        mark();
    }
    void save_with_maximum(const std::string& maximum) {
        open_with_maximum(maximum);
        operator_clicks(acq::Command_salva);
    }
    static bool any_timer_on() {
        return acq::Timer_tinj.is_on() || acq::Timer_ricerca_max.is_on() || acq::Timer1.is_on() ||
               acq::Timerx.is_on();
    }
};

} // namespace zol::tests
