// The automatic tuning: its sequence, its decision and each of its ends.
#include "monitor/polling.h"
#include "tests/unit/calibration/tuning_fixture.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using calibration::tuning;
using view::Answer;

constexpr const char* lean = "-- L - REPEAT WAIT TUNING   --";
constexpr const char* rich = "-- R - REPEAT WAIT TUNING   --";
constexpr const char* too_lean = "-- AUTO MAGRA ALZ. PRESS... --";
constexpr const char* too_rich = "-- AUTO RICCA DIMIN. PRESS. --";

std::string says(int ms, const char* caption) {
    return std::to_string(ms) + " lbl_tuning says " + caption;
}

class AutomaticTuning : public TuningTest {
  protected:
    // After this, hiding the line is a change and is noted.
    void show_line() {
        inside_program([] { view::set_visible(lbl_tuning, true); });
    }
    // The changes after the two with which each run begins.
    std::vector<std::string> later_changes() const {
        EXPECT_EQ(changes.at(0), "0 lbl_tuning shown");
        EXPECT_EQ(changes.at(1), says(0, "-- WAIT TUNING... --"));
        return {changes.begin() + 2, changes.end()};
    }
};

TEST_F(AutomaticTuning, AsksInTheseWords) {
    start_without_polling();
    start_tuning(Answer::no);
    const view::MessageBox& box = screen.message_boxes.at(0);
    EXPECT_EQ(box.text, "\rAutomatic Tuning System\r");
    EXPECT_EQ(box.title, "        Automatic Tuning Mivra           ");
    EXPECT_EQ(box.buttons, view::Buttons::yes_no);
    EXPECT_EQ(box.icon, view::Icon::information);
}

TEST_F(AutomaticTuning, DeclinedItTakesTwoSeconds) {
    start_without_polling();
    show_line();
    mark();
    start_tuning(Answer::no);
    run_for(5000);
    EXPECT_THAT(changes, ElementsAre("2000 lbl_tuning hidden"));
    EXPECT_THAT(timed(), IsEmpty());
    EXPECT_EQ(state.tuning_mode, 0);
}

