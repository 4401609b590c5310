// A car whose injection times are made up, for the ends of the automatic tuning, and the run's own
// frames without the polling loop's beside them.
#pragma once

#include "calibration/automatic_tuning.h"
#include "tests/unit/calibration/calibration_bench.h"

namespace zol::tests {

class TuningBench : public CalibrationBench {
  protected:
    // What the telegrams say: the time on petrol until command 22 goes out, and on gas behind it.
    double petrol_time = 2000, gas_time = 1650;
    int temperature = 90;
    std::optional<int> fuel_state;    // instead of what the commands ask for
    std::vector<std::size_t> lengths; // of the next reads, where they are not whole telegrams

    // Starts with the polling loop taken out: the run alone is on the wire, to the millisecond.
    void start_without_polling() {
        start_between_polls();
        inside_program(
            [] { form1::Timer_stato_sistema.tick = [] { form1::Timer_stato_sistema.off(); }; });
        run_for(500);
        make_up_telegrams();
        run_for(500);
        inside_program([] { view::set_text(form1::Label_temp, "90"); });
        follow({&form1::lbl_tuning});
        begin_notes();
    }

    void make_up_telegrams() {
        port->alter = [this](link::Bytes) { return telegram(); };
    }

    void gain_stands_at(double gain) {
        inside_program([gain] { view::place_value(form1::Slider_ktar, gain); });
    }

    void start_tuning(view::Answer answer = view::Answer::yes) {
        screen.answer_message("\rAutomatic Tuning System\r", answer);
        operator_presses(form1::Form1, 84, 2);
    }

    // As long as one round takes that begins on petrol, from the key on.
    static constexpr int start_ms = 400, settle_ms = 1000, turn_ms = 900, to_gas_ms = 1400;
    static constexpr int pass_ms = 20 * turn_ms;
    static constexpr int first_decision_ms = start_ms + settle_ms + pass_ms + to_gas_ms + pass_ms;

  private:
    bool asked_for_gas() const {
        for (auto sent = port->sent.rbegin(); sent != port->sent.rend(); ++sent) {
            if (sent->frame == Send(22)) return true;
            if (sent->frame == Send(4)) return false;
        }
        return false;
    }

    link::Bytes telegram() {
        link::Bytes bytes(29, 0);
        bytes[0] = 'P', bytes[1] = 'C', bytes[3] = 29, bytes[4] = 3;
        const bool gas = asked_for_gas();
        // A time with a fraction takes turns between the two beside it; twenty make it up.
        double& owed = gas ? owed_gas_ : owed_petrol_;
        owed += gas ? gas_time : petrol_time;
        const int shown = static_cast<int>(owed + 1e-6);
        owed -= shown;
        put_word(bytes, 6, 850);
        put_word(bytes, 8, shown);
        put_word(bytes, 10, 1400);
        put_word(bytes, 20, temperature);
        put_word(bytes, 26, fuel_state.value_or(gas ? 1 : 0));
        if (!lengths.empty()) {
            bytes.resize(lengths.front());
            lengths.erase(lengths.begin());
        }
        return bytes;
    }

    double owed_petrol_ = 0, owed_gas_ = 0;
};

} // namespace zol::tests
