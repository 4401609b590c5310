// The acquisition window on the bench: opened on a quiet line, with telegrams made to order.
#pragma once

#include "app/app_state.h"
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::tests {

namespace acq = acquisizione;

inline link::Bytes telegram(int injection_time, std::size_t length = 29, int echo = 3) {
    link::Bytes bytes(29, 0);
    bytes[4] = static_cast<std::uint8_t>(echo);
    bytes[7] = static_cast<std::uint8_t>(injection_time / 256);
    bytes[8] = static_cast<std::uint8_t>(injection_time % 256);
    bytes.resize(length, 0);
    return bytes;
}

class Acquisition : public LogicTest {
  protected:
    // The unit's telegrams name this injection time from now on.
    void engine_injects(int injection_time, std::size_t length = 29, int echo = 3) {
        port->alter = [=](const link::Bytes&) { return telegram(injection_time, length, echo); };
    }
    void start_and_stop_polling() {
        start_connected();
        inside_program(monitor::stop_polling);
        run_for(1000);
        forget_wire();
    }
    // Opened with no poll under way, so that its waits are its own.
    void open_window() {
        start_and_stop_polling();
        opened_ms = now_ms();
        operator_clicks(form1::Command5);
    }
    // Open, with this maximum on view, and no reading of the main window behind its closing.
    void open_with_maximum(const std::string& maximum) {
        open_window();
        run_for(2000);
        app::state.no_reread = true;
        port->silent = true; // nothing raises the maximum
        view::set_text(acq::Label1, "0");
        view::set_text(acq::Label_max, maximum);
        forget_wire();
        clicked_ms = now_ms();
    }
    static bool any_timer_on() {
        return acq::Timer_tinj.is_on() || acq::Timer_ricerca_max.is_on() || acq::Timer1.is_on() ||
               acq::Timerx.is_on();
    }
    std::vector<std::int64_t> write_times() const {
        std::vector<std::int64_t> times;
        for (const auto& sent : port->sent)
            if (sent.bytes.size() == 9) times.push_back(sent.at_ms - clicked_ms);
        return times;
    }
    std::int64_t opened_ms = 0, clicked_ms = 0;
};

} // namespace zol::tests
