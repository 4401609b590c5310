// The simulated car: an engine in neutral with its petrol controller.
//
// The controller requests an injection time and corrects it with a narrow-band lambda probe (closed
// loop). It does not know about gas: a mixture that is too lean on gas makes it request more, one
// that is too rich less. The gas unit measures that requested time.
#pragma once

#include "simulator/random.h"

#include <optional>

namespace sim {

// The simulation advances in steps of this length.
inline constexpr double step_s = 0.05;

struct Engine {
    enum class Loop { open = 0, closed = 2, transient = 4 };

    // Inputs, set by commands.
    bool running = true;
    double throttle_set = 0;               // percent
    double ambient_c = 15;                 // degrees Celsius
    bool lambda_silent = false;            // the probe gives no voltage
    std::optional<double> battery_fixed_v; // in place of the simulated voltage

    // Results of the simulation.
    double throttle = 0;      // percent, follows the pedal with a lag
    double throttle_rate = 0; // percent a second
    double rpm = 0;
    double running_s = 0; // since the start
    double coolant_c = 15;
    double load = 0;         // percent of the cylinder's full charge
    double injection_us = 0; // requested by the controller; 0 in overrun and when stopped
    double trim = 0;         // correction by the loop as a fraction, -0.25 to 0.25
    double long_trim = 0;    // the learnt, lasting part of the trim
    double ripple = 0;       // oscillation of the closed loop, as a fraction
    double lambda_mv = 0;
    double battery_v = 12.4;
    Loop loop = Loop::open;

    // Starts the engine cold, or as after half an hour of driving.
    void start(bool warm);
    void stop();
    // `mixture` is the ratio of fuel delivered to fuel needed, without the trim; 1 on petrol.
    void step(Random& random, double mixture);

  private:
    void step_speed(Random& random);
    void step_coolant();
    void step_injection(Random& random, double mixture);
    void step_lambda(Random& random, double mixture);

    double swing_phase_ = 0;
    double transient_left_s_ = 0;
};

} // namespace sim
