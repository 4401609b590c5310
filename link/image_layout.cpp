#include "link/image_layout.h"

namespace zol::link {
namespace {

using P = ParameterMirrors;

constexpr ImageWord base[] = {
    {6, &P::rpm_multiplier},
    {8, &P::ktar_low},
    {10, &P::ktar_high},
    {12, &P::tinj_lower},
    {14, &P::tinj_upper},
    {16, &P::fuel_type},
    {18, &P::changeover_temperature},
    {20, &P::tank_min_mv},
    {22, &P::tank_max_mv},
    {24, &P::tank_threshold_1},
    {26, &P::tank_threshold_2},
    {28, &P::tank_threshold_3},
    {30, &P::tank_threshold_4},
    {32, &P::pressure_sensor},
    {36, &P::temperature_correction},
    {42, &P::attenuation},
    {50, &P::auto_changeover},
    {52, &P::low_pressure_delay},
    {56, &P::changeover_time},
    {74, &P::reference_inj_threshold},
    {76, &P::reference_ktar},
    {78, &P::tank_sensor_par},
};

constexpr ImageWord activation_only[] = {
    {48, &P::calibration_pressure},
    {injector_latency_position, &P::injector_latency},
    {62, &P::forced_start_mode},
};

constexpr ImageWord cut_off[] = {
    {60, &P::changeover_rpm},
    {64, &P::cut_off_inj_time},
    {66, &P::cut_off_rpm},
};

constexpr ImageWord lambda_1[] = {
    {96, &P::lambda_control},
    {106, &P::lambda_open_loop_max},
    {110, &P::lambda_closed_loop_max},
    {112, &P::lambda_direction},
};

constexpr ImageWord lambda_2_to_4[] = {
    {124, &P::lambda_control},
    {134, &P::lambda_open_loop_max},
    {138, &P::lambda_closed_loop_max},
    {140, &P::lambda_direction},
    {148, &P::debug_flag},
    {lambda_kind_position, &P::lambda_input_kind},
};

constexpr ImageWord eobd[] = {
    {84, &P::eobd_direction},
    {86, &P::eobd_protocol},
    {88, &P::fuel_offset},
};

constexpr ImageWord extended_1[] = {
    {118, &P::changeover_pressure}, {148, &P::petrol_cut_off_rpm}, {154, &P::petrol_cut_off_time},
    {122, &P::modular_changeover},  {116, &P::injector_constant},  {120, &P::injector_opening},
    {126, &P::hours_on_gas},        {128, &P::minutes_on_gas},     {130, &P::last_check_day},
    {132, &P::last_check_month},    {134, &P::last_check_year},    {136, &P::gas_cut_off_mode},
};

constexpr ImageWord extended_2_to_4[] = {
    {152, &P::changeover_pressure}, {180, &P::petrol_cut_off_rpm}, {186, &P::petrol_cut_off_time},
    {156, &P::modular_changeover},  {146, &P::injector_constant},  {154, &P::injector_opening},
    {160, &P::hours_on_gas},        {162, &P::minutes_on_gas},     {164, &P::last_check_day},
    {166, &P::last_check_month},    {168, &P::last_check_year},    {170, &P::gas_cut_off_mode},
};

} // namespace

std::span<const ImageWord> base_words() { return base; }
std::span<const ImageWord> activation_words() { return activation_only; }
std::span<const ImageWord> cut_off_words() { return cut_off; }
std::span<const ImageWord> lambda_words_family_1() { return lambda_1; }
std::span<const ImageWord> lambda_words_families_2_to_4() { return lambda_2_to_4; }
std::span<const ImageWord> eobd_words() { return eobd; }
std::span<const ImageWord> extended_words_family_1() { return extended_1; }
std::span<const ImageWord> extended_words_families_2_to_4() { return extended_2_to_4; }

void take_words(const Reply& image, std::span<const ImageWord> words) {
    for (const ImageWord& word : words)
        take(image.word(word.position), mirrors.*word.mirror);
}

} // namespace zol::link
