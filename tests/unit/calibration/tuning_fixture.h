// The fixture of the automatic tuning: a warm car, and on request one whose injection times the
// test makes up, with nothing but the tuning on the line.
#pragma once

#include "calibration/automatic_tuning.h"
#include "tests/support/frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {

class TuningTest : public WarmCar {
  protected:
    explicit TuningTest(int fuel = 1) : WarmCar(fuel) {}

    // Ctrl+T, with this answer to its question.
    void start_tuning(view::Answer answer = view::Answer::yes) {
        screen.answer_message("Automatic Tuning System", answer);
        operator_presses(form1::Form1, 84, 2);
    }
    void answer_closing_box(int after_ms = 0) {
        screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok, after_ms);
    }
    void run_until_boxes(std::size_t count) {
        for (int s = 0; s < 600 && screen.message_boxes.size() < count; ++s)
            run_for(1000);
        ASSERT_EQ(screen.message_boxes.size(), count);
    }
    void expect_finish() {
        answer_closing_box();
        run_for(600'000);
        EXPECT_EQ(shown(), "-- FINISH --");
        EXPECT_FALSE(view::visible(form1::lbl_tuning));
    }
    static const std::string& shown() { return text(form1::lbl_tuning); }

    // --- The made-up car

    // The injection time in its telegrams: on petrol until command 22, on gas after it.
    double petrol_time = 2000, gas_time = 1650;
    std::optional<int> fuel_state;    // instead of the one that the commands ask for
    std::vector<std::size_t> lengths; // of the next reads, instead of a telegram's length

    // Starts with the polling loop disabled, so that only the tuning sends frames.
    void start_without_polling() {
        start_between_polls();
        inside_program(
            [] { form1::Timer_stato_sistema.tick = [] { form1::Timer_stato_sistema.off(); }; });
        run_for(500);
        port->alter = [this](link::Bytes) { return telegram(); };
        run_for(500);
        inside_program([] { view::set_text(form1::Label_temp, "90"); });
        follow({&form1::lbl_tuning});
        mark();
    }
    void gain_is(double gain) {
        inside_program([gain] { view::place_value(form1::Slider_ktar, gain); });
    }

    // The stages of a first round that begins on petrol.
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
        const bool gas = asked_for_gas();
        // A fraction is carried over to the next telegram, so that the average is exact.
        double& owed = gas ? owed_gas_ : owed_petrol_;
        owed += gas ? gas_time : petrol_time;
        const int injection_time = static_cast<int>(owed + 1e-6);
        owed -= injection_time;
        link::Bytes bytes = reply_to(Telegram{.injection_time = injection_time,
                                              .pressure = 1400,
                                              .lambda = 0,
                                              .temperature = 90,
                                              .state_number = 0,
                                              .tank = 0,
                                              .fuel_state = fuel_state.value_or(gas ? 1 : 0)});
        if (!lengths.empty()) {
            bytes.resize(lengths.front());
            lengths.erase(lengths.begin());
        }
        return bytes;
    }

    double owed_petrol_ = 0, owed_gas_ = 0;
};

} // namespace zol::tests
