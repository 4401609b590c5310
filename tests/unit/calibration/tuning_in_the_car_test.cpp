// The automatic tuning: measuring, the temperature gate, and what happens during a run.
#include "tests/unit/calibration/tuning_fixture.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using view::Answer;

class TuningInTheCar : public TuningTest {};

// --- Measuring

TEST_F(TuningInTheCar, ShortReplyGivesNoSample) {
    start_without_polling();
    lengths = {0, 26, 27};
    follow({&Label_sfondo}); // the number of the next sample, then the length of the reply
    start_tuning();
    run_for(3600);
    EXPECT_THAT(timed(), ElementsAre(At(1400, Send(3)), At(2000, Send(3)), At(2600, Send(3)),
                                     At(3500, Send(3))));
    EXPECT_THAT(changes, ElementsAre("1400 Label_sfondo says 1", "2000 Label_sfondo says 0",
                                     "2000 Label_sfondo says 1", "2600 Label_sfondo says 26",
                                     "2600 Label_sfondo says 1", "3200 Label_sfondo says 27",
                                     "3500 Label_sfondo says 1"));
}

TEST_F(TuningInTheCar, SilentUnitIsAskedEvery600Milliseconds) {
    start_without_polling();
    start_tuning();
    run_for(1000);
    port->alter = nullptr;
    port->silent = true;
    run_for(600'000);
    EXPECT_EQ(shown(), "-- WAIT TUNING... --");
    EXPECT_EQ(frames(), std::vector(1000, Send(3)));
    EXPECT_TRUE(view::enabled(Form1));
}

TEST_F(TuningInTheCar, RunShowsTheLiveValues) {
    start_without_polling();
    petrol_time = 2468;
    start_tuning();
    inside_program([] {
        for (view::Widget* label : {&Label_carburante, &Label_rpm, &LabeL_pressure})
            view::set_text(*label, "?");
        state.no_press = true;
    });
    run_for(2000);
    EXPECT_EQ(text(Label_rpm), "850");
    EXPECT_EQ(text(Label_tinj), "2468");
    EXPECT_EQ(text(LabeL_pressure), "1400");
    EXPECT_EQ(text(Label_carburante), "PETROL");
    EXPECT_FALSE(state.no_press);
    EXPECT_EQ(calibration::tuning.tinj_samples[0], 2468);
}

TEST_F(TuningInTheCar, SamplerKnowsPetrolGasNoPressureOnly) {
    start_without_polling();
    start_tuning();
    const auto turn_with = [&](int fuel) {
        inside_program([] { view::set_text(Label_carburante, "?"); });
        fuel_state = fuel;
        run_for(turn_ms);
        return text(Label_carburante);
    };
    run_for(1300);
    inside_program([] { state.gas_requested = true; });
    EXPECT_EQ(turn_with(1), "LPG");
    EXPECT_TRUE(state.on_gas);
    EXPECT_TRUE(state.gas_requested) << "only the polling loop clears a request here";
    EXPECT_EQ(turn_with(2), "?");
    EXPECT_EQ(turn_with(3), "?");
    EXPECT_TRUE(state.on_gas);
    EXPECT_EQ(turn_with(5), "NO PRESS");
    EXPECT_TRUE(state.no_press);
    EXPECT_FALSE(state.gas_requested);
    EXPECT_EQ(turn_with(2), "?");
    EXPECT_FALSE(state.gas_requested) << "the sampler does not set a request";
    EXPECT_TRUE(state.on_gas);
    EXPECT_EQ(turn_with(0), "PETROL");
    EXPECT_FALSE(state.on_gas);
    EXPECT_FALSE(state.no_press);
    inside_program([] { link::mirrors.fuel_type = 0; });
    EXPECT_EQ(turn_with(1), "CNG");
}

// --- The temperature gate

TEST_F(TuningInTheCar, TemperatureIsTestedEveryTwoSeconds) {
    start_without_polling();
    inside_program([] { view::set_text(Label_temp, "49"); });
    start_tuning();
    run_for(3000);
    EXPECT_THAT(timed(), IsEmpty());
    inside_program([] { view::set_text(Label_temp, "50"); });
    run_for(3000);
    EXPECT_THAT(timed(), ElementsAre(At(4000 + 1400, Send(3))));
    EXPECT_THAT(changes, ElementsAre("0 lbl_tuning shown", "0 lbl_tuning says -- WAIT TUNING... --",
                                     "0 lbl_tuning says -- WAIT TEMPERATURE... --"));
}

TEST_F(TuningInTheCar, UnreadableTemperatureCountsAsCold) {
    start_without_polling();
    inside_program([] { view::set_text(Label_temp, "--"); });
    start_tuning();
    run_for(60'000);
    EXPECT_EQ(shown(), "-- WAIT TEMPERATURE... --");
    EXPECT_THAT(timed(), IsEmpty());
}

class ColdStart : public TuningTest, public testing::WithParamInterface<bool> {};

TEST_P(ColdStart, TuningNoticesThatTheEngineHasWarmedUp) {
    use_unit({});
    set_parameter(sim::par::automatic, 0);
    if (GetParam())
        start_during_a_poll();
    else
        start_between_polls();
    start_tuning();
    answer_closing_box();
    run_for(5000);
    EXPECT_EQ(shown(), "-- WAIT TEMPERATURE... --");
    EXPECT_TRUE(polls_in(400));
    run_for(400'000);
    EXPECT_NE(shown(), "-- WAIT TEMPERATURE... --");
}

INSTANTIATE_TEST_SUITE_P(StartedDuringAPoll, ColdStart, testing::Bool());

// --- During a run

TEST_F(TuningInTheCar, WatchdogRestartsThePolling) {
    start_during_a_poll();
    inside_program([] { Timer6.on(); });
    start_tuning();
    run_for(5000);
    ASSERT_THAT(timed_commands(), IsEmpty()) << "still in the first pass";
    // The sampler alone would send 5, one every 600 ms.
    EXPECT_GT(std::ranges::count(frames_in(3000), Send(3)), 6);
}

TEST_F(TuningInTheCar, KeyMovesTheGain) {
    start_without_polling();
    start_tuning();
    run_for(3000);
    operator_presses(Form1, 39, 2000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1210), Write(4, 1010), Write(4, 1010)));
}

TEST_F(TuningInTheCar, DecliningASecondRunHidesTheLine) {
    start_without_polling();
    start_tuning();
    run_for(3000);
    start_tuning(Answer::no);
    run_for(2500);
    EXPECT_FALSE(view::visible(lbl_tuning));
}

// The first run measures on and ends with its own box.
TEST_F(TuningInTheCar, SecondRunClearsTheModeOfTheFirst) {
    start_without_polling();
    start_tuning();
    run_for(5000);
    start_tuning();
    answer_closing_box();
    answer_closing_box();
    run_until_boxes(3);
    run_for(3000);
    EXPECT_EQ(state.tuning_mode, 0);
    run_until_boxes(4);
    run_for(5000);
    EXPECT_EQ(state.tuning_mode, 0);
}

TEST_F(TuningInTheCar, ReconnectedCableLetsItGoOn) {
    start_between_polls();
    start_tuning();
    run_for(10'000);
    port->unplugged = true;
    run_for(30'000);
    port->unplugged = false;
    EXPECT_THAT(frames_in(60'000), testing::Contains(Send(22)));
}

} // namespace
} // namespace zol::tests
