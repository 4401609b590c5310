// The simulated engine behaves as a real one does.
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

class ColdCar : public WorkshopTest {};

class WarmCar : public WorkshopTest {
  protected:
    WarmCar() : WorkshopTest({.warm = true}) { wait_s(5); }
    double mean_injection_us() {
        double sum = 0;
        for (int i = 0; i < 100; ++i) {
            wait_ms(150);
            sum += unit.engine().injection_us;
        }
        return sum / 100;
    }
    void go_to_gas() {
        send_command(22);
        wait_s(8);
        ASSERT_EQ(unit.fuel(), Gas::Fuel::gas);
    }
};

TEST_F(ColdCar, WarmsUpToItsThermostat) {
    EXPECT_NEAR(unit.engine().coolant_c, 15, 1);
    wait_s(180);
    EXPECT_GT(unit.engine().coolant_c, 40);
    EXPECT_LT(unit.engine().coolant_c, 65);
    wait_s(600);
    EXPECT_NEAR(unit.engine().coolant_c, 90, 4);
    wait_s(7200);
    EXPECT_NEAR(unit.engine().coolant_c, 90, 4);
}

TEST_F(ColdCar, IdlesFasterThanAWarmOne) {
    wait_s(5);
    const double cold_rpm = unit.engine().rpm;
    const double cold_us = unit.engine().injection_us;
    wait_s(900);
    EXPECT_GT(cold_rpm, unit.engine().rpm + 200);
    EXPECT_GT(cold_us, unit.engine().injection_us * 1.3);
}

TEST_F(ColdCar, ClosesItsLoopOnceItIsWarm) {
    wait_s(20);
    EXPECT_EQ(unit.engine().loop, Engine::Loop::open);
    wait_s(280);
    EXPECT_EQ(unit.engine().loop, Engine::Loop::closed);
}

TEST_F(WarmCar, FollowsThePedalWithInertia) {
    type("throttle 40");
    wait_ms(150);
    const double soon = unit.engine().rpm;
    EXPECT_GT(soon, 880);
    EXPECT_LT(soon, 1800);
    wait_s(5);
    EXPECT_NEAR(unit.engine().rpm, 3050, 60);
    type("throttle 0");
    wait_ms(500);
    EXPECT_GT(unit.engine().rpm, 1700);
    wait_s(8);
    EXPECT_NEAR(unit.engine().rpm, 850, 40);
}

TEST_F(WarmCar, InjectionFollowsThePedal) {
    type("gas off");
    EXPECT_NEAR(mean_injection_us(), 3200, 60);
    type("throttle 40");
    wait_s(3);
    EXPECT_NEAR(mean_injection_us(), 5000, 150);
    type("throttle 0");
    wait_ms(600);
    EXPECT_EQ(unit.engine().injection_us, 0);
    EXPECT_EQ(status_word(injection_at), 0);
    wait_s(4);
    EXPECT_NEAR(mean_injection_us(), 3200, 60);
}

TEST_F(WarmCar, ProbeSwingsBetweenLeanAndRich) {
    int low = 1000, high = 0, crossings = 0;
    bool rich = false;
    for (int i = 0; i < 200; ++i) {
        wait_ms(100);
        const int mv = static_cast<int>(unit.engine().lambda_mv);
        low = std::min(low, mv);
        high = std::max(high, mv);
        if ((mv > 450) != rich) ++crossings;
        rich = mv > 450;
    }
    EXPECT_LT(low, 250);
    EXPECT_GT(high, 650);
    EXPECT_GT(crossings, 15);
}

TEST_F(WarmCar, GainShiftsTheInjectionTime) {
    type("memory 4 1200");
    const double petrol_us = mean_injection_us();
    go_to_gas();
    write(3, 1250);
    wait_s(10);
    const double lean_us = mean_injection_us();
    write(3, 1700);
    wait_s(10);
    const double rich_us = mean_injection_us();
    EXPECT_GT(lean_us, petrol_us * 1.1);
    EXPECT_LT(rich_us, petrol_us * 0.9);
}

TEST_F(WarmCar, UpperGainCountsAtHighLoad) {
    go_to_gas();
    EXPECT_NEAR(status_word(gain_at), 1200 - 199 * (unit.engine().injection_us - 2502) / 5502, 6);
    write(4, 1700);
    wait_s(5);
    const int idle = status_word(gain_at);
    type("throttle 80");
    wait_s(5);
    EXPECT_GT(status_word(gain_at), idle + 150);
}

TEST_F(WarmCar, ReferenceGainHoldsBelowTheReferenceTime) {
    write(129, 1111);
    write(128, 4000);
    wait_s(1);
    EXPECT_EQ(status_word(gain_at), 1111);
    write(128, 0);
    wait_s(1);
    EXPECT_NE(status_word(gain_at), 1111);
}

TEST_F(WarmCar, TrimsShowTheCorrectionOfTheController) {
    go_to_gas();
    wait_s(60);
    EXPECT_GT(unit.engine().trim, 0.1);
    EXPECT_LE(unit.engine().trim, 0.25);
    EXPECT_GT(unit.engine().long_trim, 0.08) << "a lasting trim is learnt";
}

TEST_F(WarmCar, InjectorConstantsShiftTheInjectionTime) {
    type("memory 3 1400");
    type("memory 4 1200");
    go_to_gas();
    const double before_us = mean_injection_us();
    for (const auto& [number, value] :
         {std::pair{107, 1500}, {200, 200}, {201, 60000}, {202, 6000}}) {
        const std::uint16_t factory = unit.parameter(number);
        write(number, value);
        wait_s(20);
        EXPECT_LT(mean_injection_us(), before_us - 30) << "PAR_" << number;
        write(number, factory);
        wait_s(20);
    }
}

