// Which mirror of the program belongs to which parameter, as the tests expect it. It is written by
// hand and uses only the mirrors' names, not the parameter catalogue.
#pragma once

#include "link/parameter_mirrors.h"

namespace zol::oracle {

using Mirror = double link::ParameterMirrors::*;

struct MirrorOfParameter {
    int parameter;
    Mirror mirror;
};

inline constexpr MirrorOfParameter mirrors_of_parameters[] = {
    {1, &link::ParameterMirrors::rpm_multiplier},
    {3, &link::ParameterMirrors::ktar_low},
    {4, &link::ParameterMirrors::ktar_high},
    {5, &link::ParameterMirrors::tinj_lower},
    {6, &link::ParameterMirrors::tinj_upper},
    {10, &link::ParameterMirrors::fuel_type},
    {11, &link::ParameterMirrors::lambda_control},
    {12, &link::ParameterMirrors::lambda_direction},
    {15, &link::ParameterMirrors::changeover_temperature},
    {16, &link::ParameterMirrors::lambda_open_loop_max},
    {20, &link::ParameterMirrors::debug_flag},
    {21, &link::ParameterMirrors::lambda_input_kind},
    {22, &link::ParameterMirrors::changeover_pressure},
    {23, &link::ParameterMirrors::modular_changeover},
    {27, &link::ParameterMirrors::hours_on_gas},
    {28, &link::ParameterMirrors::minutes_on_gas},
    {29, &link::ParameterMirrors::last_check_day},
    {30, &link::ParameterMirrors::tank_min_mv},
    {31, &link::ParameterMirrors::tank_max_mv},
    {32, &link::ParameterMirrors::tank_threshold_1},
    {33, &link::ParameterMirrors::tank_threshold_2},
    {34, &link::ParameterMirrors::tank_threshold_3},
    {35, &link::ParameterMirrors::tank_threshold_4},
    {36, &link::ParameterMirrors::lambda_closed_loop_max},
    {39, &link::ParameterMirrors::last_check_month},
    {40, &link::ParameterMirrors::last_check_year},
    {41, &link::ParameterMirrors::gas_cut_off_mode},
    {47, &link::ParameterMirrors::petrol_cut_off_rpm},
    {50, &link::ParameterMirrors::pressure_sensor},
    {51, &link::ParameterMirrors::calibration_temperature},
    {52, &link::ParameterMirrors::temperature_correction},
    {53, &link::ParameterMirrors::petrol_cut_off_time},
    {101, &link::ParameterMirrors::attenuation},
    {103, &link::ParameterMirrors::par_103},
    {104, &link::ParameterMirrors::calibration_pressure},
    {105, &link::ParameterMirrors::auto_changeover},
    {106, &link::ParameterMirrors::low_pressure_delay},
    {107, &link::ParameterMirrors::injector_latency},
    {110, &link::ParameterMirrors::changeover_time},
    {121, &link::ParameterMirrors::changeover_rpm},
    {122, &link::ParameterMirrors::forced_start_mode},
    {123, &link::ParameterMirrors::cut_off_inj_time},
    {124, &link::ParameterMirrors::cut_off_rpm},
    {128, &link::ParameterMirrors::reference_inj_threshold},
    {129, &link::ParameterMirrors::reference_ktar},
    {130, &link::ParameterMirrors::tank_sensor_par},
    {142, &link::ParameterMirrors::eobd_direction},
    {143, &link::ParameterMirrors::eobd_protocol},
    {144, &link::ParameterMirrors::fuel_offset},
    {200, &link::ParameterMirrors::injector_constant},
    {202, &link::ParameterMirrors::injector_opening},
    {215, &link::ParameterMirrors::par_215},
};

// The mirror of a parameter, or null if the program keeps none.
inline constexpr Mirror mirror_of(int parameter) {
    for (const MirrorOfParameter& row : mirrors_of_parameters)
        if (row.parameter == parameter) return row.mirror;
    return nullptr;
}

} // namespace zol::oracle
