// The car: an engine in neutral with its petrol controller, as a fitter has it in the workshop.
//
// The controller asks for an injection time, and it closes the loop over a narrow-band lambda
// probe. It does not know about gas: a mixture that is too lean on gas makes it ask for more, one
// that is too rich for less. That time is what the gas unit measures.
#pragma once

#include "simulator/random.h"

#include <optional>

namespace sim {

// Everything moves on in steps of this length.
inline constexpr double step_s = 0.05;

struct Engine {
    enum class Loop { open = 0, closed = 2, transient = 4 };

    // What stands behind the controls.
    bool running = true;
    double throttle_set = 0;               // percent
    double ambient_c = 15;                 // degrees Celsius
    bool lambda_silent = false;            // the probe gives no voltage
    std::optional<double> battery_fixed_v; // instead of what the alternator makes

    // What follows from it.
    double throttle = 0;      // percent, behind the pedal by the linkage's lag
    double throttle_rate = 0; // percent a second
    double rpm = 0;
    double running_s = 0; // since the start
    double coolant_c = 15;
    double load = 0;         // percent of a full cylinder
    double injection_us = 0; // what the controller asks for; 0 in overrun and at rest
    double trim = 0;         // share by which the loop lengthens it, at most 0.25 either way
    double long_trim = 0;    // the part that the controller has learnt
    double ripple = 0;       // the loop's own swing
    double lambda_mv = 0;
    double battery_v = 12.4;
    Loop loop = Loop::open;

    // Cold, or as after half an hour's drive.
    void start(bool warm);
    void stop();
    // `mixture`: fuel delivered over fuel wanted, before the loop has trimmed it; 1 on petrol.
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
