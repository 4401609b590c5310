// The automatic tuning while the polling repeats its requests or reads the live data of a diagnosis
// link. Both share the receive buffer.
#include "tests/unit/calibration/tuning_fixture.h"

namespace zol::tests {
namespace {

using testing::SizeIs;

constexpr const char* waits_for_temperature = "-- WAIT TEMPERATURE... --";

// A pass of the polling that begins here never ends: the unit does not reply to command 16.
class TuningWithoutLiveData : public TuningTest {
  protected:
    void start_tuning_in_a_pass(bool warm) {
        use_unit({.family = 2, .version = 7, .revision = 71, .warm = warm});
        port->lost_command = 16;
        start_connected();
        run_for(5000);
        start_tuning();
    }
};

TEST_F(TuningWithoutLiveData, Ends) {
    start_tuning_in_a_pass(true);
    expect_finish();
}

TEST_F(TuningWithoutLiveData, ColdEngineIsWaitedForEndlessly) {
    start_tuning_in_a_pass(false);
    run_for(1500);
    EXPECT_EQ(shown(), waits_for_temperature);
    const std::string before = text(form1::Label_temp);
    unit->engine().coolant_c = 80;
    run_for(60'000);
    EXPECT_EQ(text(form1::Label_temp), before) << "such a pass never asks for the status again";
    EXPECT_EQ(shown(), waits_for_temperature);
}

// The cable is dead when the tuning starts, at any moment of a pass.
class TuningOnDeadCable : public TuningTest, public testing::WithParamInterface<int> {
  protected:
    void start_tuning_on_dead_cable(bool warm = true) {
        use_unit({.version = 7, .revision = 71, .warm = warm});
        start_connected();
        run_for(2000);
        port->silent = true;
        run_for(3000 + GetParam());
        start_tuning();
        run_for(2500);
    }
};

TEST_P(TuningOnDeadCable, SamplerRepeatsItsRequest) {
    start_tuning_on_dead_cable();
    EXPECT_EQ(frames_in(6000), std::vector(10, Send(3)))
        << "every 600 ms, where the polling asks every 300";
}

TEST_P(TuningOnDeadCable, EndsOnceTheCableIsBack) {
    start_tuning_on_dead_cable();
    port->silent = false;
    expect_finish();
}

TEST_P(TuningOnDeadCable, SecondRunEndsToo) {
    start_tuning_on_dead_cable();
    start_tuning();
    run_for(2000);
    port->silent = false;
    answer_closing_box();
    expect_finish();
    EXPECT_THAT(screen.message_boxes, SizeIs(4));
}

TEST_P(TuningOnDeadCable, ColdEngineIsSeenWarmOnceTheCableIsBack) {
    start_tuning_on_dead_cable(false);
    EXPECT_EQ(shown(), waits_for_temperature);
    unit->engine().coolant_c = 85;
    run_for(10'000);
    EXPECT_EQ(shown(), waits_for_temperature);
    port->silent = false;
    expect_finish();
}

// An 8-byte reply to command 16 makes the pass ask for the status again, so it never ends either.
TEST_P(TuningOnDeadCable, EndsOnAUnitWithoutDiagnosis) {
    use_unit({.version = 7, .revision = 71, .warm = true});
    start_connected();
    inside_program([] { app::state.ecu_family = 2; });
    run_for(5000 + GetParam());
    start_tuning();
    expect_finish();
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, TuningOnDeadCable, testing::Values(0, 100, 200));

// The watchdog restarts the polling, which reads live data after each telegram.
class TuningOnLiveData : public TuningTest, public testing::WithParamInterface<int> {
  protected:
    void start_tuning_with_watchdog(bool warm = true) {
        use_unit({.family = GetParam(), .version = 7, .revision = 71, .warm = warm});
        start_connected();
        inside_program([] { form1::Timer6.on(); });
        run_for(5000);
        mark();
        start_tuning();
    }
    bool live_data_are_shown() {
        view::set_text(form1::Label13, "before");
        run_for(3000);
        return text(form1::Label13) != "before";
    }
};

TEST_P(TuningOnLiveData, Ends) {
    start_tuning_with_watchdog();
    expect_finish();
    EXPECT_TRUE(live_data_are_shown());
}

TEST_P(TuningOnLiveData, LiveDataAreShownInTheTemperatureGate) {
    start_tuning_with_watchdog(false);
    run_for(4000);
    ASSERT_EQ(shown(), waits_for_temperature);
    EXPECT_TRUE(live_data_are_shown());
}

TEST_P(TuningOnLiveData, LiveDataAreShownDuringTheClosingBox) {
    start_tuning_with_watchdog();
    answer_closing_box(10'000);
    run_until_boxes(2);
    EXPECT_TRUE(live_data_are_shown());
}

TEST_P(TuningOnLiveData, MeasuringLeavesLiveDataOut) {
    start_tuning_with_watchdog();
    answer_closing_box();
    run_until_boxes(2);
    const auto sent = timed();
    const auto to_gas = std::ranges::find(sent, Send(22), &Timed::frame);
    ASSERT_NE(to_gas, sent.end());
    const auto sent_in_pass = [&](int command) {
        return std::ranges::count_if(sent, [&](const Timed& each) {
            const auto after_ms = each.ms - to_gas->ms;
            return each.frame == Send(command) && after_ms > 1500 && after_ms < 15'000;
        });
    };
    EXPECT_GT(sent_in_pass(3), 20);
    EXPECT_EQ(sent_in_pass(16), 0);
}

TEST_P(TuningOnLiveData, NestedRunLeavesTheOuterOneMeasuring) {
    start_tuning_with_watchdog();
    run_for(6000);
    start_tuning();
    answer_closing_box();
    answer_closing_box();
    run_until_boxes(4);
    run_for(3000);
    EXPECT_TRUE(live_data_are_shown());
}

INSTANTIATE_TEST_SUITE_P(Families, TuningOnLiveData, testing::Values(2, 4));

} // namespace
} // namespace zol::tests
