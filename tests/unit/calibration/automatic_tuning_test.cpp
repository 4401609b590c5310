// The Automatic Tuning System: its course and each of its ends.
#include "monitor/polling.h"
#include "tests/unit/calibration/tuning_bench.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using calibration::tuning;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Answer;

class AutomaticTuning : public TuningBench {};

TEST_F(AutomaticTuning, AsksInTheseWords) {
    start_without_polling();
    start_tuning(Answer::no);
    const view::MessageBox& box = screen.message_boxes.at(0);
    EXPECT_EQ(box.text, "\rAutomatic Tuning System\r");
    EXPECT_EQ(box.title, "        Automatic Tuning Mivra           ");
    EXPECT_EQ(box.buttons, view::Buttons::yes_no);
    EXPECT_EQ(box.icon, view::Icon::information);
}

TEST_F(AutomaticTuning, DeclinedItStillTakesTwoSeconds) {
    start_without_polling();
    inside_program([] { view::set_visible(lbl_tuning, true); }); // to see the end
    changes.clear();
    start_tuning(Answer::no);
    run_for(5000);
    EXPECT_THAT(changes, ElementsAre("2000 lbl_tuning hidden"));
    EXPECT_THAT(timed_frames(), IsEmpty());
    EXPECT_EQ(state.tuning_mode, 0);
}

TEST_F(AutomaticTuning, ARunThatFindsTheGasTimeInTheWindowFinishes) {
    petrol_time = 2000, gas_time = 1650;
    start_without_polling();
    start_tuning();
    screen.answer_message("AUTO READY TO GO!!!", Answer::ok, 700);
    EXPECT_EQ(state.tuning_mode, 1);
    run_for(first_decision_ms + 2000 + 700 + 1999);
    inside_program([] { view::set_visible(lbl_tuning, true); }); // to see the end
    run_for(2000);
    EXPECT_THAT(changes,
                ElementsAre("0 lbl_tuning shown", "0 lbl_tuning says -- WAIT TUNING... --",
                            "38800 lbl_tuning says -- FINISH --", "40800 lbl_tuning hidden",
                            "43499 lbl_tuning shown", "43500 lbl_tuning hidden"));
    EXPECT_EQ(tuning.tinj_petrol_avg, 2000);
    EXPECT_EQ(tuning.tinj_gas_adjusted, 1800);
    EXPECT_EQ(screen.message_boxes.at(1).text, "AUTO READY TO GO!!!");
    EXPECT_EQ(screen.message_boxes.at(1).title, "");
    EXPECT_EQ(screen.message_boxes.at(1).buttons, view::Buttons::ok);
    EXPECT_EQ(screen.message_boxes.at(1).icon, view::Icon::none);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(state.tuning_mode, 0);
    EXPECT_TRUE(state.on_gas) << "the engine stays on gas";
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(AutomaticTuning, APollingThatAPassBroughtBackEndsAheadOfTheTurnToGas) {
    start_without_polling();
    start_tuning();
    constexpr int end_of_pass_ms = start_ms + settle_ms + pass_ms;
    run_for(end_of_pass_ms - 1);
    inside_program([] { monitor::start_polling(); });
    run_for(1);
    EXPECT_FALSE(state.poll_enabled);
    screen.answer_message("AUTO READY", Answer::ok);
    run_for(first_decision_ms);
}

TEST_F(AutomaticTuning, EachPassAsksTwentyTimesEvery900Milliseconds) {
    start_without_polling();
    start_tuning();
    screen.answer_message("AUTO READY", Answer::ok);
    run_for(first_decision_ms);
    const auto frames = timed_frames();
    ASSERT_EQ(frames.size(), 41u);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(frames[static_cast<std::size_t>(i)], At(1400 + 900 * i, Send(3)));
        EXPECT_EQ(frames[static_cast<std::size_t>(i) + 21], At(20800 + 900 * i, Send(3)));
    }
    EXPECT_EQ(frames[20], At(19800, Send(22)));
    run_for(4000);
}

TEST_F(AutomaticTuning, ThePollingIsForbiddenForTheFirstPassAndAllowedForTheSecond) {
    start_without_polling();
    start_tuning();
    screen.answer_message("AUTO READY", Answer::ok);
    const auto allowed_at = [&](std::int64_t ms) {
        run_for(ms - (now_ms() - begun_at()));
        return state.poll_enabled;
    };
    EXPECT_TRUE(allowed_at(1399));
    EXPECT_FALSE(allowed_at(1400));
    EXPECT_FALSE(allowed_at(19400)) << "stopped once more before the changeover";
    EXPECT_FALSE(allowed_at(20799));
    EXPECT_TRUE(allowed_at(20800));
    inside_program([] { state.poll_enabled = false; });
    EXPECT_FALSE(allowed_at(38799));
    EXPECT_TRUE(allowed_at(38800)) << "a second time behind the pass";
    run_for(5000);
}

