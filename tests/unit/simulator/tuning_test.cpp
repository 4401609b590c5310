// Tuning by proportion: measure on petrol, measure on gas, multiply the gain by the ratio. With the
// simulated engine it must converge from any gain, on either fuel.
#include "tests/unit/simulator/workshop.h"

#include <cmath>
#include <map>

namespace sim {
namespace {

enum class End { tuned, raise_pressure, lower_pressure, at_the_edge, never };

struct Outcome {
    End end = End::never;
    int gain = 0;
    int rounds = 0;
    double seconds = 0;
};

class Fitter : public Workshop {
  public:
    using Workshop::Workshop;

    void choose_fuel(bool lpg) {
        write(10, lpg ? 1 : 0);
        write(104, lpg ? 1600 : 1200);
        write(144, lpg ? 100 : 92);
        if (!lpg) write(51, 60);
        lpg_ = lpg;
    }
    // Twenty readings, each of them the reply to the request before.
    double mean_us() {
        double sum = 0;
        for (int i = 0; i < 20;) {
            send_command(3);
            const Bytes status = read();
            wait_ms(600);
            if (status.size() < 27) continue;
            sum += word(status, injection_at);
            wait_ms(300);
            ++i;
        }
        return sum / 20;
    }
    void set_gain(int gain) {
        gain_ = gain;
        wait_ms(400);
        write(3, gain);
        wait_ms(400);
        write(4, std::max(1001, gain - (lpg_ ? 200 : 300)));
        wait_ms(400);
        if (unit.fuel() == Gas::Fuel::gas) write(104, unit.gas().shown_pressure(unit.memory()));
        wait_ms(400);
    }
    Outcome tune(int gain) {
        const std::int64_t began_us = now_us;
        set_gain(gain);
        Outcome outcome;
        while (outcome.rounds < 25 && outcome.end == End::never) {
            ++outcome.rounds;
            outcome.end = round();
        }
        outcome.gain = gain_;
        outcome.seconds = static_cast<double>(now_us - began_us) / 1e6;
        return outcome;
    }

  private:
    End round() {
        send_command(4);
        wait_ms(1200);
        const double petrol = mean_us();
        wait_ms(400);
        send_command(22);
        wait_ms(1000);
        const double gas = mean_us() + 150;
        if (gas < petrol && gas > petrol - 300) return End::tuned;
        if (gas == petrol || gas == petrol - 300) return End::at_the_edge;
        const int next = static_cast<int>(std::nearbyint(gain_ * (gas / petrol)));
        if (gas > petrol && next >= 1800) return End::raise_pressure;
        if (gas < petrol && next <= 1100) return End::lower_pressure;
        set_gain(next);
        return End::never;
    }
    bool lpg_ = true;
    int gain_ = 0;
};

struct Case {
    int family;
    bool lpg;
    double throttle;
};

class Tuning : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(FuelsAndLoads, Tuning,
                         testing::Values(Case{0, true, 0}, Case{0, false, 0}, Case{1, true, 0},
                                         Case{1, false, 0}, Case{4, true, 0}, Case{4, false, 0},
                                         Case{4, true, 20}, Case{4, false, 20}, Case{4, true, 40},
                                         Case{4, false, 40}),
                         [](const auto& described) {
                             const Case& one = described.param;
                             return "family" + std::to_string(one.family) +
                                    (one.lpg ? "lpg" : "methane") + "throttle" +
                                    std::to_string(static_cast<int>(one.throttle));
                         });

TEST_P(Tuning, ConvergesFromAnyGain) {
    const auto [family, lpg, throttle] = GetParam();
    std::map<int, int> rounds;
    for (int gain = 1101; gain <= 1799; gain += family == 0 ? 1 : 9) {
        Fitter fitter({.family = family, .seed = static_cast<std::uint32_t>(gain), .warm = true});
        fitter.choose_fuel(lpg);
        fitter.unit.engine().throttle_set = throttle;
        fitter.wait_s(5);
        const Outcome outcome = fitter.tune(gain);
        EXPECT_EQ(outcome.end, End::tuned) << "from " << gain << ", left at " << outcome.gain;
        EXPECT_GT(outcome.gain, 1101);
        EXPECT_LT(outcome.gain, 1799);
        EXPECT_LE(outcome.rounds, 10) << "from " << gain;
        ++rounds[outcome.rounds];
    }
    for (const auto& [count, runs] : rounds)
        RecordProperty("in_" + std::to_string(count) + "_rounds", runs);
}

TEST(TuningLimits, LeanGasAsksForMorePressure) {
    for (const bool lpg : {true, false}) {
        Fitter fitter({.warm = true});
        fitter.choose_fuel(lpg);
        fitter.type("mixture 60");
        EXPECT_EQ(fitter.tune(1200).end, End::raise_pressure);
    }
}

TEST(TuningLimits, RichGasAsksForLessPressure) {
    for (const bool lpg : {true, false}) {
        Fitter fitter({.warm = true});
        fitter.choose_fuel(lpg);
        fitter.type("mixture 170");
        EXPECT_EQ(fitter.tune(1600).end, End::lower_pressure);
    }
}

TEST(TuningLimits, MorePressureLetsItConverge) {
    Fitter fitter({.warm = true});
    fitter.choose_fuel(true);
    fitter.type("mixture 60");
    EXPECT_EQ(fitter.tune(1200).end, End::raise_pressure);
    fitter.type("pressure 3000");
    EXPECT_EQ(fitter.tune(1500).end, End::tuned);
}

TEST(TuningLimits, TunedEngineNeedsLittleTrim) {
    Fitter fitter({.family = 4, .warm = true});
    fitter.choose_fuel(true);
    ASSERT_EQ(fitter.tune(1200).end, End::tuned);
    fitter.wait_s(60);
    EXPECT_EQ(fitter.unit.fuel(), Gas::Fuel::gas);
    EXPECT_LT(std::abs(fitter.unit.engine().trim), 0.16);
    EXPECT_GT(fitter.unit.engine().lambda_mv, 50);
}

} // namespace
} // namespace sim
