#include "app/program/main_window.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/colours.h"
#include "app/numbers.h"
#include "link/parameter_mirrors.h"
#include "link/tank_display.h"
#include "monitor/panels.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"

namespace zol::app {
namespace {

using link::mirrors;
using view::Pointer;
using view::Widget;

void set_visible_all(std::initializer_list<Widget*> widgets, bool visible) {
    for (Widget* w : widgets)
        view::set_visible(*w, visible);
}

void engine_clicked() {
    monitor::bring_back_engine_panel();
    view::set_enabled(form1::Form1, true);
    view::set_focus(form1::Text2);
    view::set_focus(form1::Form1);
    state.ui_loading = false;
    view::set_pointer(form1::Form1, Pointer::normal);
}

void settings_clicked() {
    state.settings_panel_open = true;
    form1::Timer_stato_sistema.off();
    state.poll_enabled = false;
    form1::Timer3.off();
    view::set_enabled(form1::Command5, false);
    form1::Timer_chiusura_stato.on();
    view::set_visible(form1::Command_exit, false);
    view::set_visible(form1::Frame_impostazioni, true);
    set_visible_all({&form1::frame_engine, &form1::Frame_Lambda, &form1::Frame_diagnosi}, false);
    link::show_tank_ends();
    // Only the four thresholds are set here; the fifth slider keeps its value.
    view::place_value(form1::Slider1[0], mirrors.tank_threshold_1);
    view::place_value(form1::Slider1[1], mirrors.tank_threshold_2);
    view::place_value(form1::Slider1[2], mirrors.tank_threshold_3);
    view::place_value(form1::Slider1[3], mirrors.tank_threshold_4);
    state.ui_loading = false;
}

// Fills the panel from the mirrors and sends nothing. Needed because the dialog path of the first
// read does not fill this panel.
void show_lambda_settings() {
    view::set_text(form1::Text_lambda_open_loop, number_text(mirrors.lambda_open_loop_max));
    view::set_text(form1::Text_lambda_closed_loop, number_text(mirrors.lambda_closed_loop_max));
    view::place_selected(mirrors.lambda_control == 1 ? form1::Option_abi_controllo_lambda
                                                     : form1::Option_disa_controllo_lambda);
    view::place_selected(mirrors.lambda_direction == 1 ? form1::lambda_dir : form1::lambda_inv);
    if (mirrors.lambda_input_kind == 0) view::place_selected(form1::Option_tens);
    if (mirrors.lambda_input_kind == 1) view::place_selected(form1::Option_corr);
}

void lambda_clicked() {
    view::set_enabled(form1::Command5, false);
    form1::Timer_chiusura_stato.on();
    view::set_visible(form1::Command_exit, false);
    view::set_text(form1::Label35, "1");
    show_lambda_settings();
    set_visible_all({&form1::Frame_Lambda, &form1::Picture1}, true);
    set_visible_all({&form1::frame_engine, &form1::Frame_impostazioni, &form1::Frame_diagnosi},
                    false);
    form1::Timer3.on();
}

void parameter_clicked() {
    monitor::stop_polling();
    form1::Timer3.off();
    view::show(form2::Form2);
}

void show_service_controls() {
    set_visible_all({&form1::Label_sfondo, &form1::Label_pressione_taratura, &form1::lbl_ct,
                     &form1::lbl_ktar, &form1::Label28, &form1::Command_hyperterminal,
                     &form1::Command_scarico},
                    true);
    view::set_focus(form1::Text2);
}

// Hides more controls than show_service_controls() shows; other handlers show the rest.
void hide_service_controls() {
    set_visible_all({&form1::Label_sfondo, &form1::Label_ct, &form1::Label_ktar,
                     &form1::Label_pressione_taratura, &form1::lbl_ct, &form1::lbl_ktar,
                     &form1::Label28, &form1::Command1, &form1::Command2,
                     &form1::Command_hyperterminal, &form1::Command_scarico},
                    false);
    view::set_focus(form1::Text2);
}

} // namespace

void ShowHtmlHelp(const std::string& file, const std::string& topic) {
    // Each language's pages are in a folder named by its code.
    const std::string& language = state.current_language;
    view::show_manual(file, language.empty() ? topic : language + "/" + topic);
}

void connect_main_window() {
    form1::Command_engine.on.click = engine_clicked;
    form1::Command_impostazioni.on.click = settings_clicked;
    form1::Command_lambda.on.click = lambda_clicked;
    form1::Command303.on.click = [] { view::show(form3::Form3); };
    form1::Command5.on.click = [] { view::show(acquisizione::acquisizione); };
    form1::barra1.on.click = parameter_clicked;
    form1::Command31.on.click = monitor::start_polling;
    form1::Command2.on.click = monitor::stop_polling;
    form1::Label18.on.double_click = show_service_controls;
    form1::Label12.on.double_click = hide_service_controls;
    form1::mnu_color_testo.on.click = choose_text_colour;
    form1::mnu_Manual.on.click = [] {
        ShowHtmlHelp(application_file("\\zol.chm").string(), "index.htm");
    };
}

} // namespace zol::app
