// The Automatic Tuning System on a line, an engine and an operator that do as they like.
#include "tests/unit/calibration/tuning_bench.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using calibration::tuning;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Answer;

class TuningInTheCar : public TuningBench {};

// --- Measuring

TEST_F(TuningInTheCar, AShortBufferCostsATurnAndGivesNoSample) {
    start_without_polling();
    lengths = {0, 26, 27};
    start_tuning();
    follow({&Label_sfondo});
    changes.clear();
    run_for(3600);
    EXPECT_THAT(timed_frames(), ElementsAre(At(1400, Send(3)), At(2000, Send(3)), At(2600, Send(3)),
                                            At(3500, Send(3))));
    EXPECT_THAT(changes, ElementsAre("1400 Label_sfondo says 1", "2000 Label_sfondo says 0",
                                     "2000 Label_sfondo says 1", "2600 Label_sfondo says 26",
                                     "2600 Label_sfondo says 1", "3200 Label_sfondo says 27",
                                     "3500 Label_sfondo says 1"));
}

TEST_F(TuningInTheCar, ASilentUnitHoldsItInTheSampler) {
    start_without_polling();
    start_tuning();
    run_for(1000);
    port->alter = nullptr;
    port->silent = true;
    run_for(600'000);
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TUNING... --");
    const auto asked = timed_frames();
    EXPECT_EQ(asked.size(), 1000u) << "every 600 ms";
    EXPECT_TRUE(std::ranges::all_of(asked, [](const Timed& it) { return it.frame == Send(3); }));
    EXPECT_TRUE(view::enabled(Form1)) << "the window stays alive";
}

TEST_F(TuningInTheCar, TheRunShowsTheLiveValuesItself) {
    start_without_polling();
    petrol_time = 2468;
    start_tuning();
    inside_program([] {
        view::set_text(Label_carburante, "?");
        view::set_text(Label_rpm, "?");
        view::set_text(LabeL_pressure, "?");
        state.no_press = true;
    });
    run_for(2000);
    EXPECT_EQ(view::text(Label_rpm), "850");
    EXPECT_EQ(view::text(Label_tinj), "2468");
    EXPECT_EQ(view::text(LabeL_pressure), "1400");
    EXPECT_EQ(view::text(Label_carburante), "PETROL");
    EXPECT_FALSE(state.no_press);
    EXPECT_EQ(tuning.tinj_samples[0], 2468);
}

TEST_F(TuningInTheCar, TheSamplerKnowsPetrolGasAndNoPressureAndNothingElse) {
    start_without_polling();
    start_tuning();
    const auto turn_with = [&](int fuel) {
        inside_program([] { view::set_text(Label_carburante, "?"); });
        fuel_state = fuel;
        run_for(900);
        return view::text(Label_carburante);
    };
    run_for(1300);
    inside_program([] { state.gas_requested = true; });
    EXPECT_EQ(turn_with(1), "LPG");
    EXPECT_TRUE(state.on_gas);
    EXPECT_TRUE(state.gas_requested) << "only the polling loop knows a request";
    EXPECT_EQ(turn_with(2), "?");
    EXPECT_EQ(turn_with(3), "?");
    EXPECT_TRUE(state.on_gas);
    EXPECT_EQ(turn_with(5), "NO PRESS");
    EXPECT_TRUE(state.no_press);
    EXPECT_FALSE(state.gas_requested);
    EXPECT_EQ(turn_with(2), "?");
    EXPECT_FALSE(state.gas_requested) << "nor does the sampler make one";
    EXPECT_TRUE(state.on_gas);
    EXPECT_EQ(turn_with(0), "PETROL");
    EXPECT_FALSE(state.on_gas);
    EXPECT_FALSE(state.no_press);
    inside_program([] { link::mirrors.fuel_type = 0; });
    EXPECT_EQ(turn_with(1), "CNG");
}

// --- The temperature gate

TEST_F(TuningInTheCar, ACoolEngineIsWaitedForInSteps) {
    start_without_polling();
    inside_program([] { view::set_text(Label_temp, "49"); });
    start_tuning();
    run_for(3000);
    EXPECT_THAT(timed_frames(), IsEmpty());
    inside_program([] { view::set_text(Label_temp, "50"); });
    run_for(3000);
    // Tested every 2000 ms, the caption stays as it stands.
    EXPECT_THAT(timed_frames(), ElementsAre(At(4000 + 1400, Send(3))));
    EXPECT_THAT(changes, ElementsAre("0 lbl_tuning shown", "0 lbl_tuning says -- WAIT TUNING... --",
                                     "0 lbl_tuning says -- WAIT TEMPERATURE... --"));
}

TEST_F(TuningInTheCar, AnUnreadableTemperatureCountsAsCold) {
    start_without_polling();
    inside_program([] { view::set_text(Label_temp, "--"); });
    start_tuning();
    run_for(60'000);
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
    EXPECT_THAT(timed_frames(), IsEmpty());
}

class ColdStart : public TuningBench {
  protected:
    void start_cold() {
        use_unit({});
        unit->set_parameter(sim::par::automatic, 0);
    }
};

TEST_F(ColdStart, ARunBegunInTheMiddleOfAPollStillSeesTheEngineGrowWarm) {
    start_cold();
    start_during_a_poll();
    start_tuning();
    screen.answer_message("AUTO READY", Answer::ok);
    run_for(5000);
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
    EXPECT_TRUE(polls_come_in(400));
    run_for(400'000);
    EXPECT_NE(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
}

TEST_F(ColdStart, ARunBegunBetweenTwoPollsSeesItToo) {
    start_cold();
    start_between_polls();
    start_tuning();
    screen.answer_message("AUTO READY", Answer::ok);
    run_for(5000);
    EXPECT_TRUE(polls_come_in(400));
    run_for(400'000);
    EXPECT_NE(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
}

// --- Beside other things

TEST_F(TuningInTheCar, WithTheWatchdogBothPassesRunBesideThePollingLoop) {
    start_during_a_poll();
    inside_program([] { Timer6.on(); });
    start_tuning();
    run_for(5000);
    ASSERT_TRUE(timed_commands().empty()) << "still in the first pass";
    EXPECT_TRUE(polls_come_in(3000));
    // More than the sampler's own: at most one every 600 ms.
    EXPECT_GT(std::ranges::count(frames(), Send(3)), 6);
}

TEST_F(TuningInTheCar, AKeyDuringTheRunEntersAfresh) {
    start_without_polling();
    start_tuning();
    run_for(3000);
    operator_presses(Form1, 39);
    run_for(2000);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1210), Write(4, 1010), Write(4, 1010)));
    screen.answer_message("\rAutomatic Tuning System\r", Answer::no);
    operator_presses(Form1, 84, 2);
    run_for(2500);
    EXPECT_FALSE(view::visible(lbl_tuning)) << "the declined one hides the line of both";
}

TEST_F(TuningInTheCar, ACablePulledDuringTheRunAndPutBackLetsItGoOn) {
    start_between_polls();
    start_tuning();
    run_for(10'000);
    port->unplugged = true;
    run_for(30'000);
    forget_wire();
    port->unplugged = false;
    run_for(60'000);
    EXPECT_GE(std::ranges::count(frames(), Send(22)), 1);
}

} // namespace
} // namespace zol::tests
