#include "link/read_marks.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/parameter_mirrors.h"
#include "link/tank_display.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>

namespace zol::link {
namespace {

using app::number_text;

// In the order of the protocol codes, from 1.
const std::array<view::Widget*, 10> protocols = {
    &form1::mnu_search,         &form1::mnu_KWP2000_fast,   &form1::mnu_KWP2000_slow,
    &form1::mnu_iso9141,        &form1::mnuCAN250KStandard, &form1::mnuCAN250KExtended,
    &form1::mnuCAN500KStandard, &form1::mnuCAN500KExtended, &form1::mnuJ1850vpw,
    &form1::mnuJ1850pwm};

void show_gain(view::Widget& slider, double gain) {
    view::set_value_and_run_handler(slider, gain);
    if (gain >= slider.look.min) view::set_selection_length(slider, gain - slider.look.min);
}

void tick_pair(view::Widget& yes, view::Widget& no, bool on) {
    view::set_checked(yes, on);
    view::set_checked(no, !on);
}

} // namespace

void show_gains() {
    show_gain(form1::Slider_ktar, mirrors.ktar_low);
    show_gain(form1::Slider_power, mirrors.ktar_high);
}

void offer_lambda_only() {
    view::set_enabled(form1::mnu_eobd, false);
    view::set_visible(form1::Command_lambda, true);
    view::set_visible(form1::Command_diagnosi, false);
    view::set_visible(form1::Option_corr, false);
}

void offer_diagnosis(bool lambda_too) {
    view::set_enabled(form1::mnu_eobd, true);
    view::set_visible(form1::Command_lambda, lambda_too);
    view::set_visible(form1::Command_diagnosi, true);
}

void tick_eobd_direction() {
    tick_pair(form1::mnu_direction_inverse_eobd, form1::mnu_direction_normal_eobd,
              mirrors.eobd_direction == 1);
}

void tick_eobd_protocol() {
    const double code = mirrors.eobd_protocol == 0 ? 1 : mirrors.eobd_protocol;
    if (code > static_cast<double>(protocols.size())) return;
    for (std::size_t i = 0; i < protocols.size(); ++i)
        view::set_checked(*protocols[i], code == static_cast<double>(i + 1));
}

void tick_debug_pair() {
    tick_pair(form1::mnu_debug_yes, form1::mnu_debug_no, mirrors.debug_flag == 1);
}

void tick_injector(double OpeningMarks::*occasion) {
    for (const InjectorType& type : injector_types())
        if (type.marks)
            view::set_checked(type.item, mirrors.injector_opening == (*type.marks).*occasion);
}

void take_tank_type() {
    if (mirrors.tank_sensor_par != 99)
        app::state.tank_type = static_cast<int>(mirrors.tank_sensor_par);
    show_tank_type(mirrors.tank_sensor_par);
}

void select_lambda_kind() {
    if (mirrors.lambda_input_kind == 0) view::select_and_run_handler(form1::Option_tens);
    if (mirrors.lambda_input_kind == 1) view::select_and_run_handler(form1::Option_corr);
}

void show_modular_pair() {
    view::set_visible(form1::Frame2, true);
    view::select_and_run_handler(mirrors.modular_changeover == 0 ? form1::Opt_modulare_no
                                                                 : form1::Opt_modulare_yes);
}

std::string year_text_of_image() {
    // "200" also from 2010 on, on purpose: see docs/not-bugs.md.
    return "200" + number_text(mirrors.last_check_year);
}

void show_service_line(const char* middle, const char* end) {
    view::set_text(form1::lbl_ore, "Time On GAS:    " + number_text(mirrors.hours_on_gas) +
                                       " hour - " + number_text(mirrors.minutes_on_gas) + middle +
                                       number_text(mirrors.last_check_day) + " / " +
                                       number_text(mirrors.last_check_month) + " / " +
                                       mirrors.last_check_year_text + end);
    view::set_visible(form1::lbl_ore, true);
    view::set_visible(form1::lbl_min, true);
    view::set_enabled(form1::mnu_check_car, true);
}

} // namespace zol::link
