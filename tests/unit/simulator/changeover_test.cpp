// When the simulated unit goes over to gas and when it goes back: each condition by itself.
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

using Fuel = Gas::Fuel;

class Changeover : public WorkshopTest {
  protected:
    Changeover() : WorkshopTest({.warm = true}) { wait_s(1); }
    void ask_for_gas() {
        send_command(22);
        expect_after_s(3, Fuel::gas);
    }
    void expect_after_s(double s, Fuel fuel) {
        wait_s(s);
        EXPECT_EQ(unit.fuel(), fuel);
        EXPECT_EQ(status_word(fuel_at), static_cast<int>(fuel));
    }
};

TEST_F(Changeover, WaitsForSpeed) {
    expect_after_s(30, Fuel::waiting);
    type("throttle 20");
    expect_after_s(3, Fuel::gas);
}

TEST_F(Changeover, SpeedIsThatOfTheParameter) {
    write(121, 2500);
    type("throttle 20");
    expect_after_s(5, Fuel::waiting);
    type("throttle 35");
    expect_after_s(3, Fuel::gas);
}

TEST_F(Changeover, WaitsForWarmth) {
    write(121, 100);
    type("coolant 30");
    write(15, 40);
    expect_after_s(3, Fuel::waiting);
    EXPECT_EQ(status_word(stage_at), 2);
    type("coolant 41");
    expect_after_s(2, Fuel::gas);
}

TEST_F(Changeover, WaitsForTheTimeAfterTheStart) {
    write(121, 100);
    write(110, 40);
    type("engine off");
    wait_s(3);
    type("engine on");
    expect_after_s(38, Fuel::waiting);
    EXPECT_EQ(status_word(stage_at), 3);
    expect_after_s(3, Fuel::gas);
}

TEST_F(Changeover, WaitsForPressure) {
    write(121, 100);
    write(22, 1300);
    type("pressure 1250");
    expect_after_s(3, Fuel::no_pressure);
    write(22, 1100);
    expect_after_s(6, Fuel::gas);
}

TEST_F(Changeover, IgnoresThePressureWithoutASensor) {
    write(121, 100);
    write(50, 0);
    type("pressure 300");
    expect_after_s(3, Fuel::gas);
}

TEST_F(Changeover, WithAutomaticOffWaitsForACommand) {
    write(105, 0);
    write(121, 100);
    expect_after_s(30, Fuel::petrol);
    send_command(22);
    expect_after_s(2, Fuel::gas);
}

TEST_F(Changeover, CommandAtIdleTakesLessThanASecond) {
    send_command(22);
    wait_ms(900);
    EXPECT_EQ(unit.fuel(), Fuel::gas);
}

TEST_F(Changeover, CommandWaitsForWarmth) {
    type("coolant 20");
    send_command(22);
    expect_after_s(5, Fuel::waiting);
}

TEST_F(Changeover, CommandBackToPetrolLasts) {
    ask_for_gas();
    send_command(4);
    wait_ms(50);
    EXPECT_EQ(unit.fuel(), Fuel::petrol);
    type("throttle 40");
    expect_after_s(30, Fuel::petrol);
}

TEST_F(Changeover, CommandToPetrolEndsTheWait) {
    expect_after_s(1, Fuel::waiting);
    send_command(4);
    expect_after_s(30, Fuel::petrol);
}

TEST_F(Changeover, ForcedStartHasNoConditions) {
    type("coolant 0");
    write(122, 1);
    expect_after_s(2, Fuel::gas);
}

TEST_F(Changeover, OnAccelerationNeedsARisingSpeed) {
    write(121, 1000);
    write(122, 3);
    type("coolant 20");
    write(15, 60);
    type("throttle 20");
    expect_after_s(6, Fuel::waiting);
    type("coolant 85");
    expect_after_s(20, Fuel::waiting); // well above the speed, but steady
    type("throttle 40");
    expect_after_s(2, Fuel::gas);
}

TEST_F(Changeover, LowPressureEndsItAfterTheDelay) {
    ask_for_gas();
    write(106, 2000);
    type("pressure 200");
    wait_ms(1500);
    EXPECT_EQ(unit.fuel(), Fuel::gas);
    expect_after_s(2, Fuel::no_pressure);
    EXPECT_EQ(status_word(stage_at), 9);
}

TEST_F(Changeover, EmptyTankEndsOnPetrol) {
    ask_for_gas();
    type("tank 0");
    expect_after_s(5, Fuel::no_pressure);
    expect_after_s(60, Fuel::no_pressure);
    EXPECT_EQ(status_word(pressure_at), 0);
    EXPECT_NEAR(unit.engine().injection_us, 3200, 150) << "the engine runs on";
    type("tank 50");
    expect_after_s(8, Fuel::gas);
}

TEST_F(Changeover, ModularModeGoesOverCylinderByCylinder) {
    write(23, 1);
    send_command(22);
    wait_ms(800);
    EXPECT_EQ(unit.fuel(), Fuel::gas);
    EXPECT_LT(unit.gas().share, 0.7);
    wait_s(1.5);
    EXPECT_EQ(unit.gas().share, 1);
}

TEST_F(Changeover, SimulatedDelayHoldsItBack) {
    write(61, 3000);
    send_command(22);
    expect_after_s(2, Fuel::waiting);
    expect_after_s(2, Fuel::gas);
}

TEST_F(Changeover, CutOffByInjectionTimeShowsItsOwnTime) {
    write(41, 7);
    write(123, 640);
    write(124, 1500);
    send_command(22);
    type("throttle 50");
    wait_s(6);
    type("throttle 0");
    wait_ms(500);
    EXPECT_EQ(unit.gas().shown_injection(unit.engine(), unit.memory()), 640);
    EXPECT_EQ(unit.gas().stage(unit.engine(), unit.memory()), 8);
    write(41, 2);
    wait_ms(50);
    EXPECT_EQ(unit.gas().shown_injection(unit.engine(), unit.memory()), 0);
}

TEST_F(Changeover, PetrolReturnsAboveItsOwnSpeed) {
    send_command(22);
    type("throttle 40");
    wait_s(6);
    EXPECT_EQ(unit.gas().share, 1);
    write(47, 250);
    write(53, 10);
    wait_s(1);
    EXPECT_EQ(unit.gas().share, 0);
    type("throttle 20");
    wait_s(5);
    EXPECT_EQ(unit.gas().share, 1);
}

TEST_F(Changeover, StoppedEngineShutsTheValve) {
    ask_for_gas();
    type("engine off");
    wait_s(2);
    EXPECT_NE(unit.fuel(), Fuel::gas);
    EXPECT_EQ(unit.gas().share, 0);
}

} // namespace
} // namespace sim
