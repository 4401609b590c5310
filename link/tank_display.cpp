#include "link/tank_display.h"

#include "app/numbers.h"
#include "link/parameter_mirrors.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::link {
namespace {

using app::number_text;

std::string percent(double value) { return number_text(value) + "%"; }

} // namespace

void show_tank_ends() {
    const std::string lowest = number_text(mirrors.tank_min_mv);
    const std::string highest = number_text(mirrors.tank_max_mv);
    view::set_text(form1::Text_min_tank, lowest);
    view::set_text(form1::lbl_205, lowest);
    view::set_text(form1::Text_max_tank, highest);
    view::set_text(form1::lbl_200, highest);
}

void show_tank_thresholds(bool second_below) {
    const double t1 = mirrors.tank_threshold_1, t2 = mirrors.tank_threshold_2;
    const double t3 = mirrors.tank_threshold_3, t4 = mirrors.tank_threshold_4;
    // The sliders are set first, because a changed label computes its millivolts from its slider.
    view::place_value(form1::Slider1[0], t1);
    view::place_value(form1::Slider1[1], second_below ? t2 - 1 : t2);
    view::place_value(form1::Slider1[2], t3);
    view::place_value(form1::Slider1[3], t4);
    view::place_value(form1::Slider1[4], t4);
    // The first threshold belongs to the band below it, the others to the band above them.
    view::set_text(form1::Label8, percent(t1 + 1));
    view::set_text(form1::Label_led0, percent(t1));
    view::set_text(form1::Label9, percent(t2));
    view::set_text(form1::Label_led1, percent(t2 - 1));
    view::set_text(form1::Label10, percent(t3));
    view::set_text(form1::Label_led2, percent(t3 - 1));
    view::set_text(form1::Label11, percent(t4));
    view::set_text(form1::Label_led3, percent(t4 - 1));
}

void show_tank_type(double type) {
    if (type == 99)
        view::select_and_run_handler(form1::Check1);
    else
        view::set_list_index(form1::Combo_tank_level, static_cast<int>(type));
}

} // namespace zol::link
