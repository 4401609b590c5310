// What the tool last read from, or sent to, the control unit. Writes are never acknowledged: the
// mirror is the only record, and the next image read is the only correction.
//
// All are plain numbers as on the wire; a fraction stands here only where the operator typed one.
#pragma once

#include <string>

namespace zol::link {

struct ParameterMirrors {
    double rpm_multiplier = 0;          // PAR_1, tenths
    double ktar_low = 0;                // PAR_3, thousandths
    double ktar_high = 0;               // PAR_4, thousandths
    double tinj_lower = 0;              // PAR_5, microseconds
    double tinj_upper = 0;              // PAR_6, microseconds
    double fuel_type = 0;               // PAR_10, 1 LPG, 0 methane
    double lambda_control = 0;          // PAR_11, 1 on
    double lambda_direction = 0;        // PAR_12, 1 direct, 0 inverted
    double changeover_temperature = 0;  // PAR_15, degrees Celsius
    double lambda_open_loop_max = 0;    // PAR_16
    double debug_flag = 0;              // PAR_20
    double lambda_input_kind = 0;       // PAR_21, 0 voltage, 1 current
    double changeover_pressure = 0;     // PAR_22, mbar
    double modular_changeover = 0;      // PAR_23
    double hours_on_gas = 0;            // PAR_27
    double minutes_on_gas = 0;          // PAR_28
    double last_check_day = 0;          // PAR_29
    double tank_min_mv = 0;             // PAR_30, sender at the empty tank
    double tank_max_mv = 0;             // PAR_31, sender at the full tank
    double tank_threshold_1 = 0;        // PAR_32, percent
    double tank_threshold_2 = 0;        // PAR_33, percent
    double tank_threshold_3 = 0;        // PAR_34, percent
    double tank_threshold_4 = 0;        // PAR_35, percent
    double lambda_closed_loop_max = 0;  // PAR_36
    double last_check_month = 0;        // PAR_39
    double last_check_year = 0;         // PAR_40, two digits
    double gas_cut_off_mode = 0;        // PAR_41, 7 injection time, 5 rpm, 2 not active
    double petrol_cut_off_rpm = 0;      // PAR_47, tens
    double pressure_sensor = 0;         // PAR_50, 1 fitted
    double calibration_temperature = 0; // PAR_51, degrees Celsius
    double temperature_correction = 0;  // PAR_52, thousandths per degree
    double petrol_cut_off_time = 0;     // PAR_53, hundreds
    double attenuation = 0;             // PAR_101, tenths
    double par_103 = 0;                 // percent; written by the factory reset
    double calibration_pressure = 0;    // PAR_104, mbar
    double auto_changeover = 0;         // PAR_105, 1 on
    double low_pressure_delay = 0;      // PAR_106, ms
    double injector_latency = 0;        // PAR_107, microseconds
    double changeover_time = 0;         // PAR_110, seconds
    double changeover_rpm = 0;          // PAR_121
    double forced_start_mode = 0;       // PAR_122, 0 normal, 1 permanent, 3 on acceleration
    double cut_off_inj_time = 0;        // PAR_123
    double cut_off_rpm = 0;             // PAR_124
    double reference_inj_threshold = 0; // PAR_128, microseconds
    double reference_ktar = 0;          // PAR_129, thousandths
    double tank_sensor_par = 0;         // PAR_130
    double eobd_direction = 0;          // PAR_142: 1 inverse here, 257 on the wire
    double eobd_protocol = 0;           // PAR_143
    double fuel_offset = 0;             // PAR_144, 100 means none
    double injector_constant = 0;       // PAR_200
    double injector_opening = 0;        // PAR_202
    double par_215 = 0;                 // written by the factory reset
    std::string last_check_year_text;
};

inline ParameterMirrors mirrors;

} // namespace zol::link
