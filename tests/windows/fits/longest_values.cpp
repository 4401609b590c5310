#include "tests/windows/fits/longest_values.h"

#include "app/message_catalogue.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/frm_splash.h"

namespace zol::view {
namespace {

std::vector<LongestTexts> live_values() {
    using namespace form1;
    const std::string word = "65535", trim = "-99.84 % ";
    return {
        {&Label_rpm, {word}},
        {&Label_tinj, {word}},
        {&LabeL_pressure, {word, "---   "}},
        {&Label_temp, {word}},
        {&Label_lambda, {word}},
        {&label_liv2, {word}},
        {&Label20, {"Batt. 345.26  Volts"}},
        {&Label_ktar, {word}},
        {&Label_ct, {word}},
        {&Label_pressione_taratura, {word}},
        {&Label27, {"1800"}},
        {&Label44, {"1800"}},
        {&Label_attenuazione, {"150- ", "- 150", word + "- ", "- " + word}},
        {&Label1,
         {"OPEN LOOP TRANS.  ", "CLOSED LOOP  ", "WAIT INIT  PROT..  ", "LOST CONNECTION"}},
        {&Label13, {trim}},
        {&Label14, {trim}},
        {&Label49, {"L= " + word}},
        {&Label42, {word + "mV"}},
        {&label_lambda_2, {word}},
        {&Label_stato, {"9"}},
        {&Label35, {"4"}},
        {&Label_sfondo, {"255"}},
        {&lbl_num_errori, {word}},
        {&Label_level_attuale, {word}},
        {&lbl_tuning,
         {"-- AUTO MAGRA ALZ. PRESS... --", "-- AUTO RICCA DIMIN. PRESS. --",
          "-- L - REPEAT WAIT TUNING   --", "-- R - REPEAT WAIT TUNING   --", "-- FINISH --",
          "-- WAIT TEMPERATURE... --", "-- WAIT TUNING... --"}},
        {&lbl_ore,
         {"Time On GAS:    65535 hour - 65535 min    -  Date Last Check : 65535 / 65535 / "
          "20065535  "}},
    };
}

std::vector<LongestTexts> fields_and_lists() {
    std::vector<LongestTexts> all;
    for (Widget* field :
         {&form1::Text_min_tank, &form1::Text_max_tank, &form1::text_temp_comm,
          &form1::Text_time_comm, &form1::Text_lambda_closed_loop, &form1::Text_lambda_open_loop,
          &form1::lbl_200, &form1::lbl_201, &form1::lbl_202, &form1::lbl_203, &form1::lbl_204,
          &form1::lbl_205, &form3::Text_rpm, &form3::Text_press_comm, &form3::Text_124})
        all.push_back({field, {"65535"}});
    for (Widget* fault : {&form1::lbl_par_1, &form1::lbl_par_2, &form1::lbl_par_3,
                          &form1::lbl_par_4, &form1::lbl_par_5, &form1::lbl_par_6})
        all.push_back({fault, {"NO ERROR", "P25755"}});
    for (Widget* bound :
         {&form1::Label7, &form1::Label8, &form1::Label9, &form1::Label10, &form1::Label11,
          &form1::Label_led0, &form1::Label_led1, &form1::Label_led2, &form1::Label_led3})
        all.push_back({bound, {"100%", "65536%"}});
    return all;
}

std::vector<LongestTexts> fuel_states() {
    LongestTexts fuel{&form1::Label_carburante, {"NO PRESS"}};
    for (const int key : {1134, 1102, 1171, 1172})
        fuel.texts.push_back(app::message(key).value_or(""));
    return {fuel};
}

std::vector<LongestTexts> dialogs() {
    std::vector<LongestTexts> all = {
        {&frm_splash::Label2, {"99.99.99"}},
        {&centralina_attiva::Label2, {"- OK TEST ESEGUITO -", "- TEST FALLITO -"}},
        {&form3::Text1, {"655350"}},
        {&form3::Text2, {"6553500"}},
        {&form3::Text_123, {"65540"}},
        {&acquisizione::Label1, {"65535"}},
        {&acquisizione::Label_max, {"65535"}},
        {&acquisizione::Label2, {"saved:  65535"}},
    };
    for (Widget* line : {&form2::Label1, &form2::Label2, &form2::Label3, &form2::Label4,
                         &form2::Label5, &form2::Label6})
        all.push_back({line, {"PAR_107 = 65540"}});
    return all;
}

} // namespace

std::vector<LongestTexts> longest_texts() {
    std::vector<LongestTexts> all = live_values();
    for (const auto& more : {fields_and_lists(), fuel_states(), dialogs()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

} // namespace zol::view
