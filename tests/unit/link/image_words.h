// Where each family keeps what in its image, as the tests expect it.
#pragma once

#include "link/parameter_mirrors.h"

#include <iterator>
#include <vector>

namespace zol::tests {

using Mirrors = link::ParameterMirrors;

struct Word {
    int position;
    double Mirrors::*mirror;
};
using Words = std::vector<Word>;

const Words words_on_both_roads = {
    {6, &Mirrors::rpm_multiplier},
    {8, &Mirrors::ktar_low},
    {10, &Mirrors::ktar_high},
    {12, &Mirrors::tinj_lower},
    {14, &Mirrors::tinj_upper},
    {16, &Mirrors::fuel_type},
    {18, &Mirrors::changeover_temperature},
    {20, &Mirrors::tank_min_mv},
    {22, &Mirrors::tank_max_mv},
    {24, &Mirrors::tank_threshold_1},
    {26, &Mirrors::tank_threshold_2},
    {28, &Mirrors::tank_threshold_3},
    {30, &Mirrors::tank_threshold_4},
    {32, &Mirrors::pressure_sensor},
    {36, &Mirrors::temperature_correction},
    {42, &Mirrors::attenuation},
    {50, &Mirrors::auto_changeover},
    {52, &Mirrors::low_pressure_delay},
    {56, &Mirrors::changeover_time},
    {74, &Mirrors::reference_inj_threshold},
    {76, &Mirrors::reference_ktar},
    {78, &Mirrors::tank_sensor_par},
};
const Words cut_off_words = {
    {60, &Mirrors::changeover_rpm}, {64, &Mirrors::cut_off_inj_time}, {66, &Mirrors::cut_off_rpm}};
const Words latency_word = {{54, &Mirrors::injector_latency}};
const Words activation_words = {{48, &Mirrors::calibration_pressure},
                                {62, &Mirrors::forced_start_mode}};
const Words eobd_words = {
    {84, &Mirrors::eobd_direction}, {86, &Mirrors::eobd_protocol}, {88, &Mirrors::fuel_offset}};
const Words lambda_words_1 = {{96, &Mirrors::lambda_control},
                              {106, &Mirrors::lambda_open_loop_max},
                              {110, &Mirrors::lambda_closed_loop_max},
                              {112, &Mirrors::lambda_direction}};
const Words kind_word = {{150, &Mirrors::lambda_input_kind}};
const Words lambda_words_2_to_4 = {{124, &Mirrors::lambda_control},
                                   {134, &Mirrors::lambda_open_loop_max},
                                   {138, &Mirrors::lambda_closed_loop_max},
                                   {140, &Mirrors::lambda_direction},
                                   {148, &Mirrors::debug_flag},
                                   {150, &Mirrors::lambda_input_kind}};
const Words extended_words_1 = {
    {118, &Mirrors::changeover_pressure}, {148, &Mirrors::petrol_cut_off_rpm},
    {154, &Mirrors::petrol_cut_off_time}, {122, &Mirrors::modular_changeover},
    {116, &Mirrors::injector_constant},   {120, &Mirrors::injector_opening},
    {126, &Mirrors::hours_on_gas},        {128, &Mirrors::minutes_on_gas},
    {130, &Mirrors::last_check_day},      {132, &Mirrors::last_check_month},
    {134, &Mirrors::last_check_year},     {136, &Mirrors::gas_cut_off_mode}};
const Words extended_words_2_to_4 = {
    {152, &Mirrors::changeover_pressure}, {180, &Mirrors::petrol_cut_off_rpm},
    {186, &Mirrors::petrol_cut_off_time}, {156, &Mirrors::modular_changeover},
    {146, &Mirrors::injector_constant},   {154, &Mirrors::injector_opening},
    {160, &Mirrors::hours_on_gas},        {162, &Mirrors::minutes_on_gas},
    {164, &Mirrors::last_check_day},      {166, &Mirrors::last_check_month},
    {168, &Mirrors::last_check_year},     {170, &Mirrors::gas_cut_off_mode}};

// One list behind the other, in the order of reading: what is read later wins.
inline Words joined(std::initializer_list<Words> lists) {
    Words all;
    for (const Words& list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

// Every mirror that a first read can fill.
inline const Words every_word =
    joined({words_on_both_roads, cut_off_words, latency_word, activation_words, eobd_words,
            lambda_words_2_to_4, extended_words_2_to_4});

} // namespace zol::tests
