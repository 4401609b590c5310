// The gas side of the car: tank, regulator and valve, the changeover from petrol, and the effect of
// the unit's parameters on the mixture.
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

    // Inputs, set by commands.
    double tank_percent = 70;
    int sender = 0;                       // type of the tank sender, 0 to 5
    std::optional<double> regulator_mbar; // in place of 1400 on LPG, 1200 on methane
    double richness = 1;                  // factor of the gas quality; 1 is nominal
    bool linked_to_car = false;           // the unit uses the trims of the car's diagnosis

    // Results of the simulation.
    Fuel fuel = Fuel::petrol;
    double share = 0; // share of the cylinders on gas, 0 to 1
    double pressure_mbar = 0;
    double gas_c = 15;
    double gain = 0;        // thousandths, at the present injection time
    double mixture = 1;     // ratio of fuel delivered to fuel needed, without the trim
    double gas_time_us = 0; // opening time of the gas injectors
    bool cut_off = false;   // gas cut in overrun

    // Starts with regulator and gas as warm or cold as the engine.
    void start(bool warm);
    // The unit starts: no request of the operator is pending, and the valve is closed.
    void power_up();
    // Requests of the operator. A request for gas waits for temperature, time and pressure, but not
    // for an engine speed.
    void ask_for_gas();
    void ask_for_petrol();
    // Also counts the time on gas in `memory`.
    void step(const Engine& engine, Memory& memory, Random& random);

    std::uint16_t measured_rpm(const Engine& engine, const Memory& memory) const;
    std::uint16_t shown_pressure(const Memory& memory) const; // 0 with no sensor fitted
    // As measured. In overrun on gas with cut-off by injection time, the fixed time of that
    // setting.
    std::uint16_t shown_injection(const Engine& engine, const Memory& memory) const;
    std::uint16_t sender_mv() const;
    // The level that the unit computes from the sender and its end points, 0 to 100.
    double level_percent(const Memory& memory) const;
    // The band of the gauge, 0 reserve to 4 full: the number of thresholds below the level.
    int gauge_band(const Memory& memory) const;
    // The unit's state: 0 engine off, 1 petrol, 2 waiting for temperature, 3 for time, 4 for speed,
    // 5 for pressure, 6 changing over, 7 on gas, 8 in cut-off, 9 no pressure.
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

    bool gas_requested_ = false;
    bool petrol_requested_ = false; // the operator chose petrol; no automatic changeover
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
