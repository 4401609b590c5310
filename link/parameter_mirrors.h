// The mirrors: the tool's copies of the parameters, as last read from or written to the control
// unit. Writes are never acknowledged, so a lost write leaves a wrong mirror until the next image
// read.
//
// Values are numbers as on the wire; only a number that the operator typed can have a fraction.
// Meaning and unit of each are in link/parameter_catalogue.inc. All are 0 before the first read.
#pragma once

#include <string>

namespace zol::link {

struct ParameterMirrors {
    double rpm_multiplier = 0;
    double ktar_low = 0;
    double ktar_high = 0;
    double tinj_lower = 0;
    double tinj_upper = 0;
    double fuel_type = 0;
    double lambda_control = 0;
    double lambda_direction = 0;
    double changeover_temperature = 0;
    double lambda_open_loop_max = 0;
    double debug_flag = 0;
    double lambda_input_kind = 0;
    double changeover_pressure = 0;
    double modular_changeover = 0;
    double hours_on_gas = 0;
    double minutes_on_gas = 0;
    double last_check_day = 0;
    double tank_min_mv = 0;
    double tank_max_mv = 0;
    double tank_threshold_1 = 0;
    double tank_threshold_2 = 0;
    double tank_threshold_3 = 0;
    double tank_threshold_4 = 0;
    double lambda_closed_loop_max = 0;
    double last_check_month = 0;
    double last_check_year = 0;
    double gas_cut_off_mode = 0;
    double petrol_cut_off_rpm = 0;
    double pressure_sensor = 0;
    double calibration_temperature = 0;
    double temperature_correction = 0;
    double petrol_cut_off_time = 0;
    double attenuation = 0;
    double par_103 = 0; // written by the factory reset
    double calibration_pressure = 0;
    double auto_changeover = 0;
    double low_pressure_delay = 0;
    double injector_latency = 0;
    double changeover_time = 0;
    double changeover_rpm = 0;
    double forced_start_mode = 0;
    double cut_off_inj_time = 0;
    double cut_off_rpm = 0;
    double reference_inj_threshold = 0;
    double reference_ktar = 0;
    double tank_sensor_par = 0;
    double eobd_direction = 0; // inverse is 1 here but 257 on the wire
    double eobd_protocol = 0;
    double fuel_offset = 0;
    double injector_constant = 0;
    double injector_opening = 0;
    double par_215 = 0;               // written by the factory reset
    std::string last_check_year_text; // as shown; see year_text_of_image()
};

inline ParameterMirrors mirrors;

} // namespace zol::link
