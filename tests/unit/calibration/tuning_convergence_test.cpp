// The tuning of the simulated car, from any gain. Prints the rounds, the final gain and the time of
// each run.
#include "tests/unit/calibration/tuning_fixture.h"

#include <cstdio>

namespace zol::tests {
namespace {

using calibration::tuning;

class TuningConverges : public TuningTest, public testing::WithParamInterface<int> {
  protected:
    TuningConverges() : TuningTest(GetParam()) {}

    // Runs the tuning to its end, for an hour at most. The frames are noted from its start.
    void tune_from(int gain) {
        inside_program([gain] { view::set_value_and_run_handler(form1::Slider_ktar, gain); });
        run_for(5000);
        mark();
        start_tuning();
        answer_closing_box();
        while (app::state.tuning_mode == 1 && now_ms() - marked_ms() < 3'600'000)
            run_for(100);
    }
};

TEST_P(TuningConverges, FromAnyGainBetweenItsLimits) {
    start_between_polls();
    inside_program([] { form1::Timer6.on(); });
    std::printf("%8s %6s %6s %8s %8s %8s\n", GetParam() == 1 ? "LPG" : "methane", "rounds", "gain",
                "petrol", "gas+150", "seconds");
    std::vector<int> gains = {1101};
    for (int gain = 1150; gain < 1799; gain += 50)
        gains.push_back(gain);
    gains.push_back(1799);
    for (const int gain : gains) {
        SCOPED_TRACE(gain);
        tune_from(gain);
        const double end_gain = view::value(form1::Slider_ktar);
        std::printf("%8d %6d %6.0f %8.0f %8.0f %8.1f\n", gain,
                    static_cast<int>(std::ranges::count(frames(), Send(22))), end_gain,
                    tuning.tinj_petrol_avg, tuning.tinj_gas_adjusted,
                    static_cast<double>(now_ms() - marked_ms()) / 1000);
        EXPECT_EQ(shown(), "-- FINISH --");
        run_for(5000);
        EXPECT_LT(tuning.tinj_gas_adjusted, tuning.tinj_petrol_avg);
        EXPECT_GT(tuning.tinj_gas_adjusted, tuning.tinj_petrol_avg - 300);
        EXPECT_EQ(unit->parameter(3), end_gain);
        EXPECT_EQ(unit->fuel(), sim::Gas::Fuel::gas);
    }
}

INSTANTIATE_TEST_SUITE_P(Fuels, TuningConverges, testing::Values(1, 0));

} // namespace
} // namespace zol::tests
