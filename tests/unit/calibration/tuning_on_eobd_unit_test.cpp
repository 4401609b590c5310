// A unit with a diagnosis link: after each telegram the polling loop reads its live data, and with
// them whatever else is in the receive buffer that it shares with the tuning.
#include "calibration/automatic_tuning.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::tests {
namespace {

struct TuningOnEobdUnit : Bench, testing::WithParamInterface<int> {
    TuningOnEobdUnit()
        : Bench({.family = GetParam(), .version = 7, .revision = 71, .warm = true}) {}

    // With the watchdog that keeps the polling going.
    void start_tuning() {
        start_connected();
        inside_program([] { form1::Timer6.on(); });
        run_for(5000);
        forget_wire();
        press_tuning_key();
    }
    void press_tuning_key() {
        screen.answer_message("Automatic Tuning System", view::Answer::yes);
        operator_presses(form1::Form1, 84, 2);
    }
    void run_until_boxes(std::size_t count) {
        for (int s = 0; s < 600 && screen.message_boxes.size() < count; ++s)
            run_for(1000);
        ASSERT_EQ(screen.message_boxes.size(), count);
    }
    bool live_data_are_shown() {
        view::set_text(form1::Label13, "before");
        run_for(3000);
        return view::text(form1::Label13) != "before";
    }
};

TEST_P(TuningOnEobdUnit, RunsToItsEndBesideThePolling) {
    start_tuning();
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    run_for(600'000);
    EXPECT_EQ(view::text(form1::lbl_tuning), "-- FINISH --");
    EXPECT_FALSE(form1::lbl_tuning.look.visible);
    EXPECT_TRUE(live_data_are_shown());
}

TEST_P(TuningOnEobdUnit, LiveDataAreShownInTheTemperatureGate) {
    use_unit({.family = GetParam(), .version = 7, .revision = 71});
    start_tuning();
    run_for(4000);
    ASSERT_EQ(view::text(form1::lbl_tuning), "-- WAIT TEMPERATURE... --");
    EXPECT_TRUE(live_data_are_shown());
}

TEST_P(TuningOnEobdUnit, LiveDataAreShownBehindTheClosingBox) {
    start_tuning();
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok, 10'000);
    run_until_boxes(2);
    EXPECT_TRUE(live_data_are_shown());
}

TEST_P(TuningOnEobdUnit, MeasuringLeavesLiveDataOut) {
    start_tuning();
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    run_until_boxes(2);
    const auto& sent = port->sent;
    const auto to_gas =
        std::ranges::find_if(sent, [](const auto& each) { return each.frame == Send(22); });
    ASSERT_NE(to_gas, sent.end());
    const auto in_pass = [&](const auto& each, int command) {
        const auto after_ms = each.at_ms - to_gas->at_ms;
        return each.frame == Send(command) && after_ms > 1500 && after_ms < 15'000;
    };
    EXPECT_GT(std::ranges::count_if(sent, [&](const auto& s) { return in_pass(s, 3); }), 20);
    EXPECT_EQ(std::ranges::count_if(sent, [&](const auto& s) { return in_pass(s, 16); }), 0);
}

TEST_P(TuningOnEobdUnit, NestedRunLeavesTheOuterOneMeasuring) {
    start_tuning();
    run_for(6000);
    press_tuning_key();
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    run_until_boxes(4);
    run_for(3000);
    EXPECT_TRUE(live_data_are_shown());
}

INSTANTIATE_TEST_SUITE_P(Families, TuningOnEobdUnit, testing::Values(2, 4));

} // namespace
} // namespace zol::tests