TEST_F(AutomaticTuning, FromGasItGoesBackToPetrolFirst) {
    start_without_polling();
    inside_program([] { state.on_gas = true; });
    start_tuning();
    run_for(599);
    EXPECT_THAT(timed_frames(), IsEmpty());
    EXPECT_FALSE(state.poll_enabled);
    run_for(200);
    EXPECT_FALSE(state.poll_enabled) << "the unit is left time to change over";
    run_for(1);
    EXPECT_THAT(timed_frames(), ElementsAre(At(600, Send(4))));
    EXPECT_TRUE(state.poll_enabled);
    run_for(1000);
    EXPECT_THAT(timed_frames(), ElementsAre(At(600, Send(4)), At(1800, Send(3))));
    EXPECT_FALSE(state.poll_enabled);
}

TEST_F(AutomaticTuning, AlsoFromAChangeoverThatIsStillWaiting) {
    start_without_polling();
    inside_program([] { state.gas_requested = true; });
    start_tuning();
    run_for(700);
    EXPECT_THAT(timed_frames(), ElementsAre(At(600, Send(4))));
}

TEST_F(AutomaticTuning, WithoutGasPressureItDoesNot) {
    start_without_polling();
    inside_program([] { state.no_press = true; });
    start_tuning();
    run_for(1500);
    EXPECT_THAT(timed_frames(), ElementsAre(At(1400, Send(3))));
}

// --- The decision

TEST_F(AutomaticTuning, ALeanGasTimeRaisesTheGainByTheRatioAndMeasuresAgain) {
    petrol_time = 2000, gas_time = 1900; // and 150: 2.5 percent above
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms);
    // 1200 x 1.025. The lower gain's own writing runs inside the assignment.
    EXPECT_EQ(view::value(Slider_ktar), 1230);
    run_for(2200);
    // On gas, so that the pressure is captured too: 400, 400, 400 and 200 inside, 400, 400.
    EXPECT_THAT(writes(),
                ElementsAre(Write(3, 1230), Write(4, 1030), Write(4, 1030), Write(104, 1400)));
    gas_time = 1650;
    run_for(40'000);
    EXPECT_THAT(changes, testing::Contains("41000 lbl_tuning says -- L - REPEAT WAIT TUNING   --"));
    const auto frames = timed_frames();
    const auto back = std::ranges::find(frames, Send(4), &Timed::frame);
    ASSERT_NE(back, frames.end());
    EXPECT_EQ(back->ms, 41'200) << "straight to the head of the loop, back to petrol";
    screen.answer_message("AUTO READY", Answer::ok);
    run_for(10'000);
}

TEST_F(AutomaticTuning, ARichGasTimeLowersTheGainByTheRatioAndMeasuresAgain) {
    petrol_time = 2000, gas_time = 1450; // and 150: four fifths
    start_without_polling();
    gain_stands_at(1500);
    start_tuning();
    run_for(first_decision_ms + 1000);
    EXPECT_EQ(view::value(Slider_ktar), 1200);
    run_for(1000);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1200), Write(4, 1001), Write(104, 1400)));
    EXPECT_EQ(changes.back(), "40400 lbl_tuning says -- R - REPEAT WAIT TUNING   --");
}

struct GainCase {
    double petrol, gas, start, end;
    const char* caption;
};

void PrintTo(const GainCase& it, std::ostream* out) {
    *out << it.start << " x " << it.gas + 150 << " / " << it.petrol;
}

class TuningGain : public TuningBench, public testing::WithParamInterface<GainCase> {};

TEST_P(TuningGain, IsRoundedToEvenAndEndsAtItsLimits) {
    petrol_time = GetParam().petrol, gas_time = GetParam().gas;
    start_without_polling();
    gain_stands_at(GetParam().start);
    start_tuning();
    run_for(first_decision_ms + 2300);
    EXPECT_EQ(view::value(Slider_ktar), GetParam().end);
    EXPECT_EQ(view::text(lbl_tuning), GetParam().caption);
}

constexpr const char* lean = "-- L - REPEAT WAIT TUNING   --";
constexpr const char* rich = "-- R - REPEAT WAIT TUNING   --";
constexpr const char* too_lean = "-- AUTO MAGRA ALZ. PRESS... --";
constexpr const char* too_rich = "-- AUTO RICCA DIMIN. PRESS. --";

