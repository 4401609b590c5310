#include "logbook/parameter_groups.h"

#include "link/parameter_catalogue.h"

#include <array>

namespace zol::logbook {
namespace {

namespace par = link::par;

constexpr std::array<std::string_view, 10> names = {"Gains and calibration",
                                                    "Injectors",
                                                    "Fuel and pressure",
                                                    "Changeover",
                                                    "Cut-off",
                                                    "Tank gauge",
                                                    "Lambda",
                                                    "Diagnosis (EOBD)",
                                                    "Service",
                                                    "Internal values"};

enum Group : std::size_t {
    gains,
    injectors,
    fuel,
    changeover,
    cut_off,
    tank,
    lambda,
    diagnosis,
    service,
    internal
};

struct Member {
    int number;
    Group group;
};
constexpr Member members[] = {
    {par::rpm_multiplier, gains},
    {par::ktar_low, gains},
    {par::ktar_high, gains},
    {par::ktar_low_copy, gains},
    {par::tinj_lower, gains},
    {par::tinj_upper, gains},
    {par::tinj_third, gains},
    {par::attenuation, gains},
    {par::temperature_correction, gains},
    {par::calibration_temperature, gains},
    {par::calibration_pressure, gains},
    {par::reference_inj_threshold, gains},
    {par::reference_ktar, gains},
    {par::coil_signal_filter, gains},
    {par::coil_signal_direction, gains},
    {par::injector_latency, injectors},
    {par::injector_constant, injectors},
    {par::injector_time_constant, injectors},
    {par::injector_opening, injectors},
    {par::start_distance_change, injectors},
    {par::main_pulse_change, injectors},
    {par::fuel_type, fuel},
    {par::fuel_offset, fuel},
    {par::pressure_sensor, fuel},
    {par::low_pressure_delay, fuel},
    {par::changeover_temperature, changeover},
    {par::changeover_pressure, changeover},
    {par::changeover_time, changeover},
    {par::changeover_rpm, changeover},
    {par::modular_changeover, changeover},
    {par::auto_changeover, changeover},
    {par::forced_start_mode, changeover},
    {par::simulated_changeover_delay, changeover},
    {par::emergency_start_pulses, changeover},
    {par::warm_up_pulses, changeover},
    {par::gas_cut_off_mode, cut_off},
    {par::petrol_cut_off_rpm, cut_off},
    {par::petrol_cut_off_time, cut_off},
    {par::cut_off_inj_time, cut_off},
    {par::cut_off_rpm, cut_off},
    {par::air_conditioning_delay, cut_off},
    {par::tank_min_mv, tank},
    {par::tank_max_mv, tank},
    {par::tank_threshold_1, tank},
    {par::tank_threshold_2, tank},
    {par::tank_threshold_3, tank},
    {par::tank_threshold_4, tank},
    {par::tank_sensor_par, tank},
    {par::lambda_control, lambda},
    {par::lambda_direction, lambda},
    {par::lambda_open_loop_max, lambda},
    {par::lambda_closed_loop_max, lambda},
    {par::lambda_input_kind, lambda},
    {par::debug_flag, diagnosis},
    {par::eobd_correction, diagnosis},
    {par::eobd_period, diagnosis},
    {par::eobd_direction, diagnosis},
    {par::eobd_protocol, diagnosis},
    {par::fault_1, diagnosis},
    {par::fault_2, diagnosis},
    {par::fault_3, diagnosis},
    {par::fault_4, diagnosis},
    {par::fault_5, diagnosis},
    {par::fault_6, diagnosis},
    {par::fault_count, diagnosis},
    {par::fault_clearing, diagnosis},
    {par::hours_on_gas, service},
    {par::minutes_on_gas, service},
    {par::last_check_day, service},
    {par::last_check_month, service},
    {par::last_check_year, service},
    {par::internal_14, internal},
    {par::internal_19, internal},
    {par::internal_45, internal},
    {par::internal_54, internal},
    {par::internal_55, internal},
    {par::internal_215, internal},
};

consteval bool every_row_has_one_group() {
    for (const link::Parameter& row : link::parameter_catalogue) {
        int groups = 0;
        for (const Member& member : members)
            if (member.number == row.number) ++groups;
        if (groups != 1) return false;
    }
    return true;
}
static_assert(every_row_has_one_group());

} // namespace

std::span<const std::string_view> parameter_groups() { return names; }

std::size_t group_of(int number) {
    for (const Member& member : members)
        if (member.number == number) return member.group;
    return internal;
}

} // namespace zol::logbook
