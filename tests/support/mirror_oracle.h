// Which mirror of the program belongs to which parameter, as the tests expect it. It is written by
// hand and uses only the mirrors' names, not the parameter catalogue.
#pragma once

#include "link/parameter_mirrors.h"

namespace zol::oracle {

using M = link::ParameterMirrors;
using Mirror = double M::*;

struct MirrorOfParameter {
    int parameter;
    Mirror mirror;
};

inline constexpr MirrorOfParameter mirrors_of_parameters[] = {{1, &M::rpm_multiplier},
                                                              {3, &M::ktar_low},
                                                              {4, &M::ktar_high},
                                                              {5, &M::tinj_lower},
                                                              {6, &M::tinj_upper},
                                                              {10, &M::fuel_type},
                                                              {11, &M::lambda_control},
                                                              {12, &M::lambda_direction},
                                                              {15, &M::changeover_temperature},
                                                              {16, &M::lambda_open_loop_max},
                                                              {20, &M::debug_flag},
                                                              {21, &M::lambda_input_kind},
                                                              {22, &M::changeover_pressure},
                                                              {23, &M::modular_changeover},
                                                              {27, &M::hours_on_gas},
                                                              {28, &M::minutes_on_gas},
                                                              {29, &M::last_check_day},
                                                              {30, &M::tank_min_mv},
                                                              {31, &M::tank_max_mv},
                                                              {32, &M::tank_threshold_1},
                                                              {33, &M::tank_threshold_2},
                                                              {34, &M::tank_threshold_3},
                                                              {35, &M::tank_threshold_4},
                                                              {36, &M::lambda_closed_loop_max},
                                                              {39, &M::last_check_month},
                                                              {40, &M::last_check_year},
                                                              {41, &M::gas_cut_off_mode},
                                                              {47, &M::petrol_cut_off_rpm},
                                                              {50, &M::pressure_sensor},
                                                              {51, &M::calibration_temperature},
                                                              {52, &M::temperature_correction},
                                                              {53, &M::petrol_cut_off_time},
                                                              {101, &M::attenuation},
                                                              {103, &M::par_103},
                                                              {104, &M::calibration_pressure},
                                                              {105, &M::auto_changeover},
                                                              {106, &M::low_pressure_delay},
                                                              {107, &M::injector_latency},
                                                              {110, &M::changeover_time},
                                                              {121, &M::changeover_rpm},
                                                              {122, &M::forced_start_mode},
                                                              {123, &M::cut_off_inj_time},
                                                              {124, &M::cut_off_rpm},
                                                              {128, &M::reference_inj_threshold},
                                                              {129, &M::reference_ktar},
                                                              {130, &M::tank_sensor_par},
                                                              {142, &M::eobd_direction},
                                                              {143, &M::eobd_protocol},
                                                              {144, &M::fuel_offset},
                                                              {200, &M::injector_constant},
                                                              {202, &M::injector_opening},
                                                              {215, &M::par_215}};

// The mirror of a parameter, or null if the program keeps none.
inline constexpr Mirror mirror_of(int parameter) {
    for (const MirrorOfParameter& row : mirrors_of_parameters)
        if (row.parameter == parameter) return row.mirror;
    return nullptr;
}

} // namespace zol::oracle
