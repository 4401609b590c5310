#include "simulator/engine.h"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

constexpr double thermostat_c = 88;
constexpr double idle_rpm = 850;
constexpr double idle_injection_us = 3200;
constexpr double trim_limit = 0.25;
// The loop is closed only after the probe is hot and the water warm.
constexpr double probe_hot_s = 25;
constexpr double closed_loop_c = 35;

// The fraction of the distance to its goal that a value with this lag covers in one step.
constexpr double share(double lag_s) { return step_s / (lag_s + step_s); }

void follow(double& value, double goal, double lag_s) { value += (goal - value) * share(lag_s); }

} // namespace

void Engine::start(bool warm) {
    running = true;
    throttle = throttle_set;
    running_s = warm ? 1800 : 0;
    coolant_c = warm ? 90 : ambient_c;
    if (warm) {
        rpm = idle_rpm;
        injection_us = idle_injection_us;
    }
    trim = long_trim = ripple = 0;
}

void Engine::stop() { running = false; }

void Engine::step(Random& random, double mixture) {
    const double before = throttle;
    follow(throttle, throttle_set, 0.1);
    throttle_rate = (throttle - before) / step_s;
    running_s = running ? running_s + step_s : 0;
    step_speed(random);
    step_coolant();
    step_injection(random, mixture);
    step_lambda(random, mixture);
    const double charging_v = rpm > 500 ? 14.1 + 0.0001 * (rpm - idle_rpm) : 12.4;
    follow(battery_v, battery_fixed_v.value_or(std::min(charging_v, 14.4)), 0.5);
}

void Engine::step_speed(Random& random) {
    if (!running) {
        follow(rpm, 0, 0.4);
        if (rpm < 60) rpm = 0;
        return;
    }
    const double cold_idle = idle_rpm + 6.5 * std::clamp(60 - coolant_c, 0.0, 60.0);
    const double goal = cold_idle + 55 * throttle;
    follow(rpm, goal, goal > rpm ? 0.5 : 1.0);
    rpm = std::clamp(rpm + 4 * random.swing(), 0.0, 6800.0);
}

void Engine::step_coolant() {
    double change = (ambient_c - coolant_c) * 0.0006;
    if (running) change += 0.12 + 0.00008 * rpm;
    if (coolant_c > thermostat_c) change -= (coolant_c - thermostat_c) * 0.05;
    coolant_c += change * step_s;
}

void Engine::step_injection(Random& random, double mixture) {
    if (!running || rpm < 50) {
        injection_us = load = ripple = 0;
        loop = Loop::open;
        follow(trim, 0, 0.5);
        return;
    }
    // In overrun nothing is injected above this speed; below it the engine must keep itself
    // running.
    const bool overrun = throttle < 1 && throttle_set < 1 && rpm > 1700;
    follow(load, overrun ? 12 : 26 + 0.62 * throttle, 0.15);
    if (std::abs(throttle_rate) > 15) transient_left_s_ = 0.8;
    transient_left_s_ = std::max(0.0, transient_left_s_ - step_s);
    const bool ready = running_s > probe_hot_s && coolant_c > closed_loop_c && !lambda_silent;
    loop = !ready || throttle > 85 ? Loop::open
           : transient_left_s_ > 0 ? Loop::transient
                                   : Loop::closed;
    if (loop == Loop::closed) {
        follow(trim, std::clamp(1 / std::max(mixture, 0.1) - 1, -trim_limit, trim_limit), 0.5);
        // A lasting trim is learnt slowly, so that the fast trim can return to 0.
        follow(long_trim, std::clamp(trim, -0.2, 0.2), 45);
        swing_phase_ += step_s / 1.37;
        if (swing_phase_ >= 1) swing_phase_ -= 1;
        ripple = 0.01 * (4 * std::abs(swing_phase_ - 0.5) - 1);
    } else {
        ripple = 0;
        if (!ready) follow(trim, long_trim, 0.5);
    }
    if (overrun) {
        injection_us = 0;
        return;
    }
    const double wanted = idle_injection_us + 72 * (load - 26);
    const double choke = 1 + 0.009 * std::clamp(65 - coolant_c, 0.0, 90.0);
    const double pump_stroke = std::clamp(0.002 * throttle_rate, -0.15, 0.3);
    const double noise = 0.008 * random.swing();
    injection_us =
        std::clamp(wanted * choke * (1 + trim + ripple + pump_stroke + noise), 0.0, 30000.0);
}

void Engine::step_lambda(Random& random, double mixture) {
    if (lambda_silent || running_s < 10) {
        follow(lambda_mv, 0, 0.2);
        return;
    }
    const double cold = coolant_c < closed_loop_c ? 0.03 : 0;
    const double rich_by = injection_us > 0 ? mixture * (1 + trim + ripple) - 1 + cold : -1;
    follow(lambda_mv, std::clamp(450 + 40000 * rich_by, 80.0, 870.0), 0.12);
    lambda_mv = std::clamp(lambda_mv + 4 * random.swing(), 0.0, 950.0);
}

} // namespace sim
