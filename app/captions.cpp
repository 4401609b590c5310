#include "app/captions.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/message_catalogue.h"
#include "view/view.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <array>

namespace zol::app {
namespace {

struct Caption {
    view::Widget& control;
    int message;
};

const Caption panel_captions[] = {
    {form1::Command_engine, messages::engine},
    {form1::Command_impostazioni, messages::settings},
    {form1::frame_engine, messages::engine},
    {form1::Frame_impostazioni, messages::settings},
    {form1::frame_TARATURA, messages::calibration},
    {form1::Frame_pressione, messages::pressure_sensor},
    {form1::Frame_carburante, messages::fuel},
    {form1::Frame_temperatura, messages::changeover_temperature},
    {form1::Frame_tempo, messages::changeover_time},
    {form1::Frame_tank, messages::tank_gauge},
    {form1::Label_livello_att, messages::present_level},
    {form1::Frame1, messages::temperature_correction},
};

const Caption control_captions[] = {
    {form1::lambda_dir, messages::lambda_direct},
    {form1::lambda_inv, messages::lambda_inverted},
    {form1::Option_abi_controllo_lambda, messages::lambda_control_on},
    {form1::Option_disa_controllo_lambda, messages::lambda_control_off},
    {form1::Option_tens, messages::lambda_voltage},
    {form1::Option_corr, messages::lambda_current},
    {form1::Label_medio_closed_loop, messages::lambda_closed_loop_max},
    {form1::Label_lambda_open_loop, messages::lambda_open_loop_max},
    {form1::cmd_richiesta_par_diagnosi, messages::read_faults},
    {form1::Command10, messages::clear_faults},
    {form1::mnu_Porta_Seriale, messages::serial_port},
    {form1::mnu_Impostazioni, messages::settings},
    {form1::mnu_Lingua, messages::language},
    {form1::mnu_Schermo, messages::screen},
    {form1::MNU_INFOMATION, messages::information},
    {form1::mnu_color_testo, messages::text_colour},
    {form1::mnu_reset_centralina, messages::reset_unit},
    {form1::MNU_VERSIONE, messages::version},
    {form1::mnu_reset_check, messages::reset_last_check},
    {form1::mnu_reset_time_ongas, messages::reset_time_on_gas},
};

// Controls without a message number: their captions are in the file of the helper texts.
view::Widget* const own_captions[] = {
    &form1::Label22,
    &form1::Label24,
    &form1::Label12,
    &form1::Command31,
    &form1::Frame_abilita_controllo_lambda,
    &form1::Label32,
    &form1::Label29,
    &form1::Frame_diagnosi,
    &form1::Label21,
    &form1::Label23,
    &form3::Label2,
    &centralina_attiva::Label1,
    &form1::mnu_dump_parametri,
};

// In the order of the list, which is the order of the presets.
constexpr std::array tank_messages = {messages::tank_toroidal,    messages::tank_cylinder,
                                      messages::tank_0_to_90_ohm, messages::tank_methane,
                                      messages::tank_hall,        messages::tank_resistive};

} // namespace

void apply_panel_captions() {
    for (const Caption& each : panel_captions)
        set_message(each.control, each.message);
}

void apply_control_captions() {
    for (const Caption& each : control_captions)
        set_message(each.control, each.message);
    fill_tank_list();
}

void apply_own_captions() {
    for (view::Widget* control : own_captions)
        if (const auto text = own_caption(*control)) view::set_text(*control, *text);
}

void fill_tank_list() {
    std::vector<std::string> items;
    for (const int key : tank_messages)
        if (auto text = message(key)) items.push_back(std::move(*text));
    view::set_items(form1::Combo_tank_level, std::move(items));
    // The list rejects 99, free values, and then has nothing selected.
    view::set_list_index(form1::Combo_tank_level, state.tank_type);
}

} // namespace zol::app
