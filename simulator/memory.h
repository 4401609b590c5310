// The unit's memory: 256 numbered words and their factory values.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace sim {

// The parameters that the simulation uses.
namespace par {
inline constexpr int rpm_multiplier = 1; // tenths; the measured speed is divided by it
inline constexpr int gain_low = 3;       // thousandths, at inj_time_low
inline constexpr int gain_high = 4;      // thousandths, at inj_time_high
inline constexpr int inj_time_low = 5;   // us
inline constexpr int inj_time_high = 6;  // us
inline constexpr int fuel = 10;          // 1 LPG, 0 methane
inline constexpr int lambda_control = 11;
inline constexpr int lambda_direct = 12;
inline constexpr int changeover_temperature = 15; // degrees Celsius
inline constexpr int lambda_open_loop = 16;
inline constexpr int debug = 20;
inline constexpr int lambda_current = 21;      // 1 current sensor, 0 voltage sensor
inline constexpr int changeover_pressure = 22; // mbar
inline constexpr int modular = 23;             // changes over cylinder by cylinder
inline constexpr int hours_on_gas = 27;
inline constexpr int minutes_on_gas = 28;
inline constexpr int check_day = 29;
inline constexpr int tank_empty_mv = 30;
inline constexpr int tank_full_mv = 31;
inline constexpr int tank_threshold = 32; // and the next three, percent
inline constexpr int lambda_closed_loop = 36;
inline constexpr int check_month = 39;
inline constexpr int check_year = 40;
inline constexpr int gas_cut_off = 41;        // 7 by injection time, 5 by speed, 2 none
inline constexpr int petrol_cut_off_rpm = 47; // tens of rpm, 0 none
inline constexpr int pressure_sensor = 50;    // 1 fitted
inline constexpr int calibration_temperature = 51;
inline constexpr int temperature_correction = 52; // thousandths for a degree
inline constexpr int petrol_cut_off_time = 53;    // tenths of a second
inline constexpr int changeover_delay = 61;       // ms, before the valve opens
inline constexpr int delta_corrector = 101;       // tenths
inline constexpr int calibration_pressure = 104;  // mbar
inline constexpr int automatic = 105;
inline constexpr int low_pressure_delay = 106; // ms
inline constexpr int injector_latency = 107;   // us
inline constexpr int changeover_time = 110;    // seconds after the start
inline constexpr int changeover_rpm = 121;
inline constexpr int forced_start = 122;     // 0 normal, 1 always, 3 on acceleration
inline constexpr int cut_off_inj_time = 123; // shown in gas cut-off by injection time
inline constexpr int cut_off_rpm = 124;
inline constexpr int coil_filter = 125; // us
inline constexpr int coil_upwards = 126;
inline constexpr int reference_threshold = 128; // us; below it reference_gain is used
inline constexpr int reference_gain = 129;      // thousandths
inline constexpr int tank_type = 130;
inline constexpr int eobd_correction = 140; // percent of the fuel trim
inline constexpr int eobd_inverse = 142;    // any value but 0: inverted
inline constexpr int eobd_protocol = 143;   // 0 automatic, 1 search, 2 to 10 a protocol
inline constexpr int fuel_offset = 144;     // percent, 100 none
inline constexpr int first_fault = 145;     // six, each n div 100 and n mod 100 in its bytes
inline constexpr int fault_count = 151;
inline constexpr int gain_copy = 152;
inline constexpr int auto_clear = 153;
inline constexpr int injector_constant = 200;
inline constexpr int injector_time = 201;
inline constexpr int injector_opening = 202;
} // namespace par

class Memory {
  public:
    static constexpr int size = 256;

    Memory() { restore_factory_values(); }
    // 0 for a number that the unit does not have.
    std::uint16_t operator[](int number) const {
        return number >= 0 && number < size ? words_[static_cast<std::size_t>(number)] : 0;
    }
    // False for a number that the unit does not have; nothing changes then.
    bool set(int number, std::uint16_t value) {
        if (number < 0 || number >= size) return false;
        words_[static_cast<std::size_t>(number)] = value;
        return true;
    }
    // Resets all words except the service records: time on gas and date of the last check.
    void restore_factory_values();

  private:
    std::array<std::uint16_t, size> words_{};
};

// The meaning of the parameter in a few words; empty if it is not known.
std::string_view parameter_meaning(int number);

} // namespace sim
