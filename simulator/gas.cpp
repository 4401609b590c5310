#include "simulator/gas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sim {
namespace {

constexpr double air_mbar = 1013; // added because the flow depends on the absolute pressure
constexpr double lpg_mbar = 1400;
constexpr double methane_mbar = 1200;

bool lpg(const Memory& memory) { return memory[par::fuel] == 1; }
double nominal_mbar(const Memory& memory) { return lpg(memory) ? lpg_mbar : methane_mbar; }

struct Sender {
    double empty_mv;
    double full_mv;
};
constexpr std::array<Sender, 6> senders = {
    {{3900, 4200}, {3900, 4200}, {150, 400}, {1948, 3964}, {4000, 2700}, {4000, 600}}};

void follow(double& value, double goal, double lag_s) {
    value += (goal - value) * (step_s / (lag_s + step_s));
}

} // namespace

void Gas::start(bool warm) {
    gas_c = warm ? 56 : 15;
    pressure_mbar = regulator_mbar.value_or(lpg_mbar);
}

void Gas::power_up() {
    fuel = Fuel::petrol;
    gas_requested_ = petrol_requested_ = false;
    ready_s_ = low_pressure_s_ = recovered_s_ = lambda_trim_ = 0;
}

void Gas::ask_for_gas() {
    gas_requested_ = true;
    petrol_requested_ = false;
    if (fuel != Fuel::gas) fuel = Fuel::waiting;
}

void Gas::ask_for_petrol() {
    gas_requested_ = false;
    petrol_requested_ = true;
    fuel = Fuel::petrol;
}

std::uint16_t Gas::measured_rpm(const Engine& engine, const Memory& memory) const {
    double rpm = engine.rpm;
    // One pulse comes every half turn. A filter longer than the distance of two pulses suppresses
    // every other one. With the rising edge, only a long filter suppresses the ringing, which
    // doubles the pulses.
    const double filter_us = memory[par::coil_filter];
    if (rpm > 1 && filter_us > 30e6 / rpm) rpm /= 2;
    if (memory[par::coil_upwards] == 1 && filter_us < 4000) rpm *= 2;
    rpm = rpm * 10 / std::max<int>(1, memory[par::rpm_multiplier]);
    return static_cast<std::uint16_t>(std::clamp(rpm, 0.0, 65535.0));
}

std::uint16_t Gas::shown_pressure(const Memory& memory) const {
    if (memory[par::pressure_sensor] != 1) return 0;
    return static_cast<std::uint16_t>(std::clamp(pressure_mbar, 0.0, 5000.0));
}

std::uint16_t Gas::shown_injection(const Engine& engine, const Memory& memory) const {
    const bool overrun = engine.injection_us <= 0 && engine.rpm > 500;
    if (overrun && fuel == Fuel::gas && memory[par::gas_cut_off] == 7 &&
        measured_rpm(engine, memory) > memory[par::cut_off_rpm])
        return memory[par::cut_off_inj_time];
    // The unit measures in ticks of 8 us. On gas the result is 1 us longer, so a mean over readings
    // on petrol and one on gas never agree in the last digit.
    const auto ticks = std::lround(engine.injection_us / 8);
    return static_cast<std::uint16_t>(8 * ticks + (fuel == Fuel::gas && ticks > 0 ? 1 : 0));
}

std::uint16_t Gas::sender_mv() const {
    const Sender& has = senders[static_cast<std::size_t>(std::clamp(sender, 0, 5))];
    const double filled = std::clamp(tank_percent, 0.0, 100.0) / 100;
    return static_cast<std::uint16_t>(
        std::lround(has.empty_mv + (has.full_mv - has.empty_mv) * filled));
}

double Gas::level_percent(const Memory& memory) const {
    const double empty = memory[par::tank_empty_mv];
    const double full = memory[par::tank_full_mv];
    if (empty == full) return 0;
    return std::clamp((sender_mv() - empty) / (full - empty) * 100, 0.0, 100.0);
}

int Gas::gauge_band(const Memory& memory) const {
    const double level = level_percent(memory);
    int band = 0;
    while (band < 4 && level > memory[par::tank_threshold + band])
        ++band;
    return band;
}

int Gas::stage(const Engine& engine, const Memory& memory) const {
    if (!engine.running) return 0;
    if (fuel == Fuel::no_pressure) return 9;
    if (fuel == Fuel::gas) return cut_off ? 8 : share < 1 ? 6 : 7;
    if (fuel == Fuel::petrol) return 1;
    if (engine.coolant_c < memory[par::changeover_temperature]) return 2;
    if (engine.running_s < memory[par::changeover_time]) return 3;
    if (!may_change_over(engine, memory)) return 4;
    return pressure_ok(memory, 0) ? 6 : 5;
}

bool Gas::pressure_ok(const Memory& memory, double margin_mbar) const {
    // Without a sensor the unit assumes that the pressure is sufficient.
    if (memory[par::pressure_sensor] != 1) return true;
    return pressure_mbar >= memory[par::changeover_pressure] + margin_mbar;
}