TEST_F(WarmCar, WithoutASensorPressureMakesItRich) {
    type("memory 3 1400");
    go_to_gas();
    write(50, 0);
    wait_s(20);
    const double before_us = mean_injection_us();
    EXPECT_EQ(status_word(pressure_at), 0);
    type("pressure 1800");
    wait_s(20);
    EXPECT_LT(mean_injection_us(), before_us * 0.95) << "no sensor corrects the pressure";
}

TEST_F(WarmCar, SensorCorrectsThePressure) {
    type("memory 3 1400");
    go_to_gas();
    wait_s(20);
    const double before_us = mean_injection_us();
    type("pressure 1800");
    wait_s(20);
    EXPECT_NEAR(mean_injection_us(), before_us, 40);
    write(104, 1600);
    wait_s(20);
    EXPECT_LT(mean_injection_us(), before_us * 0.95);
}

TEST_F(WarmCar, PressureDropsWithFlow) {
    go_to_gas();
    const int idle = status_word(pressure_at);
    type("throttle 100");
    wait_s(6);
    const int full = status_word(pressure_at);
    EXPECT_LT(full, idle - 100);
    EXPECT_GT(full, 1000);
}

TEST_F(WarmCar, LowerDividerShowsMoreSpeed) {
    const int rpm = status_word(rpm_at);
    write(1, 5);
    EXPECT_NEAR(status_word(rpm_at), 2 * rpm, 60);
    write(1, 0);
    EXPECT_LE(status_word(rpm_at), 65535) << "0 divides nothing";
}

TEST_F(WarmCar, InvertedCoilSignalNeedsALongFilter) {
    write(126, 1);
    EXPECT_NEAR(status_word(rpm_at), 1700, 60);
    write(125, 4000);
    EXPECT_NEAR(status_word(rpm_at), 850, 40);
}

TEST_F(WarmCar, BatteryIsChargedWhileTheEngineRuns) {
    EXPECT_NEAR(unit.engine().battery_v, 14.1, 0.1);
    type("engine off");
    wait_s(5);
    EXPECT_EQ(status_word(rpm_at), 0);
    EXPECT_NEAR(unit.engine().battery_v, 12.4, 0.1);
    type("battery 11.3");
    wait_s(5);
    EXPECT_NEAR(status_word(battery_at) / 1025.0 * 5.4, 11.3, 0.05);
    type("battery auto");
    type("engine on");
    wait_s(5);
    EXPECT_NEAR(unit.engine().battery_v, 14.1, 0.1);
}

TEST_F(WarmCar, TankLampsFollowTheThresholds) {
    type("tank 60");
    EXPECT_EQ(unit.gas().gauge_band(unit.memory()), 3);
    EXPECT_EQ(status_word(tank_at), 4080);
    write(34, 70);
    EXPECT_EQ(unit.gas().gauge_band(unit.memory()), 2);
    write(31, 5000); // a wider span reads the same voltage as a lower level
    EXPECT_EQ(unit.gas().gauge_band(unit.memory()), 1);
    go_to_gas();
    wait_s(3600);
    EXPECT_LT(unit.gas().tank_percent, 58);
    EXPECT_GT(unit.gas().tank_percent, 40);
}

TEST_F(WarmCar, AnotherSenderNeedsItsOwnEndPoints) {
    type("sender 5");
    type("tank 100");
    EXPECT_EQ(status_word(tank_at), 600);
    EXPECT_EQ(unit.gas().gauge_band(unit.memory()), 0);
    write(30, 4000);
    write(31, 600);
    EXPECT_EQ(unit.gas().gauge_band(unit.memory()), 4);
}

TEST_F(WarmCar, TimeOnGasCountsMinutesAndHours) {
    wait_s(600);
    EXPECT_EQ(unit.parameter(28), 0) << "petrol does not count";
    go_to_gas();
    wait_s(59 * 60);
    EXPECT_EQ(unit.parameter(28), 59);
    EXPECT_EQ(unit.parameter(27), 0);
    wait_s(60);
    EXPECT_EQ(unit.parameter(28), 0);
    EXPECT_EQ(unit.parameter(27), 1);
    write(27, 0);
    wait_s(120);
    EXPECT_EQ(unit.parameter(28), 2);
    EXPECT_EQ(unit.parameter(27), 0);
}

TEST_F(WarmCar, CurrentProbeHasAnotherScale) {
    int most = 0;
    write(21, 1);
    for (int i = 0; i < 40; ++i)
        most = std::max(most, status_word(lambda_at));
    EXPECT_GT(most, 1100);
}

TEST_F(WarmCar, LambdaControlMovesTheMixtureToItsLimit) {
    type("memory 3 1400");
    go_to_gas();
    write(36, 2000); // above what the probe can give, so that the unit takes all for lean
    write(11, 1);
    wait_s(90);
    const double rich_us = mean_injection_us();
    write(12, 0);
    wait_s(90);
    EXPECT_GT(mean_injection_us(), rich_us * 1.05) << "inverted, it corrects the other way";
}

TEST_F(WarmCar, DeltaCorrectorActsWhileThePedalMoves) {
    const auto richest_after_a_push = [](int tenths) {
        Workshop shop({.warm = true});
        shop.type("gas on");
        shop.wait_s(10);
        shop.write(101, tenths);
        shop.type("throttle 60");
        double richest = 0;
        for (int i = 0; i < 10; ++i) {
            shop.wait_ms(50);
            richest = std::max(richest, shop.unit.gas().mixture);
        }
        return richest;
    };
    EXPECT_GT(richest_after_a_push(60), richest_after_a_push(20) + 0.05);
}

} // namespace
} // namespace sim
