#include "link/activation.h"

#include "app/app_state.h"
#include "app/captions.h"
#include "app/colours.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "app/settings_file.h"
#include "link/ecu_frames.h"
#include "link/first_read.h"
#include "link/image_layout.h"
#include "link/read_marks.h"
#include "link/tank_display.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"

#include <algorithm>

namespace zol::link {
namespace {

using app::number_text;
using app::state;
using view::Pointer;

// Any byte counts as an answer. A port that fails counts as a silent unit.
bool unit_present() {
    wait_ms(500);
    if (!send_command(Command::presence)) return false;
    wait_ms(700);
    return !read_reply().empty();
}

void features_by_family() {
    if (state.ecu_family == 1) offer_lambda_only();
    if (state.ecu_family == 0 || state.ecu_family == 4) {
        offer_diagnosis(true);
        view::set_visible(form1::Frame_L_C_T, false);
    }
    view::set_text(form1::Label35, "1"); // scale of the lambda chart
}

// Shows the base words, in the order of their positions.
void show_base_words() {
    show_gains();
    if (mirrors.fuel_type == 1) view::select_and_run_handler(form1::Option_gpl);
    if (mirrors.fuel_type == 0) view::select_and_run_handler(form1::Option_metano);
    view::set_text(form1::text_temp_comm, number_text(mirrors.changeover_temperature));
    show_tank_ends();
    show_tank_thresholds(true);
    view::select_and_run_handler(mirrors.pressure_sensor == 1 ? form1::Option_press_yes
                                                              : form1::Option_press_no);
    view::set_value_and_run_handler(form1::Slider3, std::min(mirrors.temperature_correction, 10.0));
    view::set_text(form1::Label_attenuazione, "- " + number_text(mirrors.attenuation));
    view::set_value_and_run_handler(form1::Slider_attenuazione, mirrors.attenuation);
    view::set_text(form1::Text_time_comm, number_text(mirrors.changeover_time));
    take_tank_type();
}

void show_lambda_words() {
    view::select_and_run_handler(mirrors.lambda_control == 1 ? form1::Option_abi_controllo_lambda
                                                             : form1::Option_disa_controllo_lambda);
    view::set_text(form1::Text_lambda_open_loop, number_text(mirrors.lambda_open_loop_max));
    view::set_text(form1::Text_lambda_closed_loop, number_text(mirrors.lambda_closed_loop_max));
    view::select_and_run_handler(mirrors.lambda_direction == 1 ? form1::lambda_dir
                                                               : form1::lambda_inv);
    select_lambda_kind();
}

bool newer_family_1() {
    return state.ecu_family == 1 &&
           ((state.ecu_version >= 2 && state.ecu_revision >= 35) || state.ecu_version >= 7);
}

bool newer_families_2_to_4() {
    return state.ecu_family == 3 || state.ecu_family == 2 ||
           (state.ecu_family == 4 && state.ecu_version >= 6 && state.ecu_revision >= 25);
}

void take_extended(const Reply& image, Layout layout) {
    take_words(image, WordGroup::extended, layout);
    mirrors.last_check_year_text = year_text_of_image();
    tick_injector(&OpeningMarks::at_activation);
    show_modular_pair();
    show_service_line(service_line_middle, "  ");
}

void take_image(const Reply& image) {
    take_words(image, WordGroup::base);
    take_words(image, WordGroup::activation);
    take_words(image, WordGroup::cut_off);
    show_base_words();
    if (state.ecu_family == 1 || state.ecu_family == 3) {
        take_words(image, WordGroup::lambda, &Positions::family_1);
        mirrors.lambda_input_kind = 0; // the image's value is not used
        show_lambda_words();
    } else {
        take_words(image, WordGroup::eobd);
        tick_eobd_direction();
        tick_eobd_protocol();
    }
    if (newer_family_1()) take_extended(image, &Positions::family_1);
    if (state.ecu_family >= 2 && state.ecu_family <= 4) {
        take_words(image, WordGroup::lambda, &Positions::families_2_to_4);
        show_lambda_words();
        tick_debug_pair();
        view::set_visible(form1::Frame_L_C_T, true);
        if (newer_families_2_to_4()) take_extended(image, &Positions::families_2_to_4);
    }
}

// Reads version and image. If the image reply is wrong, it starts again with the version.
void read_unit() {
    for (;;) {
        state.ui_loading = true;
        while (!read_version()) {}
        features_by_family();
        send_command(Command::read_image);
        wait_ms(1600);
        const Reply image = read_reply();
        if (!image.echoes(Command::read_image)) continue;
        take_image(image);
        return;
    }
}

void start_operation() {
    state.poll_enabled = true;
    app::fill_tank_list();
    wait_ms(400);
    state.ui_loading = false;
    view::unload(frm_splash::frmSplash);
    view::set_window_state(form1::Form1, view::WindowState::maximised);
    form1::Timer_stato_sistema.on();
    view::set_focus(form1::Text2);
}

void colours_and_captions() {
    app::apply_control_captions();
    app::apply_panel_captions();
    view::set_tab_stop(form1::Slider_attenuazione, false);
    view::set_tab_stop(form1::Slider_ktar, false);
    state.text_colour = app::read_text_colour();
    // Once in a run. So a colour chosen in the text colour dialog reaches the longer list of labels
    // only at the next start.
    if (state.controls_coloured) return;
    state.controls_coloured = true;
    app::colour_dark_labels();
    app::colour_all_controls();
}

} // namespace

void main_window_activated() {
    form1::Timer_stato_sistema.off();
    state.panel_colour = form1::Form1.look.back;
    view::set_back(form1::lbl_ore, state.panel_colour);
    app::set_message(form1::Command303, app::messages::changeover, "...");
    state.trace_x = 0;
    if (state.no_reread) return;
    colours_and_captions();
    form1::Timer_rpm.on();
    if (state.poll_enabled) {
        if (unit_present()) {
            view::set_pointer(form1::Form1, Pointer::hourglass);
            view::set_visible(form1::Frame2, false);
            read_unit();
            start_operation();
        } else {
            state.poll_enabled = false;
            form1::Timer_stato_sistema.off();
            // Modal: the code after this call runs when the dialog has closed.
            view::show_modal(centralina_attiva::Centralina_Attiva);
        }
    }
    wait_ms(400);
    view::set_pointer(form1::Form1, Pointer::normal);
    state.ui_loading = false;
    if (state.connect_dialog_open) view::hide(centralina_attiva::Centralina_Attiva);
}

} // namespace zol::link
