// Names, titles, menus and captions of the windows as their tables hold them, before a unit, a
// language or the operator has changed a text.
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"
#include "view/windows/frm_splash.h"

#include <gmock/gmock.h>

#include <sstream>

namespace zol {
namespace {

using testing::ElementsAre;
using view::Kind;
using view::Widget;

// `expected` is a list of "control=text", divided by "|"; several controls may share a text.
void expect_texts(Widget& window, const std::string& expected) {
    std::istringstream list(expected);
    for (std::string names, text;
         std::getline(list, names, '=') && std::getline(list, text, '|');) {
        std::istringstream words(names);
        for (std::string name; words >> name;) {
            const Widget* control = view::find_widget(window, name);
            ASSERT_NE(control, nullptr) << name;
            EXPECT_EQ(control->design.text, text) << window.name << " " << name;
        }
    }
}

TEST(WindowTexts, WindowsHaveTheirNamesAndTitles) {
    const std::tuple<const Widget*, const char*, const char*> expected[] = {
        {&form1::Form1, "Form1", "ZOL-INJECTION"},
        {&frm_splash::frmSplash, "frmSplash", "ZOL-INJECTION"},
        {&centralina_attiva::Centralina_Attiva, "Centralina_Attiva", "ZOL-INJECTION"},
        {&form2::Form2, "Form2", "PARAMETER"},
        {&form3::Form3, "Form3", "COMMUTAZIONE..."},
        {&form_power::Form_power, "Form_power", "POWER"},
        {&acquisizione::acquisizione, "acquisizione", "TINJ MAX."}};
    for (const auto& [window, name, title] : expected) {
        EXPECT_EQ(window->name, name);
        EXPECT_EQ(window->design.text, title) << name;
    }
}

TEST(WindowTexts, WidgetIsFoundByItsFullName) {
    EXPECT_EQ(full_name(form1::Slider1[2]), "Slider1(2)");
    EXPECT_EQ(full_name(form1::Slider3), "Slider3");
    EXPECT_EQ(find_widget(form1::Form1, "Slider1(2)"), &form1::Slider1[2]);
    EXPECT_EQ(find_widget(form1::Form1, "led_rpm(0)"), &form1::led_rpm[0]);
    EXPECT_EQ(find_widget(form1::Form1, "com3"), &form1::com3);
    EXPECT_EQ(find_widget(form1::Form1, "mnu_Lingua"), &form1::mnu_Lingua);
    for (const char* none : {"led_rpm(33)", "Slider1", "Slider1(9)", "slider1(2)", ""})
        EXPECT_EQ(find_widget(form1::Form1, none), nullptr) << none;
    EXPECT_EQ(find_widget(form2::Form2, "com3"), nullptr);
}

TEST(WindowTexts, BarsRunFromZeroToAHundred) {
    for (const Widget* bar : {&acquisizione::progress_time_bar, &frm_splash::ProgressBar1}) {
        EXPECT_EQ(bar->design.min, 0) << full_name(*bar);
        EXPECT_EQ(bar->design.max, 100) << full_name(*bar);
        EXPECT_EQ(bar->design.value, 0) << full_name(*bar);
    }
}

TEST(WindowTexts, ValuesOfTheUnitAreEmptyZeroOrADash) {
    expect_texts(
        form1::Form1,
        "Label_rpm Label_tinj LabeL_pressure Label_temp Label_lambda label_liv2 Label_ktar "
        "Label_pressione_taratura Label_ct Label_level_attuale label_lambda_2 Label_stato "
        "lbl_num_errori Label_sfondo=0|"
        "Label_carburante Label1 Label13 Label14 Label42 Label49 Label8 Label9 Label10 "
        "Label11 Label_led0 Label_led1 Label_led2 Label_led3 lbl_200 lbl_201 lbl_202 "
        "lbl_203 lbl_204 lbl_205=--");
    for (const Widget* empty :
         {&form1::Label20, &form1::lbl_par_1, &form1::lbl_par_2, &form1::lbl_par_3,
          &form1::lbl_par_4, &form1::lbl_par_5, &form1::lbl_par_6, &form1::lbl_tuning,
          &form1::lbl_ore, &form2::Label1, &form2::Label6, &acquisizione::Label2,
          &centralina_attiva::Label2, &frm_splash::Label2})
        EXPECT_EQ(empty->design.text, "") << full_name(*empty);
    expect_texts(acquisizione::acquisizione, "Label1 Label_max=0");
    EXPECT_EQ(form1::Slider_ktar.design.tip, "199");
    EXPECT_EQ(form1::Slider_power.design.tip, "199");
}

TEST(WindowTexts, MenusAreInOrderWithTheirCaptions) {
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

TEST(WindowTexts, MainWindowHasItsCaptions) {
    expect_texts(
        form1::Form1,
        "Command_engine=MOTORE|Command_impostazioni=IMPOSTAZIONI|Command_diagnosi=DIAGNOSI|"
        "Command_lambda=LAMBDA|Command5=TINJ MAX.|Command_exit=EXIT|Command303=COMMUTAZIONE..|"
        "Command_hyperterminal=Hypert.|Command_scarico=SCARICO|Command1=START|Command2=STOP|"
        "frame_TARATURA=TARATURA|Frame_tank=Gestione Serbatoio|Check1=Configurazione Manuale|"
        "Label6=MIN.|Label5=MAX.|Label7=0|Label_led4=100%|Frame1=Correzione Temperatura|"
        "Label45=NORMAL|Label46=POWER|Label28=Press.Tar.|Label16=FAST|Label19=LONG|"
        "Label43=LAMBDA|Option_gpl=GPL|Option_metano=METANO|Option_press_yes=YES|"
        "Frame_pressione=Sensore Pressione|Label4=sec.|Opt_modulare_yes=yes|Frame2=MOD COMM|"
        "Frame_Lambda=LAMBDA CONTROL|Option_abi_controllo_lambda=Abilita Controllo lambda|"
        "Option_disa_controllo_lambda=Disabilita Controllo lambda|lambda_dir=Lambda Diritta|"
        "lambda_inv=Lambda Invertita|frame_type_lambd=Tipo Lambda|Option_tens=Lambda Tensione|"
        "Option_corr=Lambda Corrente|Frame_L_C_T=Lambda Tens / Current|"
        "Label_lambda_open_loop=Valore MAX Lambda Open Loop|"
        "cmd_richiesta_par_diagnosi=Richiesta Parametri Diagnosi|"
        "Command10=Cancella ERRORI SISTEMA|Label33=Descrizione Codice EOBD|Label27=1200|"
        "Label44=1200|Label_attenuazione=0- |Label25=0|Label26=150|lbl_low=0|Lbl_fast=10|"
        "Label35=1|lbl_rpm=RPM|lbl_tinj=TINJ  µs|lbl_press=PRESS  mbar|lbl_temp=TEMP  °C|"
        "lbl_lambda=LAMBDA|Label22=TANK  mV|frame_engine=MOTORE|Command8=-100|Command7=+100|"
        "Label24=ATTENUATION|Label12=RPM MULTIPLIER|Command_rpm_meno=RPM -|"
        "Command_rpm_piu=RPM +|lbl_ktar=KTAR|Label39=mbar|lbl_ct=CT|Label18=EOBD|"
        "Label48=CAN VISUAL |Command31=START READING|Frame_impostazioni=IMPOSTAZIONI|Label3=mV|"
        "lbl205=mV|lbl204=mV|Label38=mV|Label_livello_att=Livello attuale|"
        "Frame_carburante=Carburante|Option_press_no=NO|Frame_temperatura=Temp. Comm.|"
        "Label2=°C|Frame_tempo=Tempo Comm.|Opt_modulare_no=no|"
        "Frame_abilita_controllo_lambda=Lambda control|"
        "Label_medio_closed_loop=Valore MAX Lambda Closed Loop|Label32=SCALE|Command_meno=-|"
        "Command_piu=+|Label31=LAMBDA|Label29=STATE|Frame_diagnosi=DIAGNOSIS|"
        "Label21=Number of faults|Label23=EOBD codes|lbl_min=SERVICE");
}

TEST(WindowTexts, OtherWindowsHaveTheirCaptions) {
    expect_texts(
        form3::Form3,
        "opt_norm=normal|opt_perm=Permanent|opt_acc=Acceleration|Frame6=TIPO DI COMMUTAZIONE|"
        "Label38=PRESS. COMM|Label39=mBAR|Frame_comm_aut=Commutazione Automatica|lbl_low=slow|"
        "Label20=med|Lbl_fast=fast|Option1=INJ - TIME|Option2=RPM|Option3=NOT ACTIVE|"
        "Frame1=CUT-OFF  GAS|Label_inj=INJ  Cut-Off|Label_rpm=RPM Cut-Off|"
        "Frame_cut_benz=CUT-OFF BENZ|Command1=EXIT|lbl_rpm_comm=Giri comm. g/min.|"
        "Option_comm_auto_yes=yes|Option_comm_auto_no=no|Label1=RPM|Label2=TIME|lbl_ms_gas=ms|"
        "lbl_ms_benz=ms");
    expect_texts(
        form_power::Form_power,
        "Option_5=+5%|Option_15=+15%|Option_25=+25%|Option_meno_5=- 5%|Option_meno_15=- 15%|"
        "Option_meno_25=- 25%|cmd_ok=OK|cmd_cancel=CANCEL");
    expect_texts(
        acquisizione::acquisizione,
        "Label4=TINJ|Label3=MAX|Command_salva=SALVA|Command_reset=RESET|Command_chiudi=CHIUDI|"
        "lbl_us_tinj=µs|lbl_us_max=µs");
    expect_texts(form2::Form2, "cmd_exit=EXIT");
    expect_texts(
        centralina_attiva::Centralina_Attiva,
        "Label1=The control unit does not answer. Choose the serial port and run the test.|"
        "Command_test=TEST|Command_ok=OK|Command_cancel=CANCEL");
    expect_texts(frm_splash::frmSplash, "Label1=ZOL-INJECTION");
}

} // namespace
} // namespace zol
