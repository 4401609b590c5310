// The windows' names and titles, and what stands on them before a unit, a language or the operator
// has said anything.
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"
#include "view/windows/frm_splash.h"

#include <gmock/gmock.h>

#include <map>

namespace zol {
namespace {

using view::Widget;

void expect_texts(const std::map<const Widget*, std::string>& expected) {
    for (const auto& [widget, text] : expected)
        EXPECT_EQ(widget->design.text, text) << full_name(*widget);
}

TEST(WindowTexts, EveryWindowHasItsNameAndItsTitle) {
    const std::pair<const Widget*, const char*> names[] = {
        {&form1::Form1, "Form1"},
        {&frm_splash::frmSplash, "frmSplash"},
        {&centralina_attiva::Centralina_Attiva, "Centralina_Attiva"},
        {&form2::Form2, "Form2"},
        {&form3::Form3, "Form3"},
        {&form_power::Form_power, "Form_power"},
        {&acquisizione::acquisizione, "acquisizione"},
    };
    for (const auto& [window, name] : names)
        EXPECT_EQ(window->name, name);
    expect_texts({{&form1::Form1, "ZOL-INJECTION"},
                  {&frm_splash::frmSplash, "ZOL-INJECTION"},
                  {&centralina_attiva::Centralina_Attiva, "ZOL-INJECTION"},
                  {&form2::Form2, "PARAMETER"},
                  {&form3::Form3, "COMMUTAZIONE..."},
                  {&form_power::Form_power, "POWER"},
                  {&acquisizione::acquisizione, "TINJ MAX."}});
}

TEST(WindowTexts, AnElementOfAnArrayIsFoundByItsNameAndIndex) {
    EXPECT_EQ(full_name(form1::Slider1[2]), "Slider1(2)");
    EXPECT_EQ(full_name(form1::Slider3), "Slider3");
    EXPECT_EQ(find_widget(form1::Form1, "Slider1(2)"), &form1::Slider1[2]);
    EXPECT_EQ(find_widget(form1::Form1, "led_rpm(0)"), &form1::led_rpm[0]);
    EXPECT_EQ(find_widget(form1::Form1, "com3"), &form1::com3);
    EXPECT_EQ(find_widget(form1::Form1, "led_rpm(33)"), nullptr);
    EXPECT_EQ(find_widget(form2::Form2, "com3"), nullptr);
}

TEST(WindowTexts, ABarRunsFromNothingToAHundred) {
    for (const Widget* bar : {&acquisizione::progress_time_bar, &frm_splash::ProgressBar1}) {
        EXPECT_EQ(bar->design.min, 0) << full_name(*bar);
        EXPECT_EQ(bar->design.max, 100) << full_name(*bar);
        EXPECT_EQ(bar->design.value, 0) << full_name(*bar);
    }
}

TEST(WindowTexts, AValueThatNoUnitHasGivenYetIsZeroOrADash) {
    using namespace form1;
    for (const Widget* w : {&Label_rpm, &Label_tinj, &LabeL_pressure, &Label_temp, &Label_lambda,
                            &label_liv2, &Label_ktar, &Label_pressione_taratura, &Label_ct,
                            &Label_level_attuale, &label_lambda_2, &Label_stato, &lbl_num_errori,
                            &Label_sfondo, &acquisizione::Label1, &acquisizione::Label_max})
        EXPECT_EQ(w->design.text, "0") << full_name(*w);
    for (const Widget* w :
         {&Label_carburante, &Label1,  &Label13, &Label14,    &Label42,    &Label49,    &Label8,
          &Label9,           &Label10, &Label11, &Label_led0, &Label_led1, &Label_led2, &Label_led3,
          &lbl_200,          &lbl_201, &lbl_202, &lbl_203,    &lbl_204,    &lbl_205})
        EXPECT_EQ(w->design.text, "--") << full_name(*w);
    for (const Widget* w : {&Label20, &lbl_par_1, &lbl_par_2, &lbl_par_3, &lbl_par_4, &lbl_par_5,
                            &lbl_par_6, &lbl_tuning, &lbl_ore, &form2::Label1, &form2::Label6,
                            &acquisizione::Label2, &centralina_attiva::Label2, &frm_splash::Label2})
        EXPECT_EQ(w->design.text, "") << full_name(*w);
    expect_texts({{&Label27, "1200"},
                  {&Label44, "1200"},
                  {&Label_attenuazione, "0- "},
                  {&Label25, "0"},
                  {&Label26, "150"},
                  {&lbl_low, "0"},
                  {&Lbl_fast, "10"},
                  {&Label35, "1"}});
    EXPECT_EQ(Slider_ktar.design.tip, "199");
    EXPECT_EQ(Slider_power.design.tip, "199");
}

TEST(WindowTexts, TheMainWindowsTitlesAndUnitsAreInPlace) {
    using namespace form1;
    expect_texts({{&lbl_rpm, "RPM"},
                  {&lbl_tinj, "TINJ  µs"},
                  {&lbl_press, "PRESS  mbar"},
                  {&lbl_temp, "TEMP  °C"},
                  {&lbl_lambda, "LAMBDA"},
                  {&Label22, "TANK  mV"},
                  {&frame_engine, "MOTORE"},
                  {&Command8, "-100"},
                  {&Command7, "+100"},
                  {&Label24, "ATTENUATION"},
                  {&Label12, "RPM MULTIPLIER"},
                  {&Command_rpm_meno, "RPM -"},
                  {&Command_rpm_piu, "RPM +"},
                  {&lbl_ktar, "KTAR"},
                  {&Label39, "mbar"},
                  {&lbl_ct, "CT"},
                  {&Label18, "EOBD"},
                  {&Label48, "CAN VISUAL "},
                  {&Command31, "START READING"},
                  {&Frame_impostazioni, "IMPOSTAZIONI"},
                  {&Label3, "mV"},
                  {&lbl205, "mV"},
                  {&lbl204, "mV"},
                  {&Label38, "mV"},
                  {&Label_livello_att, "Livello attuale"},
                  {&Frame_carburante, "Carburante"},
                  {&Option_press_no, "NO"},
                  {&Frame_temperatura, "Temp. Comm."},
                  {&Label2, "°C"},
                  {&Frame_tempo, "Tempo Comm."},
                  {&Opt_modulare_no, "no"},
                  {&Frame_abilita_controllo_lambda, "Lambda control"},
                  {&Label_medio_closed_loop, "Valore MAX Lambda Closed Loop"},
                  {&Label32, "SCALE"},
                  {&Command_meno, "-"},
                  {&Command_piu, "+"},
                  {&Label31, "LAMBDA"},
                  {&Label29, "STATE"},
                  {&Frame_diagnosi, "DIAGNOSIS"},
                  {&Label21, "Number of faults"},
                  {&Label23, "EOBD codes"},
                  {&lbl_min, "SERVICE"}});
}

TEST(WindowTexts, TheOtherWindowsTitlesAndButtonsAreInPlace) {
    expect_texts({{&form2::cmd_exit, "EXIT"},
                  {&form3::lbl_rpm_comm, "Giri comm. g/min."},
                  {&form3::Option_comm_auto_yes, "yes"},
                  {&form3::Option_comm_auto_no, "no"},
                  {&form3::Label1, "RPM"},
                  {&form3::Label2, "TIME"},
                  {&form3::lbl_ms_gas, "ms"},
                  {&form3::lbl_ms_benz, "ms"},
                  {&acquisizione::lbl_us_tinj, "µs"},
                  {&acquisizione::lbl_us_max, "µs"},
                  {&centralina_attiva::Label1,
                   "The control unit does not answer. Choose the serial port and run the test."},
                  {&centralina_attiva::Command_test, "TEST"},
                  {&centralina_attiva::Command_ok, "OK"},
                  {&centralina_attiva::Command_cancel, "CANCEL"},
                  {&frm_splash::Label1, "ZOL-INJECTION"}});
}

} // namespace
} // namespace zol
