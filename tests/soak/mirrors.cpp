#include "tests/soak/mirrors.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/parameter_mirrors.h"
#include "tests/soak/write_rules.h"
#include "tests/support/image_oracle.h"
#include "tests/support/mirror_oracle.h"

#include <optional>

namespace zol::soak {
namespace {

using oracle::mirror_of;

// Writes whose value does not go to the parameter's own mirror: another mirror, none (0), or
// another value.
struct Exception {
    std::string_view handler;
    int parameter;
    int mirror;
    std::optional<int> value;
};
constexpr Exception exceptions[] = {
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
};

// Where the mirror is set after the wait of the write. Another handler may have written the same
// during it.
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

// --- The image

void take(std::map<int, double>& taken, const link::Bytes& image, oracle::ImageWords words) {
    for (const auto& [position, parameter] : words) {
        const auto high = static_cast<std::size_t>(position - 1);
        if (high + 1 < image.size()) taken[parameter] = image[high] * 256 + image[high + 1];
    }
}

void take_on_activation(std::map<int, double>& taken, const link::Bytes& image) {
    const int family = app::state.ecu_family, version = app::state.ecu_version;
    const double revision = app::state.ecu_revision;
    take(taken, image, oracle::activation_words);
    take(taken, image, oracle::latency_word);
    take(taken, image, oracle::cut_off_words);
    if (family == 1 || family == 3) {
        take(taken, image, oracle::lambda_words_of_1);
        taken[21] = 0;
    } else {
        take(taken, image, oracle::eobd_words);
    }
    if (family == 1 && ((version >= 2 && revision >= 35) || version >= 7))
        take(taken, image, oracle::extended_words_of_1);
    if (family >= 2 && family <= 4) take(taken, image, oracle::lambda_words_of_2_to_4);
    if (family == 2 || family == 3 || (family == 4 && version >= 6 && revision >= 25))
        take(taken, image, oracle::extended_words_of_2_to_4);
}

void take_in_dialog(std::map<int, double>& taken, const link::Bytes& image) {
    const int family = app::state.ecu_family, version = app::state.ecu_version;
    const double revision = app::state.ecu_revision;
    if (family == 1) {
        take(taken, image, oracle::latency_word);
        take(taken, image, oracle::lambda_words_of_1);
        take(taken, image, oracle::lambda_input_word);
    } else {
        take(taken, image, oracle::eobd_words);
    }
    if (family >= 2 && family <= 4) take(taken, image, oracle::lambda_words_of_2_to_4);
    if ((family == 1 && version >= 2) || (family >= 3 && revision >= 35)) {
        take(taken, image, oracle::cut_off_words);
        take(taken, image, oracle::extended_words_of_1);
    }
    if (family >= 2 && version >= 6 && revision >= 24) {
        take(taken, image, oracle::cut_off_words);
        take(taken, image, oracle::extended_words_of_2_to_4);
    }
}

} // namespace

ExpectedMirrors::ExpectedMirrors() {
    for (const auto& [parameter, mirror] : oracle::mirrors_of_parameters)
        expected_[parameter] = 0;
}

void ExpectedMirrors::written(const Running& by, const Written& written, bool filling) {
    // A parameter that the operator writes by number changes only this mirror.
    if (by.rule && names(*by.rule, any_parameter) && written.number != 107) return;
    int mirror = written.number;
    double value = written.value;
    for (const Exception& each : exceptions)
        if (each.handler == by.name && each.parameter == written.number) {
            mirror = each.mirror;
            value = each.value.value_or(written.value);
        }
    if (by.name == "Form1.mnu_reset_centralina click")
        for (const oracle::FactoryValue& each : oracle::factory_values)
            if (each.parameter == written.number) mirror = each.mirror;
    if (!mirror_of(mirror)) return;
    if (filling)
        older_[mirror].insert(expected_[mirror]);
    else
        older_.erase(mirror);
    expected_[mirror] = value;
}

void ExpectedMirrors::image_read(const Running& by, const link::Bytes& image, bool filling) {
    std::map<int, double> taken;
    take(taken, image, oracle::words_of_both_paths);
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
        const oracle::Mirror mirror = mirror_of(step.parameter);
        if (!mirror || step.need != Step::Need::if_a_word) continue;
        // A number that does not fit a word is stored and not sent.
        const double held = link::mirrors.*mirror;
        if (has_byte_form(held)) continue;
        if (filling) older_[step.parameter].insert(expected_[step.parameter]);
        expected_[step.parameter] = held;
    }
    for (const Late& late : set_at_the_end)
        if (late.handler == by.name &&
            link::mirrors.*mirror_of(late.parameter) == by.written(late.parameter))
            expected_[late.parameter] = by.written(late.parameter);
    // The third point is not sent if it is negative.
    if (by.name == "acquisizione.Command_salva click") expected_[5] = link::mirrors.tinj_lower;
    if (by.rule && names(*by.rule, any_parameter)) expected_[107] = link::mirrors.injector_latency;
}

std::string ExpectedMirrors::wrong(const Handlers& handlers) const {
    // An image is read in parts, with waits between them.
    if (handlers.runs("Form1 activate") || handlers.runs("Centralina_Attiva.Command_ok click"))
        return "";
    const bool resets = handlers.runs("Form1.mnu_reset_centralina click");
    for (const auto& [parameter, value] : expected_) {
        if (handlers.writes(parameter) || (resets && parameter == 128)) continue;
        const double held = link::mirrors.*mirror_of(parameter);
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