TEST_F(AutomaticTuning, GasTimeInTheWindowFinishesIt) {
    start_without_polling();
    start_tuning();
    answer_closing_box(700);
    EXPECT_EQ(state.tuning_mode, 1);
    run_for(first_decision_ms + 2000 + 700 + 1999);
    show_line();
    run_for(2000);
    EXPECT_THAT(later_changes(), ElementsAre(says(38800, "-- FINISH --"), "40800 lbl_tuning hidden",
                                             "43499 lbl_tuning shown", "43500 lbl_tuning hidden"));
    EXPECT_EQ(tuning.tinj_petrol_avg, 2000);
    EXPECT_EQ(tuning.tinj_gas_adjusted, 1800);
    const view::MessageBox& box = screen.message_boxes.at(1);
    EXPECT_EQ(box.text, "AUTO READY TO GO!!!");
    EXPECT_EQ(box.title, "");
    EXPECT_EQ(box.buttons, view::Buttons::ok);
    EXPECT_EQ(box.icon, view::Icon::none);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(state.tuning_mode, 0);
    EXPECT_TRUE(state.on_gas) << "the engine stays on gas";
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(AutomaticTuning, PollingIsStoppedBeforeTheTurnToGas) {
    start_without_polling();
    start_tuning();
    run_for(start_ms + settle_ms + pass_ms - 1);
    inside_program([] { monitor::start_polling(); });
    run_for(1);
    EXPECT_FALSE(state.poll_enabled);
    answer_closing_box();
    run_for(first_decision_ms);
}

TEST_F(AutomaticTuning, EachPassAsksTwentyTimesEvery900Milliseconds) {
    start_without_polling();
    start_tuning();
    answer_closing_box();
    run_for(first_decision_ms);
    std::vector<Timed> expected;
    for (int i = 0; i < 20; ++i)
        expected.push_back(At(1400 + 900 * i, Send(3)));
    expected.push_back(At(19'800, Send(22)));
    for (int i = 0; i < 20; ++i)
        expected.push_back(At(20'800 + 900 * i, Send(3)));
    EXPECT_EQ(timed(), expected);
    run_for(4000);
}

TEST_F(AutomaticTuning, OnlyTheSecondPassAllowsPolling) {
    start_without_polling();
    start_tuning();
    answer_closing_box();
    const auto allowed_at = [&](std::int64_t ms) {
        run_for(ms - (now_ms() - marked_ms()));
        return state.poll_enabled;
    };
    EXPECT_TRUE(allowed_at(1399));
    EXPECT_FALSE(allowed_at(1400));
    EXPECT_FALSE(allowed_at(19'400)) << "stopped again before the changeover";
    EXPECT_FALSE(allowed_at(20'799));
    EXPECT_TRUE(allowed_at(20'800));
    inside_program([] { state.poll_enabled = false; });
    EXPECT_FALSE(allowed_at(38'799));
    EXPECT_TRUE(allowed_at(38'800)) << "allowed again after the pass";
    run_for(5000);
}

TEST_F(AutomaticTuning, OnGasItFirstGoesBackToPetrol) {
    start_without_polling();
    inside_program([] { state.on_gas = true; });
    start_tuning();
    run_for(599);
    EXPECT_FALSE(state.poll_enabled);
    run_for(200);
    EXPECT_FALSE(state.poll_enabled) << "the unit is given time to change over";
    run_for(1);
    EXPECT_TRUE(state.poll_enabled);
    run_for(1000);
    EXPECT_THAT(timed(), ElementsAre(At(600, Send(4)), At(1800, Send(3))));
    EXPECT_FALSE(state.poll_enabled);
}

TEST_F(AutomaticTuning, PendingChangeoverIsTakenBackFirst) {
    start_without_polling();
    inside_program([] { state.gas_requested = true; });
    start_tuning();
    run_for(700);
    EXPECT_THAT(timed(), ElementsAre(At(600, Send(4))));
}

TEST_F(AutomaticTuning, WithoutGasPressureItStaysOnPetrol) {
    start_without_polling();
    inside_program([] { state.no_press = true; });
    start_tuning();
    run_for(1500);
    EXPECT_THAT(timed(), ElementsAre(At(1400, Send(3))));
}

// --- The decision

TEST_F(AutomaticTuning, LeanGasTimeRaisesTheGain) {
    gas_time = 1900; // with 150 added, 2.5 percent above the petrol time: 1200 x 1.025
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms);
    // The handler of the slider runs inside the assignment.
    EXPECT_EQ(view::value(Slider_ktar), 1230);
    run_for(2200);
    // On gas, so that the pressure is captured too: 400, 400, 400 and 200 inside, 400, 400.
    EXPECT_THAT(writes(),
                ElementsAre(Write(3, 1230), Write(4, 1030), Write(4, 1030), Write(104, 1400)));
    gas_time = 1650;
    run_for(40'000);
    EXPECT_EQ(later_changes().at(0), says(41'000, lean));
    // The next round begins with the return to petrol.
    EXPECT_THAT(timed(), testing::Contains(At(41'200, Send(4))));
    EXPECT_EQ(std::ranges::count(frames(), Send(4)), 1);
    answer_closing_box();
    run_for(10'000);
}

TEST_F(AutomaticTuning, RichGasTimeLowersTheGain) {
    gas_time = 1450; // with 150 added, four fifths of the petrol time
    start_without_polling();
    gain_is(1500);
    start_tuning();
    run_for(first_decision_ms + 2000);
    EXPECT_EQ(view::value(Slider_ktar), 1200);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1200), Write(4, 1001), Write(104, 1400)));
    EXPECT_EQ(changes.back(), says(40'400, rich));
}

struct GainCase {
    double gas, start, end; // gas time, on 2000 us of petrol time; gain
    const char* caption;
};
void PrintTo(const GainCase& it, std::ostream* out) {
    *out << it.start << " x " << it.gas + 150 << " / 2000";
}

class TuningGain : public AutomaticTuning, public testing::WithParamInterface<GainCase> {};

TEST_P(TuningGain, IsRoundedToEvenWithinItsLimits) {
    gas_time = GetParam().gas;
    start_without_polling();
    gain_is(GetParam().start);
    start_tuning();
    run_for(first_decision_ms + 2300);
    EXPECT_EQ(view::value(Slider_ktar), GetParam().end);
    EXPECT_EQ(shown(), GetParam().caption);
}

INSTANTIATE_TEST_SUITE_P(Rounds, TuningGain,
                         testing::Values(GainCase{2850, 1003, 1504, lean}, // 1504.5
                                         GainCase{2850, 1001, 1502, lean}, // 1501.5
                                         GainCase{2850, 1199, 1798, lean}, // 1798.5
                                         GainCase{2850, 1200, 1800, too_lean},
                                         GainCase{2850, 1199.6, 1799, lean},
                                         GainCase{9850, 1100, 1800, too_lean},
                                         GainCase{1450, 1376, 1101, rich}, // 1100.8
                                         GainCase{1450, 1375, 1100, too_rich},
                                         GainCase{850, 1601, 1100, too_rich}, // 800.5
                                         GainCase{850, 1050, 1100, too_rich}));

TEST_F(AutomaticTuning, UpperLimitAsksForMorePressure) {
    gas_time = 2850;
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 6000);
    // 2200 ms of writing follow the decision at 38800, then the last 2000.
    EXPECT_THAT(later_changes(), ElementsAre(says(41'000, too_lean), "43000 lbl_tuning hidden"));
    EXPECT_THAT(writes(),
                ElementsAre(Write(3, 1800), Write(4, 1600), Write(4, 1600), Write(104, 1400)));
    EXPECT_EQ(screen.message_boxes.size(), 1u);
}

TEST_F(AutomaticTuning, LowerLimitAsksForLessPressure) {
    gas_time = 1000;
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 6000);
    // The caption comes before the writing here.
    EXPECT_THAT(later_changes(), ElementsAre(says(38'800, too_rich), "42400 lbl_tuning hidden"));
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1100), Write(4, 1001), Write(104, 1400)));
    EXPECT_EQ(screen.message_boxes.size(), 1u);
}

TEST_F(AutomaticTuning, UnchangedGainIsMeasuredAgainUnwritten) {
    petrol_time = 10'000, gas_time = 9851; // 1200.12
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 500);
    EXPECT_EQ(shown(), lean);
    EXPECT_EQ(timed_commands().back(), At(first_decision_ms + 200, Send(4)));
    run_for(60'000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_GE(std::ranges::count(frames(), Send(22)), 2);
}

TEST_F(AutomaticTuning, EngineAtRestLeavesTheGain) {
    petrol_time = 0, gas_time = 0;
    start_without_polling();
    start_tuning();
    run_for(2 * first_decision_ms);
    EXPECT_EQ(view::value(Slider_ktar), 1200);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(shown(), lean);
}

// The adjusted gas time is inside the window if P - 300 < G < P; the edges are outside.
class TuningInWindow : public AutomaticTuning, public testing::WithParamInterface<double> {};

TEST_P(TuningInWindow, Finishes) {
    gas_time = GetParam() - 150;
    start_without_polling();
    start_tuning();
    answer_closing_box();
    run_for(first_decision_ms + 5000);
    EXPECT_EQ(tuning.tinj_gas_adjusted, GetParam());
    EXPECT_THAT(writes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Inside, TuningInWindow, testing::Values(1700.05, 1800.0, 1999.95));

class TuningOnWindowEdge : public TuningInWindow {};

TEST_P(TuningOnWindowEdge, EndsWithoutABox) {
    gas_time = GetParam() - 150;
    start_without_polling();
    start_tuning();
    run_for(first_decision_ms + 5000);
    EXPECT_EQ(tuning.tinj_gas_adjusted, GetParam());
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_THAT(later_changes(), ElementsAre("40800 lbl_tuning hidden"));
    EXPECT_EQ(screen.message_boxes.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Edges, TuningOnWindowEdge, testing::Values(1700.0, 2000.0));

} // namespace
} // namespace zol::tests