bool Gas::may_change_over(const Engine& engine, const Memory& memory) const {
    if (!engine.running || engine.rpm < 300) return false;
    const int forced = memory[par::forced_start];
    if (forced == 1) return true;
    if (engine.coolant_c < memory[par::changeover_temperature]) return false;
    if (engine.running_s < memory[par::changeover_time]) return false;
    if (gas_requested_) return true;
    if (measured_rpm(engine, memory) < memory[par::changeover_rpm]) return false;
    return forced != 3 || rpm_rate_ > 150;
}

void Gas::step(const Engine& engine, Memory& memory, Random& random) {
    follow(rpm_rate_, (engine.rpm - rpm_before_) / step_s, 0.1);
    rpm_before_ = engine.rpm;
    follow(gas_c, engine.ambient_c + 0.55 * (engine.coolant_c - engine.ambient_c), 20);
    step_pressure(engine, memory, random);
    step_fuel(engine, memory);
    step_share(engine, memory);
    step_mixture(engine, memory);
    if (share >= 0.5 && engine.rpm > 300) count_time(memory);
}

void Gas::step_pressure(const Engine& engine, const Memory& memory, Random& random) {
    // 1 is the longest injection at the highest speed.
    const double flow = share * engine.injection_us * engine.rpm / (7700.0 * 6350.0);
    tank_percent = std::clamp(tank_percent - flow * 0.011 * step_s, 0.0, 100.0);
    const double closed = regulator_mbar.value_or(nominal_mbar(memory));
    const double goal = tank_percent < 0.5 ? 0 : closed - 250 * flow;
    follow(pressure_mbar, std::max(0.0, goal + (goal > 0 ? 3 * random.swing() : 0)), 0.3);
}

void Gas::step_fuel(const Engine& engine, const Memory& memory) {
    const double delay_s = memory[par::low_pressure_delay] / 1000.0;
    const bool by_itself = memory[par::automatic] == 1 || memory[par::forced_start] == 1;
    if (!engine.running && fuel == Fuel::gas) fuel = Fuel::petrol;
    if (fuel == Fuel::petrol && by_itself && !petrol_requested_) fuel = Fuel::waiting;
    if (fuel == Fuel::waiting && !by_itself && !gas_requested_) fuel = Fuel::petrol;
    const bool low = !pressure_ok(memory, 0);
    if (fuel == Fuel::waiting) {
        ready_s_ = may_change_over(engine, memory) ? ready_s_ + step_s : 0;
        low_pressure_s_ = ready_s_ > 0 && low ? low_pressure_s_ + step_s : 0;
        if (low_pressure_s_ > delay_s) fuel = Fuel::no_pressure;
        if (!low && ready_s_ > 0.2 + memory[par::changeover_delay] / 1000.0) fuel = Fuel::gas;
        return;
    }
    ready_s_ = 0;
    if (fuel == Fuel::gas) {
        low_pressure_s_ = low ? low_pressure_s_ + step_s : 0;
        if (low_pressure_s_ > delay_s) fuel = Fuel::no_pressure;
    } else if (fuel == Fuel::no_pressure) {
        // Tries gas again after the pressure has been sufficient for 3 s.
        recovered_s_ = pressure_ok(memory, 50) ? recovered_s_ + step_s : 0;
        if (recovered_s_ > 3) {
            recovered_s_ = low_pressure_s_ = 0;
            fuel = Fuel::waiting;
        }
    }
}

void Gas::step_share(const Engine& engine, const Memory& memory) {
    const int petrol_above = memory[par::petrol_cut_off_rpm] * 10;
    petrol_cut_off_s_ = std::max(0.0, petrol_cut_off_s_ - step_s);
    if (petrol_above > 0 && measured_rpm(engine, memory) > petrol_above)
        petrol_cut_off_s_ = memory[par::petrol_cut_off_time] / 10.0;
    const bool flows = fuel == Fuel::gas && petrol_cut_off_s_ <= 0;
    const double change = step_s / (memory[par::modular] == 1 ? 1.2 : 0.2);
    share = std::clamp(share + (flows ? change : -change), 0.0, 1.0);
    const int mode = memory[par::gas_cut_off];
    cut_off = fuel == Fuel::gas && (mode == 5 || mode == 7) && engine.injection_us <= 0 &&
              measured_rpm(engine, memory) > memory[par::cut_off_rpm];
}