INSTANTIATE_TEST_SUITE_P(Rounds, TuningGain,
                         testing::Values(GainCase{2000, 2850, 1003, 1504, lean}, // 1504.5
                                         GainCase{2000, 2850, 1001, 1502, lean}, // 1501.5
                                         GainCase{2000, 2850, 1199, 1798, lean}, // 1798.5
                                         GainCase{2000, 2850, 1200, 1800, too_lean},
                                         GainCase{2000, 2850, 1199.6, 1799, lean},
                                         GainCase{2000, 9850, 1100, 1800, too_lean},
                                         GainCase{2000, 1450, 1376, 1101, rich}, // 1100.8
                                         GainCase{2000, 1450, 1375, 1100, too_rich},
                                         GainCase{2000, 850, 1601, 1100, too_rich}, // 800.5
                                         GainCase{2000, 850, 1050, 1100, too_rich}));

TEST_F(AutomaticTuning, AtTheUpperLimitItAsksForMorePressureAndEnds) {
    petrol_time = 2000, gas_time = 2850;
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 6000);
    // 2200 ms of writing behind the decision at 38800, then the last 2000.
    EXPECT_THAT(changes, ElementsAre("0 lbl_tuning shown", "0 lbl_tuning says -- WAIT TUNING... --",
                                     "41000 lbl_tuning says -- AUTO MAGRA ALZ. PRESS... --",
                                     "43000 lbl_tuning hidden"));
    EXPECT_THAT(writes(),
                ElementsAre(Write(3, 1800), Write(4, 1600), Write(4, 1600), Write(104, 1400)));
    EXPECT_EQ(screen.message_boxes.size(), 1u);
}

TEST_F(AutomaticTuning, AtTheLowerLimitItAsksForLessPressureAndEnds) {
    petrol_time = 2000, gas_time = 1000;
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 6000);
    // The caption comes before the writing here, and on gas the pressure is written too.
    EXPECT_THAT(changes, ElementsAre("0 lbl_tuning shown", "0 lbl_tuning says -- WAIT TUNING... --",
                                     "38800 lbl_tuning says -- AUTO RICCA DIMIN. PRESS. --",
                                     "42400 lbl_tuning hidden"));
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1100), Write(4, 1001), Write(104, 1400)));
    EXPECT_EQ(screen.message_boxes.size(), 1u);
}

TEST_F(AutomaticTuning, AGainThatTheRatioLeavesWhereItIsWritesNothingAndMeasuresAgain) {
    petrol_time = 10'000, gas_time = 9851; // 1200.12
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 500);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(view::text(lbl_tuning), "-- L - REPEAT WAIT TUNING   --");
    EXPECT_EQ(timed_commands().back(), At(first_decision_ms + 200, Send(4)));
    run_for(60'000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_GE(std::ranges::count(frames(), Send(22)), 2);
}

class WindowEdge : public TuningBench,
                   public testing::WithParamInterface<std::pair<double, bool>> {};

// The adjusted gas time lies in an open window: P - 300 < G < P.
TEST_P(WindowEdge, IsNoPartOfTheWindow) {
    const auto [adjusted, finishes] = GetParam();
    petrol_time = 2000, gas_time = adjusted - 150;
    start_without_polling();
    start_tuning();
    if (finishes) screen.answer_message("AUTO READY", Answer::ok);
    run_for(first_decision_ms + 5000);
    EXPECT_EQ(tuning.tinj_gas_adjusted, adjusted);
    EXPECT_THAT(writes(), IsEmpty());
    if (finishes) return;
    EXPECT_THAT(changes, ElementsAre("0 lbl_tuning shown", "0 lbl_tuning says -- WAIT TUNING... --",
                                     "40800 lbl_tuning hidden"))
        << "it ends without a word";
    EXPECT_EQ(screen.message_boxes.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Edges, WindowEdge,
                         testing::Values(std::pair{2000.0, false}, std::pair{1700.0, false},
                                         std::pair{1999.95, true}, std::pair{1700.05, true},
                                         std::pair{1800.0, true}));

TEST_F(AutomaticTuning, AnEngineThatStandsLeavesTheGainWhereItIs) {
    petrol_time = 0, gas_time = 0;
    start_without_polling();
    start_tuning();
    run_for(2 * first_decision_ms);
    EXPECT_EQ(view::value(Slider_ktar), 1200);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(view::text(lbl_tuning), "-- L - REPEAT WAIT TUNING   --");
}

} // namespace
} // namespace zol::tests
