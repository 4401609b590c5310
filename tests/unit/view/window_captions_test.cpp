// The words of the seven windows as their tables hold them: menus and captions.
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"

#include <gmock/gmock.h>

#include <map>

namespace zol {
namespace {

using testing::ElementsAre;
using view::Kind;
using view::Widget;

TEST(WindowCaptions, TheMenusStandInOrderWithTheirCaptions) {
    std::vector<std::string> lines;
    for (const Widget* w : form1::Form1.menus) {
        std::string line;
        for (const Widget* up = w->parent; up != &form1::Form1; up = up->parent)
            line += "- ";
        lines.push_back(line + w->name + (w->kind == Kind::menu ? "> " : " ") + w->look.text);
        EXPECT_EQ(w->kind == Kind::separator, w->name == "min" || w->name == "mnu_line" ||
                                                  w->name == "barra2" || w->name == "barra3" ||
                                                  w->name == "barra5")
            << w->name;
    }
    EXPECT_THAT(
        lines,
        ElementsAre(
            "mnu_Impostazioni>    IMPOSTAZIONI", "- mnu_Porta_Seriale> PORTA SERIALE",
            "- - com1 COM1", "- - com2 COM2", "- - com3 COM3", "- - com4 COM4", "- - com5 COM5",
            "- - com6 COM6", "- - com7 COM7", "- - com8 COM8",
            "- mnu_type_injector_gas> TYPE INJECTOR GAS",
            "- - mnu_matrix_2_ohm Type MATRIX HD 2 ohm",
            "- - mnu_matrix_3_ohm Type MATRIX XJ 3 ohm", "- - mnu_valtek Type VALTEK",
            "- - mnu_mivra Type MIVRA", "- barra2 -", "- mnu_type_car> TYPE INJ CAR",
            "- - type_a TYPE INJ A", "- - type_b TYPE INJ B", "- - type_c TYPE INJ C", "- min -",
            "- mnu_check_car> MENU GAS", "- - mnu_reset_check RESET DATA LAST CHECK",
            "- - mnu_reset_time_ongas RESET TIME ON GAS", "- barra3 ",
            "- mnu_reset_centralina RESET CENTRALINA", "mnu_Lingua>     LINGUA", "- it ITALIAN",
            "- uk ENGLISH", "- pl POLAND", "- fr FRENCH", "- de GERMAN", "barra1 PARAMETER",
            "mnu_eobd> EOBD", "- mnu_setting_eobd> Setting EOBD",
            "- - mnu_direction_normal_eobd Normal", "- - mnu_direction_inverse_eobd Inverse",
            "- barra5 -", "- mnu_debug_error> Enable Debug", "- - mnu_debug_yes Yes",
            "- - mnu_debug_no No", "- mnu_line -", "- mnu_search Search...",
            "- mnu_KWP2000_fast KWP2000 fast", "- mnu_KWP2000_slow KWP2000 slow",
            "- mnu_iso9141 ISO9141", "- mnuCAN250KStandard CAN 250K Standard",
            "- mnuCAN250KExtended CAN 250K Extended", "- mnuCAN500KStandard CAN 500K Standard",
            "- mnuCAN500KExtended CAN 500K Extended", "- mnuJ1850vpw J1850 VPW",
            "- mnuJ1850pwm J1850 PWM", "mnu_Schermo> SCHERMO", "- mnu_color_testo Colore Testo",
            "MNU_INFOMATION> INFOMATION", "- MNU_VERSIONE Version",
            "- mnu_dump_parametri SAVE PARAMETERS", "MNU_HELP> HELP", "- mnu_Manual Manual"));
}

TEST(WindowCaptions, TheCaptionsThatNoLanguageReplacesAreAsTheFitterKnowsThem) {
    const std::map<const Widget*, std::string> expected = {
        {&form1::Command_engine, "MOTORE"},
        {&form1::Command_impostazioni, "IMPOSTAZIONI"},
        {&form1::Command_diagnosi, "DIAGNOSI"},
        {&form1::Command_lambda, "LAMBDA"},
        {&form1::Command5, "TINJ MAX."},
        {&form1::Command_exit, "EXIT"},
        {&form1::Command303, "COMMUTAZIONE.."},
        {&form1::Command_hyperterminal, "Hypert."},
        {&form1::Command_scarico, "SCARICO"},
        {&form1::Command1, "START"},
        {&form1::Command2, "STOP"},
        {&form1::frame_TARATURA, "TARATURA"},
        {&form1::Frame_tank, "Gestione Serbatoio"},
        {&form1::Check1, "Configurazione Manuale"},
        {&form1::Label6, "MIN."},
        {&form1::Label5, "MAX."},
        {&form1::Label7, "0"},
        {&form1::Label_led4, "100%"},
        {&form1::Frame1, "Correzione Temperatura"},
        {&form1::Label45, "NORMAL"},
        {&form1::Label46, "POWER"},
        {&form1::Label28, "Press.Tar."},
        {&form1::Label16, "FAST"},
        {&form1::Label19, "LONG"},
        {&form1::Label43, "LAMBDA"},
        {&form1::Option_gpl, "GPL"},
        {&form1::Option_metano, "METANO"},
        {&form1::Option_press_yes, "YES"},
        {&form1::Frame_pressione, "Sensore Pressione"},
        {&form1::Label4, "sec."},
        {&form1::Opt_modulare_yes, "yes"},
        {&form1::Frame2, "MOD COMM"},
        {&form1::Frame_Lambda, "LAMBDA CONTROL"},
        {&form1::Option_abi_controllo_lambda, "Abilita Controllo lambda"},
        {&form1::Option_disa_controllo_lambda, "Disabilita Controllo lambda"},
        {&form1::lambda_dir, "Lambda Diritta"},
        {&form1::lambda_inv, "Lambda Invertita"},
        {&form1::frame_type_lambd, "Tipo Lambda"},
        {&form1::Option_tens, "Lambda Tensione"},
        {&form1::Option_corr, "Lambda Corrente"},
        {&form1::Frame_L_C_T, "Lambda Tens / Current"},
        {&form1::Label_lambda_open_loop, "Valore MAX Lambda Open Loop"},
        {&form1::cmd_richiesta_par_diagnosi, "Richiesta Parametri Diagnosi"},
        {&form1::Command10, "Cancella ERRORI SISTEMA"},
        {&form1::Label33, "Descrizione Codice EOBD"},
        {&form3::opt_norm, "normal"},
        {&form3::opt_perm, "Permanent"},
        {&form3::opt_acc, "Acceleration"},
        {&form3::Frame6, "TIPO DI COMMUTAZIONE"},
        {&form3::Label38, "PRESS. COMM"},
        {&form3::Label39, "mBAR"},
        {&form3::Frame_comm_aut, "Commutazione Automatica"},
        {&form3::lbl_low, "slow"},
        {&form3::Label20, "med"},
        {&form3::Lbl_fast, "fast"},
        {&form3::Option1, "INJ - TIME"},
        {&form3::Option2, "RPM"},
        {&form3::Option3, "NOT ACTIVE"},
        {&form3::Frame1, "CUT-OFF  GAS"},
        {&form3::Label_inj, "INJ  Cut-Off"},
        {&form3::Label_rpm, "RPM Cut-Off"},
        {&form3::Frame_cut_benz, "CUT-OFF BENZ"},
        {&form3::Command1, "EXIT"},
        {&form_power::Option_5, "+5%"},
        {&form_power::Option_15, "+15%"},
        {&form_power::Option_25, "+25%"},
        {&form_power::Option_meno_5, "- 5%"},
        {&form_power::Option_meno_15, "- 15%"},
        {&form_power::Option_meno_25, "- 25%"},
        {&form_power::cmd_ok, "OK"},
        {&form_power::cmd_cancel, "CANCEL"},
        {&acquisizione::Label4, "TINJ"},
        {&acquisizione::Label3, "MAX"},
        {&acquisizione::Command_salva, "SALVA"},
        {&acquisizione::Command_reset, "RESET"},
        {&acquisizione::Command_chiudi, "CHIUDI"},
    };
    for (const auto& [widget, text] : expected)
        EXPECT_EQ(widget->design.text, text) << full_name(*widget);
}

} // namespace
} // namespace zol