double Gas::opening_factor(const Engine& engine, const Memory& memory) const {
    // One step of gain changes the opening by a little more than a thousandth. So a proportional
    // correction overshoots slightly, and a correction in steps settles from either side. lpg_gain
    // and methane_gain are the gains at which gas and petrol agree in a nominal car.
    constexpr double no_opening_gain = 400, lpg_gain = 1360, methane_gain = 1370;
    double factor =
        (gain - no_opening_gain) / ((lpg(memory) ? lpg_gain : methane_gain) - no_opening_gain);
    if (memory[par::pressure_sensor] == 1)
        factor *= std::clamp(
            (memory[par::calibration_pressure] + air_mbar) / (pressure_mbar + air_mbar), 0.5, 2.0);
    factor *= std::clamp(1 + memory[par::temperature_correction] / 1000.0 *
                                 (gas_c - memory[par::calibration_temperature]),
                         0.7, 1.4);
    // Throttle movements: the factory value of 20 tenths is right; less makes the mixture lean,
    // more makes it rich.
    factor *= 1 + std::clamp(engine.throttle_rate / 200, -1.0, 1.0) *
                      std::clamp((memory[par::delta_corrector] - 20) / 10.0, -2.0, 13.0) * 0.03;
    if (linked_to_car) {
        const double towards = memory[par::eobd_inverse] == 0 ? 1 : -1;
        const double part = std::min<int>(memory[par::eobd_correction], 20) / 100.0;
        const double offset = std::clamp((memory[par::fuel_offset] - 100) / 100.0, -0.3, 0.3);
        factor *= 1 + towards * part * (engine.trim - offset);
    }
    // Latency and constants of the injectors add to the opening time.
    const double added_us =
        0.5 * (memory[par::injector_latency] - 800) + 1.0 * (memory[par::injector_constant] - 60) +
        0.003 * (memory[par::injector_time] - 8000) + 0.05 * (memory[par::injector_opening] - 2000);
    factor *= std::clamp(1 + added_us / std::max(2000.0, engine.injection_us), 0.6, 1.4);
    return factor * (1 + lambda_trim_);
}

double Gas::flow_factor(const Memory& memory) const {
    if (pressure_mbar < 20) return 0;
    return (pressure_mbar + air_mbar) / (nominal_mbar(memory) + air_mbar) * (273.0 + 50) /
           (273 + gas_c) * richness;
}

void Gas::step_mixture(const Engine& engine, const Memory& memory) {
    const double time_us = engine.injection_us;
    const double low = memory[par::inj_time_low];
    const double high = memory[par::inj_time_high];
    const double upper = high > low ? std::clamp((time_us - low) / (high - low), 0.0, 1.0)
                                    : (time_us >= high ? 1 : 0);
    gain = memory[par::gain_low] + (memory[par::gain_high] - memory[par::gain_low]) * upper;
    if (time_us > 0 && time_us < memory[par::reference_threshold])
        gain = memory[par::reference_gain];
    if (share <= 0) {
        mixture = 1;
        gas_time_us = 0;
        lambda_trim_ = 0;
        return;
    }
    step_lambda_control(engine, memory);
    const double opening = std::clamp(opening_factor(engine, memory), 0.1, 4.0);
    gas_time_us = cut_off ? 0 : share * opening * time_us;
    mixture = (1 - share) + share * std::clamp(opening * flow_factor(memory), 0.1, 4.0);
}

void Gas::step_lambda_control(const Engine& engine, const Memory& memory) {
    if (memory[par::lambda_control] != 1) {
        lambda_trim_ = 0;
        return;
    }
    const double limit_mv = memory[engine.loop == Engine::Loop::closed ? par::lambda_closed_loop
                                                                       : par::lambda_open_loop];
    const double scale = memory[par::lambda_current] == 1 ? 2.2 : 1.0;
    const bool rich = (engine.lambda_mv * scale > limit_mv) == (memory[par::lambda_direct] != 0);
    lambda_trim_ += ((rich ? -0.005 : 0.005) - 0.05 * lambda_trim_) * step_s;
}

void Gas::count_time(Memory& memory) {
    minute_s_ += step_s;
    if (minute_s_ < 60) return;
    minute_s_ -= 60;
    int minutes = memory[par::minutes_on_gas] + 1;
    if (minutes >= 60) {
        minutes = 0;
        memory.set(par::hours_on_gas, static_cast<std::uint16_t>(memory[par::hours_on_gas] + 1));
    }
    memory.set(par::minutes_on_gas, static_cast<std::uint16_t>(minutes));
}

std::string_view fuel_name(Gas::Fuel fuel) {
    switch (fuel) {
    case Gas::Fuel::petrol: return "petrol";
    case Gas::Fuel::gas: return "gas";
    case Gas::Fuel::waiting: return "waiting for gas";
    case Gas::Fuel::no_pressure: return "no pressure";
    }
    return "";
}

std::string_view stage_name(int stage) {
    constexpr std::array<std::string_view, 10> names = {"engine off",
                                                        "petrol",
                                                        "waiting for temperature",
                                                        "waiting for time",
                                                        "waiting for speed",
                                                        "waiting for pressure",
                                                        "changing over",
                                                        "on gas",
                                                        "in cut-off",
                                                        "no pressure"};
    return stage >= 0 && stage < 10 ? names[static_cast<std::size_t>(stage)] : "";
}

} // namespace sim
