// The gas side: tank, regulator and valve, the changeover from petrol, and what the unit's
// parameters make of the mixture.
#pragma once

#include "simulator/engine.h"
#include "simulator/memory.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace sim {

struct Gas {
    // The fuel state as the unit reports it.
    enum class Fuel : std::uint16_t { petrol = 0, gas = 1, waiting = 2, no_pressure = 5 };

    // What stands behind the controls.
    double tank_percent = 70;
    int sender = 0;                       // which sender the tank has, 0 to 5
    std::optional<double> regulator_mbar; // instead of 1400 on LPG, 1200 on methane
    double richness = 1;                  // of the gas itself and its pipes; 1 is as built
    bool linked_to_car = false;           // the car's diagnosis gives its trims

    // What follows from it.
    Fuel fuel = Fuel::petrol;
    double share = 0; // of the cylinders on gas, 0 to 1
    double pressure_mbar = 0;
    double gas_c = 15;
    double gain = 0;        // thousandths, at the present injection time
    double mixture = 1;     // fuel delivered over fuel wanted, before any trim
    double gas_time_us = 0; // opening of the gas injectors
    bool cut_off = false;   // gas cut in overrun

    // Regulator and gas as warm or as cold as the engine.
    void start(bool warm);
    // The unit begins: nobody has asked for anything, and the valve is shut.
    void power_up();
    // Asked for by the operator: waits for warmth, time and pressure, but for no speed.
    void ask_for_gas();
    void ask_for_petrol();
    // Counts the time on gas in `memory`.
    void step(const Engine& engine, Memory& memory, Random& random);

    std::uint16_t measured_rpm(const Engine& engine, const Memory& memory) const;
    std::uint16_t shown_pressure(const Memory& memory) const; // 0 with no sensor fitted
    // As measured; in overrun on gas the made-up time, if the cut-off goes by injection time.
    std::uint16_t shown_injection(const Engine& engine, const Memory& memory) const;
    std::uint16_t sender_mv() const;
    // The level as the unit makes it out from the sender and its end points, 0 to 100.
    double level_percent(const Memory& memory) const;
    // The band of the gauge, 0 reserve to 4 full: how many thresholds the level is above.
    int gauge_band(const Memory& memory) const;
    // What the unit is busy with: 0 engine off, 1 petrol, 2 waits for warmth, 3 for time, 4 for
    // speed, 5 for pressure, 6 changes over, 7 on gas, 8 in cut-off, 9 no pressure.
    int stage(const Engine& engine, const Memory& memory) const;

  private:
    bool may_change_over(const Engine& engine, const Memory& memory) const;
    bool pressure_ok(const Memory& memory, double margin_mbar) const;
    void step_pressure(const Engine& engine, const Memory& memory, Random& random);
    void step_fuel(const Engine& engine, const Memory& memory);
    void step_share(const Engine& engine, const Memory& memory);
    void step_mixture(const Engine& engine, const Memory& memory);
    void step_lambda_control(const Engine& engine, const Memory& memory);
    double opening_factor(const Engine& engine, const Memory& memory) const;
    double flow_factor(const Memory& memory) const;
    void count_time(Memory& memory);

    bool by_hand_ = false;
    bool declined_ = false; // the operator wants petrol until asked again
    double rpm_before_ = 0;
    double rpm_rate_ = 0;
    double ready_s_ = 0;
    double low_pressure_s_ = 0;
    double recovered_s_ = 0;
    double minute_s_ = 0;
    double lambda_trim_ = 0;
    double petrol_cut_off_s_ = 0;
};

std::string_view fuel_name(Gas::Fuel fuel);
std::string_view stage_name(int stage);

} // namespace sim
