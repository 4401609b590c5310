#include "tests/soak/mirrors.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/parameter_mirrors.h"
#include "tests/soak/write_rules.h"

#include <optional>
#include <span>

namespace zol::soak {
namespace {

using P = link::ParameterMirrors;

struct Mirror {
    int parameter;
    double P::*member;
};

constexpr Mirror all_mirrors[] = {
    {1, &P::rpm_multiplier},
    {3, &P::ktar_low},
    {4, &P::ktar_high},
    {5, &P::tinj_lower},
    {6, &P::tinj_upper},
    {10, &P::fuel_type},
    {11, &P::lambda_control},
    {12, &P::lambda_direction},
    {15, &P::changeover_temperature},
    {16, &P::lambda_open_loop_max},
    {20, &P::debug_flag},
    {21, &P::lambda_input_kind},
    {22, &P::changeover_pressure},
    {23, &P::modular_changeover},
    {27, &P::hours_on_gas},
    {28, &P::minutes_on_gas},
    {29, &P::last_check_day},
    {30, &P::tank_min_mv},
    {31, &P::tank_max_mv},
    {32, &P::tank_threshold_1},
    {33, &P::tank_threshold_2},
    {34, &P::tank_threshold_3},
    {35, &P::tank_threshold_4},
    {36, &P::lambda_closed_loop_max},
    {39, &P::last_check_month},
    {40, &P::last_check_year},
    {41, &P::gas_cut_off_mode},
    {47, &P::petrol_cut_off_rpm},
    {50, &P::pressure_sensor},
    {51, &P::calibration_temperature},
    {52, &P::temperature_correction},
    {53, &P::petrol_cut_off_time},
    {101, &P::attenuation},
    {103, &P::par_103},
    {104, &P::calibration_pressure},
    {105, &P::auto_changeover},
    {106, &P::low_pressure_delay},
    {107, &P::injector_latency},
    {110, &P::changeover_time},
    {121, &P::changeover_rpm},
    {122, &P::forced_start_mode},
    {123, &P::cut_off_inj_time},
    {124, &P::cut_off_rpm},
    {128, &P::reference_inj_threshold},
    {129, &P::reference_ktar},
    {130, &P::tank_sensor_par},
    {142, &P::eobd_direction},
    {143, &P::eobd_protocol},
    {144, &P::fuel_offset},
    {200, &P::injector_constant},
    {202, &P::injector_opening},
    {215, &P::par_215},
};

const Mirror* mirror_of(int parameter) {
    for (const Mirror& mirror : all_mirrors)
        if (mirror.parameter == parameter) return &mirror;
    return nullptr;
}

// Where a write and the mirror part ways. Another mirror, or none (0), or another value.
struct Parting {
    std::string_view handler;
    int parameter;
    int mirror;
    std::optional<int> value;
};
constexpr Parting partings[] = {
    {"Form1 key", 122, 0, {}},
    {"Form1 key", 121, 0, {}},
    {"Form1.Option_gpl click", 104, 104, 1200},
    {"Form1.mnu_matrix_2_ohm click", 202, 202, 2000},
    {"Form1.mnu_matrix_3_ohm click", 202, 202, 3800},
    {"Form1.mnu_valtek click", 202, 0, {}},
    {"Form1.mnu_mivra click", 202, 0, {}},
    {"Form1.mnu_matrix_2_ohm click", 200, 0, {}},
    {"Form1.mnu_matrix_3_ohm click", 200, 0, {}},
    {"Form1.mnu_valtek click", 200, 0, {}},
    {"Form1.mnu_mivra click", 200, 0, {}},
    {"Form1.mnu_direction_inverse_eobd click", 142, 142, 1},
    {"Form1.mnu_reset_check click", 40, 0, {}},
    {"Form1.mnu_reset_centralina click", 129, 128, {}},
    {"Form1.mnu_reset_centralina click", 202, 128, {}},
    {"Form1.mnu_reset_centralina click", 201, 128, {}},
    {"Form1.mnu_reset_centralina click", 124, 0, {}},
    {"Form1.mnu_reset_centralina click", 143, 0, {}},
    {"Form1.mnu_reset_centralina click", 20, 0, {}},
    {"Form1.mnu_reset_centralina click", 21, 0, {}},
    {"Form1.mnu_reset_centralina click", 22, 0, {}},
};

// Set behind the write's wait, in which another handler may have written the same.
struct Late {
    std::string_view handler;
    int parameter;
};
constexpr Late set_at_the_end[] = {
    {"Form1.Opt_modulare_yes click", 23},     {"Form1.Opt_modulare_no click", 23},
    {"Form1.mnu_reset_check click", 29},      {"Form1.mnu_reset_check click", 39},
    {"Form1.mnu_reset_time_ongas click", 27}, {"Form1.mnu_reset_time_ongas click", 28},
};

bool has_byte_form(double number) {
    const double rounded = app::round_half_even(number);
    return rounded >= 0 && rounded <= 65535;
}

// --- The image, by byte position of the reply and parameter

struct Word {
    std::size_t position;
    int parameter;
};

constexpr Word base[] = {{6, 1},    {8, 3},    {10, 4},   {12, 5},   {14, 6},   {16, 10},
                         {18, 15},  {20, 30},  {22, 31},  {24, 32},  {26, 33},  {28, 34},
                         {30, 35},  {32, 50},  {36, 52},  {42, 101}, {50, 105}, {52, 106},
                         {56, 110}, {74, 128}, {76, 129}, {78, 130}};
constexpr Word on_activation[] = {{48, 104}, {54, 107}, {62, 122}};
constexpr Word cut_off[] = {{60, 121}, {64, 123}, {66, 124}};
constexpr Word lambda_of_1[] = {{96, 11}, {106, 16}, {110, 36}, {112, 12}};
constexpr Word eobd[] = {{84, 142}, {86, 143}, {88, 144}};
constexpr Word lambda_of_2_to_4[] = {{124, 11}, {134, 16}, {138, 36},
                                     {140, 12}, {148, 20}, {150, 21}};
constexpr Word newer_of_1[] = {{118, 22}, {148, 47}, {154, 53}, {122, 23}, {116, 200}, {120, 202},
                               {126, 27}, {128, 28}, {130, 29}, {132, 39}, {134, 40},  {136, 41}};
constexpr Word newer_of_2_to_4[] = {{152, 22},  {180, 47},  {186, 53}, {156, 23},
                                    {146, 200}, {154, 202}, {160, 27}, {162, 28},
                                    {164, 29},  {166, 39},  {168, 40}, {170, 41}};

void take(std::map<int, double>& taken, const link::Bytes& image, std::span<const Word> words) {
    for (const Word& word : words)
        if (word.position < image.size())
            taken[word.parameter] = image[word.position - 1] * 256 + image[word.position];
}

void take_on_activation(std::map<int, double>& taken, const link::Bytes& image) {
    const int family = app::state.ecu_family, version = app::state.ecu_version;
    const double revision = app::state.ecu_revision;
    take(taken, image, on_activation);
    take(taken, image, cut_off);
    if (family == 1 || family == 3) {
        take(taken, image, lambda_of_1);
        taken[21] = 0;
    } else {
        take(taken, image, eobd);
    }
    if (family == 1 && ((version >= 2 && revision >= 35) || version >= 7))
        take(taken, image, newer_of_1);
    if (family >= 2 && family <= 4) take(taken, image, lambda_of_2_to_4);
    if (family == 2 || family == 3 || (family == 4 && version >= 6 && revision >= 25))
        take(taken, image, newer_of_2_to_4);
}

void take_in_dialog(std::map<int, double>& taken, const link::Bytes& image) {
    const int family = app::state.ecu_family, version = app::state.ecu_version;
    const double revision = app::state.ecu_revision;
    constexpr Word latency[] = {{54, 107}};
    constexpr Word kind[] = {{150, 21}};
    if (family == 1) {
        take(taken, image, latency);
        take(taken, image, lambda_of_1);
        take(taken, image, kind);
    } else {
        take(taken, image, eobd);
    }
    if (family >= 2 && family <= 4) take(taken, image, lambda_of_2_to_4);
    if ((family == 1 && version >= 2) || (family >= 3 && revision >= 35)) {
        take(taken, image, cut_off);
        take(taken, image, newer_of_1);
    }
    if (family >= 2 && version >= 6 && revision >= 24) {
        take(taken, image, cut_off);
        take(taken, image, newer_of_2_to_4);
    }
}

} // namespace

ExpectedMirrors::ExpectedMirrors() {
    for (const Mirror& mirror : all_mirrors)
        expected_[mirror.parameter] = 0;
}

void ExpectedMirrors::written(const Running& by, const Written& written, bool filling) {
    // By its number only one parameter reaches its mirror.
    if (by.rule && names(*by.rule, any_parameter) && written.number != 107) return;
    int mirror = written.number;
    double value = written.value;
    for (const Parting& parting : partings)
        if (parting.handler == by.name && parting.parameter == written.number) {
            mirror = parting.mirror;
            value = parting.value.value_or(written.value);
        }
    if (!mirror_of(mirror)) return;
    if (filling)
        older_[mirror].insert(expected_[mirror]);
    else
        older_.erase(mirror);
    expected_[mirror] = value;
}

void ExpectedMirrors::image_read(const Running& by, const link::Bytes& image, bool filling) {
    std::map<int, double> taken;
    take(taken, image, base);
    if (by.name == "Form1 activate")
        take_on_activation(taken, image);
    else
        take_in_dialog(taken, image);
    for (const auto& [parameter, value] : taken) {
        if (filling)
            older_[parameter].insert(expected_[parameter]);
        else
            older_.erase(parameter);
        expected_[parameter] = value;
    }
}

void ExpectedMirrors::ended(const Running& by, bool filling) {
    if (!by.rule) return;
    for (const Step& step : by.rule->steps) {
        const Mirror* mirror = mirror_of(step.parameter);
        if (!mirror || step.need != Step::Need::if_a_word) continue;
        // A number with no byte form stays in the tool.
        const double held = link::mirrors.*mirror->member;
        if (has_byte_form(held)) continue;
        if (filling) older_[step.parameter].insert(expected_[step.parameter]);
        expected_[step.parameter] = held;
    }
    for (const Late& late : set_at_the_end)
        if (late.handler == by.name &&
            link::mirrors.*mirror_of(late.parameter)->member == by.written(late.parameter))
            expected_[late.parameter] = by.written(late.parameter);
    // The third edge may have been kept from the wire by its half below zero.
    if (by.name == "acquisizione.Command_salva click") expected_[5] = link::mirrors.tinj_lower;
    if (by.rule && names(*by.rule, any_parameter)) expected_[107] = link::mirrors.injector_latency;
}

std::string ExpectedMirrors::wrong(const Handlers& handlers) const {
    // An image is taken in pieces, with waits between them.
    if (handlers.runs("Form1 activate") || handlers.runs("Centralina_Attiva.Command_ok click"))
        return "";
    const bool resets = handlers.runs("Form1.mnu_reset_centralina click");
    for (const auto& [parameter, value] : expected_) {
        if (handlers.writes(parameter) || (resets && parameter == 128)) continue;
        const double held = link::mirrors.*mirror_of(parameter)->member;
        const auto older = older_.find(parameter);
        if (older != older_.end() && older->second.count(held)) continue;
        const bool same =
            held == value || (has_byte_form(held) && app::round_half_even(held) == value);
        if (!same)
            return "the mirror of PAR_" + std::to_string(parameter) + " holds " +
                   app::number_text(held) + ", last sent or read was " + app::number_text(value);
    }
    return "";
}

} // namespace zol::soak
