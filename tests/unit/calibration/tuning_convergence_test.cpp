// The tuning against the simulated car: from any gain it comes to rest in the window. Prints what a
// fitter wants to know: rounds, end gain, and how long it takes.
#include "calibration/automatic_tuning.h"
#include "tests/unit/calibration/calibration_bench.h"

#include <cstdio>

namespace zol::tests {
namespace {

using calibration::tuning;
using testing::HasSubstr;

struct Outcome {
    int rounds = 0;
    double end_gain = 0;
    std::int64_t ms = 0;
    std::string last_caption;
};

class TuningConverges : public CalibrationBench, public testing::WithParamInterface<int> {
  protected:
    TuningConverges() : CalibrationBench(GetParam()) {}

    Outcome tune_from(int gain) {
        inside_program([gain] { view::set_value_and_run_handler(form1::Slider_ktar, gain); });
        run_for(5000);
        begin_notes();
        screen.answer_message("Automatic Tuning System", view::Answer::yes);
        screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
        operator_presses(form1::Form1, 84, 2);
        while (app::state.tuning_mode == 1 && now_ms() - begun_at() < 3'600'000)
            run_for(100);
        Outcome outcome;
        outcome.rounds = static_cast<int>(std::ranges::count(frames(), Send(22)));
        outcome.end_gain = view::value(form1::Slider_ktar);
        outcome.ms = now_ms() - begun_at();
        outcome.last_caption = view::text(form1::lbl_tuning);
        run_for(5000);
        return outcome;
    }
};

TEST_P(TuningConverges, FromAnyGainBetweenItsLimits) {
    start_between_polls();
    inside_program([] { form1::Timer6.on(); });
    std::printf("%8s %6s %6s %8s %8s %8s\n", GetParam() == 1 ? "LPG" : "methane", "rounds", "gain",
                "petrol", "gas+150", "seconds");
    // In steps that meet both ends, coarse enough to stay quick.
    for (int gain = 1101; gain <= 1799; gain = gain == 1101 ? 1150 : std::min(gain + 50, 1799)) {
        const Outcome outcome = tune_from(gain);
        std::printf("%8d %6d %6.0f %8.0f %8.0f %8.1f\n", gain, outcome.rounds, outcome.end_gain,
                    tuning.tinj_petrol_avg, tuning.tinj_gas_adjusted,
                    static_cast<double>(outcome.ms) / 1000);
        EXPECT_EQ(outcome.last_caption, "-- FINISH --") << gain;
        EXPECT_LT(tuning.tinj_gas_adjusted, tuning.tinj_petrol_avg) << gain;
        EXPECT_GT(tuning.tinj_gas_adjusted, tuning.tinj_petrol_avg - 300) << gain;
        EXPECT_EQ(unit->parameter(3), outcome.end_gain) << gain;
        EXPECT_EQ(unit->fuel(), sim::Gas::Fuel::gas) << gain;
        if (gain == 1799) break;
    }
}

INSTANTIATE_TEST_SUITE_P(Fuels, TuningConverges, testing::Values(1, 0));

} // namespace
} // namespace zol::tests
