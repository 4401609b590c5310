// The tables of the seven windows: every control is there, and the operator can see it.
#include "view/headless/virtual_time.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"
#include "view/windows/frm_splash.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>
#include <set>
#include <sstream>

namespace zol {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;
using view::Kind;
using view::Widget;

std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

std::vector<Widget*> seven_windows() {
    return {&form1::Form1,
            &frm_splash::frmSplash,
            &centralina_attiva::Centralina_Attiva,
            &form2::Form2,
            &form3::Form3,
            &form_power::Form_power,
            &acquisizione::acquisizione};
}

// The names of the window's controls of one kind; an array has one name.
std::set<std::string> names(const Widget& window, Kind kind) {
    std::set<std::string> found;
    for (const Widget* w : window.controls)
        if (w->kind == kind) found.insert(w->name);
    return found;
}

void expect_controls(const Widget& window, const std::map<Kind, std::string>& expected) {
    for (int k = 0; k <= static_cast<int>(Kind::movie); ++k) {
        const Kind kind = static_cast<Kind>(k);
        const auto list = expected.find(kind);
        EXPECT_THAT(
            names(window, kind),
            UnorderedElementsAreArray(words(list == expected.end() ? std::string() : list->second)))
            << "kind " << k << " of " << window.name;
    }
}

TEST(WindowTables, MainWindowHasEveryControl) {
    expect_controls(
        form1::Form1,
        {{Kind::label,
          "lbl_rpm Label_rpm lbl_tinj Label_tinj lbl_press LabeL_pressure lbl_temp Label_temp "
          "lbl_lambda Label_lambda label_liv2 Label_carburante Label20 "
          "Label45 Label27 Label46 Label44 Label24 Label_attenuazione Label25 Label26 Label12 "
          "lbl_ktar Label_ktar lbl_ct Label_ct Label28 Label_pressione_taratura Label18 Label1 "
          "Label16 Label13 Label19 Label14 Label43 Label42 Label48 Label49 "
          "Label5 Label6 Label7 Label8 Label9 Label10 Label11 "
          "Label_led0 Label_led1 Label_led2 Label_led3 Label_led4 "
          "lbl_200 lbl_201 lbl_202 lbl_203 lbl_204 lbl_205 lbl204 lbl205 "
          "Label_livello_att Label_level_attuale Label2 Label3 Label4 Lbl_fast lbl_low "
          "Label_medio_closed_loop Label_lambda_open_loop label_lambda_2 Label_stato Label35 "
          "Label21 Label22 Label23 Label29 Label31 Label32 Label33 Label38 Label39 "
          "lbl_num_errori lbl_par_1 lbl_par_2 lbl_par_3 lbl_par_4 lbl_par_5 lbl_par_6 "
          "lbl_tuning Label_sfondo lbl_ore lbl_min"},
         {Kind::command_button,
          "Command_engine Command_impostazioni Command_lambda Command_diagnosi Command5 "
          "Command_exit Command7 Command8 Command_rpm_piu Command_rpm_meno Command31 Command303 "
          "Command_piu Command_meno cmd_richiesta_par_diagnosi Command10 Command1 Command2 "
          "Command_hyperterminal Command_scarico cmd_focus"},
         {Kind::option_button,
          "Option_gpl Option_metano Option_press_yes Option_press_no Opt_modulare_yes "
          "Opt_modulare_no lambda_dir lambda_inv Option_abi_controllo_lambda "
          "Option_disa_controllo_lambda Option_tens Option_corr"},
         {Kind::check_box, "Check1"},
         {Kind::text_box, "Text2 Text_min_tank Text_max_tank text_temp_comm Text_time_comm "
                          "Text_lambda_closed_loop Text_lambda_open_loop Text_note_error"},
         {Kind::combo_box, "Combo_tank_level"},
         {Kind::frame,
          "frame_engine frame_TARATURA Frame_impostazioni Frame_tank Frame_carburante "
          "Frame_pressione Frame_temperatura Frame_tempo Frame1 Frame2 Frame_Lambda "
          "frame_type_lambd Frame_abilita_controllo_lambda Frame_L_C_T Frame_diagnosi"},
         {Kind::slider, "Slider_ktar Slider_power Slider_attenuazione Slider3 Slider1"},
         {Kind::shape, "led_rpm Shape1 Shape2"},
         {Kind::picture, "Picture1"},
         {Kind::movie, "ShockwaveFlash1"}});
}

TEST(WindowTables, OtherWindowsHaveEveryControl) {
    expect_controls(frm_splash::frmSplash, {{Kind::label, "Label1 Label2"},
                                            {Kind::progress_bar, "ProgressBar1"},
                                            {Kind::movie, "ShockwaveFlash1"}});
    expect_controls(centralina_attiva::Centralina_Attiva,
                    {{Kind::label, "Label1 Label2"},
                     {Kind::combo_box, "Combo1"},
                     {Kind::command_button, "Command_test Command_ok Command_cancel"},
                     {Kind::movie, "ShockwaveFlash1"}});
    expect_controls(form3::Form3,
                    {{Kind::label, "lbl_rpm_comm Label38 Label39 Lbl_fast Label20 lbl_low "
                                   "Label_inj lbl_ms_gas Label_rpm Label1 Label2 lbl_ms_benz"},
                     {Kind::frame, "Frame6 Frame_comm_aut Frame1 Frame_cut_benz"},
                     {Kind::option_button, "opt_norm opt_perm opt_acc Option_comm_auto_yes "
                                           "Option_comm_auto_no Option1 Option2 Option3"},
                     {Kind::text_box, "Text_rpm Text_press_comm Text_123 Text_124 Text1 Text2"},
                     {Kind::slider, "Slider2"},
                     {Kind::command_button, "Command1"}});
    expect_controls(form_power::Form_power,
                    {{Kind::option_button, "Option_5 Option_15 Option_25 Option_meno_5 "
                                           "Option_meno_15 Option_meno_25"},
                     {Kind::command_button, "cmd_ok cmd_cancel"}});
    expect_controls(form2::Form2, {{Kind::label, "Label1 Label2 Label3 Label4 Label5 Label6"},
                                   {Kind::command_button, "cmd_exit"}});
    expect_controls(acquisizione::acquisizione,
                    {{Kind::label, "Label1 Label2 Label3 Label4 Label_max lbl_us_tinj lbl_us_max"},
                     {Kind::progress_bar, "progress_time_bar"},
                     {Kind::command_button, "Command_salva Command_reset Command_chiudi"}});
}

TEST(WindowTables, NameIsUniqueInItsWindow) {
    for (const Widget* window : seven_windows()) {
        std::set<std::string> seen;
        for (const auto& list : {window->controls, window->menus})
            for (const Widget* w : list)
                EXPECT_TRUE(seen.insert(full_name(*w)).second) << full_name(*w);
    }
}

TEST(WindowTables, SpeedBarHasNoLampOfIndex33) {
    std::vector<int> indices;
    double left = 120;
    for (const Widget& lamp : form1::led_rpm.all()) {
        indices.push_back(lamp.index);
        EXPECT_EQ(lamp.design.place.left, left) << full_name(lamp);
        EXPECT_EQ(lamp.design.place.width, 150);
        EXPECT_EQ(lamp.design.place.height, 150);
        EXPECT_EQ(lamp.design.back, view::green);
        left += 120;
    }
    EXPECT_THAT(indices, testing::SizeIs(41));
    EXPECT_EQ(form1::led_rpm.find(33), nullptr);
    EXPECT_EQ(form1::led_rpm[41].index, 41);
}

TEST(WindowTables, TankGaugeReadsFromTheBottomUpwards) {
    using namespace form1;
    const Widget* lower[] = {&Label7, &Label8, &Label9, &Label10, &Label11};
    const Widget* upper[] = {&Label_led0, &Label_led1, &Label_led2, &Label_led3, &Label_led4};
    const Widget* voltage[] = {&lbl_205, &lbl_204, &lbl_203, &lbl_202, &lbl_201, &lbl_200};
    auto middle = [](const Widget& w) { return w.look.place.top + w.look.place.height / 2; };
    for (int row = 0; row < 5; ++row) {
        const double here = middle(Slider1[row]);
        if (row > 0) {
            EXPECT_LT(here, middle(Slider1[row - 1]));
        }
        for (const Widget* w : {lower[row], upper[row], static_cast<const Widget*>(&Shape1[row])})
            EXPECT_NEAR(middle(*w), here, 30) << full_name(*w);
        EXPECT_GT(middle(*voltage[row]), here);
        EXPECT_LT(middle(*voltage[row + 1]), here);
        EXPECT_EQ(Shape1[row].design.back, row == 0 ? view::red : view::green);
        EXPECT_EQ(Slider1[row].design.value, row == 0 ? 80 : 79);
    }
}

double middle_of(const Widget& w) { return w.design.place.top + w.design.place.height / 2; }
double right_of(const Widget& w) { return w.design.place.left + w.design.place.width; }

// The marks begin and end half a handle inside the slider, and are on its right.
void expect_beside_the_end_marks(const Widget& slider, const Widget& first, const Widget& last) {
    constexpr double half_handle = 105, pixel = 15;
    const view::Place& place = slider.design.place;
    EXPECT_NEAR(middle_of(first), place.top + half_handle, pixel) << first.name;
    EXPECT_NEAR(middle_of(last), place.top + place.height - half_handle, pixel) << last.name;
    for (const Widget* figure : {&first, &last})
        EXPECT_NEAR(figure->design.place.left, right_of(slider), 2 * pixel) << figure->name;
}

TEST(WindowTables, UprightSliderIsLabelledAtItsEndMarks) {
    using namespace form1;
    expect_beside_the_end_marks(Slider_attenuazione, Label25, Label26);
    expect_beside_the_end_marks(Slider3, lbl_low, Lbl_fast);
    expect_beside_the_end_marks(form3::Slider2, form3::Lbl_fast, form3::lbl_low);
    EXPECT_EQ(middle_of(form3::Label20), middle_of(form3::Slider2));
}

// From the left edge of the window.
double column_of(const Widget& w) {
    double left = w.design.place.left;
    for (const Widget* up = w.parent; up != w.window; up = up->parent)
        left += up->design.place.left;
    return left;
}

TEST(WindowTables, ChangeoverFieldsAreInOneColumn) {
    using namespace form3;
    const std::pair<const Widget*, const Widget*> rows[] = {
        {&lbl_rpm_comm, &Text_rpm}, {&Label38, &Text_press_comm}, {&Label1, &Text1},
        {&Label2, &Text2},          {&lbl_ms_benz, &Text2},       {&Label39, &Text_press_comm}};
    for (const auto& [caption, field] : rows) {
        EXPECT_EQ(column_of(*field), column_of(Text_rpm)) << field->name;
        EXPECT_EQ(middle_of(*caption), middle_of(*field)) << caption->name;
    }
}

// These may overlap: panels of which one is shown at a time, and the lamps of one strip.
bool may_share_a_place(const Widget& a, const Widget& b) {
    static const std::set<const Widget*> panels = {&form1::frame_engine, &form1::Frame_impostazioni,
                                                   &form1::Frame_Lambda, &form1::Frame_diagnosi};
    if (a.name == "led_rpm" && b.name == "led_rpm") return true;
    return panels.contains(&a) && panels.contains(&b);
}

bool overlap(const view::Place& a, const view::Place& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

TEST(WindowTables, ControlsDoNotOverlap) {
    for (const Widget* window : seven_windows())
        for (const Widget* a : window->controls)
            for (const Widget* b : window->controls)
                if (a != b && a->parent == b->parent && !may_share_a_place(*a, *b)) {
                    EXPECT_FALSE(overlap(a->design.place, b->design.place))
                        << full_name(*a) << " and " << full_name(*b) << " of " << window->name;
                }
}

// The height of a window without its title bar of 405 twips; the main window, which also has a menu
// bar, has 8010 twips.
double inner_height(const Widget& window) {
    return window.menus.empty() ? window.design.place.height - 405 : 8010;
}

TEST(WindowTables, ControlsFitIntoTheirFrameOrWindow) {
    for (const Widget* window : seven_windows())
        for (const Widget* w : window->controls) {
            const bool in_window = w->parent == window;
            const view::Place& place = w->design.place;
            const double height =
                in_window ? inner_height(*window) : w->parent->design.place.height;
            const double caption_height = in_window ? 0 : 240;
            EXPECT_GE(place.left, 0) << full_name(*w);
            EXPECT_GE(place.top, caption_height) << full_name(*w);
            EXPECT_LE(place.left + place.width, w->parent->design.place.width) << full_name(*w);
            EXPECT_LE(place.top + place.height, height) << full_name(*w);
            EXPECT_GT(place.width, 0) << full_name(*w);
            EXPECT_GT(place.height, 0) << full_name(*w);
        }
}

// The relative luminance of a colour, from 0 for black to 1 for white (WCAG 2).
double luminance(view::Colour colour) {
    const double weights[] = {0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (const double weight : weights) {
        const double part = (colour & 255) / 255.0;
        sum += weight * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
        colour >>= 8;
    }
    return sum;
}

TEST(WindowTables, TextsHaveContrast) {
    for (const Widget* window : seven_windows())
        for (const Widget* w : window->controls) {
            const view::Look& look = w->design;
            if (look.back == view::system_colour || w == &form1::Text2) continue;
            if (w->kind == Kind::shape || w->kind == Kind::slider) continue;
            const double one = luminance(look.back), other = luminance(look.fore);
            EXPECT_GE((std::max(one, other) + 0.05) / (std::min(one, other) + 0.05), 4.5)
                << full_name(*w) << " of " << window->name;
        }
}

TEST(WindowTables, FieldsThatTurnDarkRedHaveLightText) {
    using namespace form1;
    for (const Widget* w : {&Label1, &Label16, &Label19, &Label20}) {
        EXPECT_EQ(w->design.back, view::dark_red) << w->name;
        EXPECT_GT(luminance(w->design.fore), 0.5) << w->name;
    }
}

std::vector<std::string> hidden(const Widget& window) {
    std::vector<std::string> found;
    for (const auto& list : {window.controls, window.menus})
        for (const Widget* w : list)
            if (!w->design.visible) found.push_back(full_name(*w));
    return found;
}

TEST(WindowTables, OnlyTheEnginePanelIsShownAtFirst) {
    EXPECT_THAT(hidden(form1::Form1),
                UnorderedElementsAreArray(words(
                    "Frame_impostazioni Frame_Lambda Frame_diagnosi Frame2 Label20 lbl_ct Label_ct "
                    "Label_sfondo Command1 Command2 Command_hyperterminal Command_scarico "
                    "lbl_tuning lbl_ore lbl_min com3")));
    for (const Widget* window : seven_windows())
        if (window != &form1::Form1) {
            EXPECT_THAT(hidden(*window), IsEmpty());
        }
}

TEST(WindowTables, MenuGasAndConnectionOkAreDisabledAtFirst) {
    std::vector<std::string> off;
    for (const Widget* window : seven_windows())
        for (const auto& list : {window->controls, window->menus})
            for (const Widget* w : list)
                if (!w->design.enabled) off.push_back(w->name);
    EXPECT_THAT(off, UnorderedElementsAreArray(words("mnu_check_car Command_ok")));
}

std::string slider_text(const Widget& w) {
    const view::Look& l = w.design;
    std::ostringstream out;
    out << w.name << " " << l.min << ".." << l.max << " at " << l.value << " by " << l.small_change
        << "/" << l.large_change << " ticks " << l.tick_every << (l.vertical ? " upright" : "")
        << (w.changes_on_assignment ? " writes" : "");
    return out.str();
}

TEST(WindowTables, SlidersHaveTheirRangesAndSteps) {
    using namespace form1;
    EXPECT_EQ(slider_text(Slider_ktar), "Slider_ktar 1001..1800 at 1200 by 1/100 ticks 50 writes");
    EXPECT_EQ(slider_text(Slider_power),
              "Slider_power 1001..1800 at 1200 by 1/100 ticks 50 writes");
    EXPECT_EQ(slider_text(Slider_attenuazione),
              "Slider_attenuazione 0..150 at 0 by 10/10 ticks 10 upright writes");
    EXPECT_EQ(slider_text(Slider3), "Slider3 0..10 at 0 by 1/1 ticks 1 upright writes");
    EXPECT_EQ(slider_text(form3::Slider2), "Slider2 1..3 at 1 by 1/1 ticks 1 upright writes");
    EXPECT_EQ(slider_text(Slider1[0]), "Slider1 0..100 at 80 by 1/2 ticks 0");
    EXPECT_EQ(slider_text(Slider1[4]), "Slider1 0..100 at 79 by 1/2 ticks 0");
}

std::vector<std::string> timer_texts(std::initializer_list<view::Timer*> timers) {
    std::vector<std::string> lines;
    for (const view::Timer* t : timers)
        lines.push_back(t->name + " " + std::to_string(t->interval_ms()) +
                        (t->is_on() ? " on" : ""));
    return lines;
}

TEST(WindowTables, TimersHaveTheirIntervals) {
    using namespace form1;
    view::VirtualTime time;
    view::use_platform(time);
    for (Widget* window : seven_windows())
        view::load_timers(*window);
    EXPECT_THAT(timer_texts({&Timer_stato_sistema, &Timer_chiusura_stato, &Timer1, &Timer2, &Timer3,
                             &Timer4, &Timer5, &Timer6, &Timer_rpm}),
                ElementsAre("Timer_stato_sistema 50", "Timer_chiusura_stato 200", "Timer1 3000",
                            "Timer2 0", "Timer3 100", "Timer4 2000 on", "Timer5 2000 on",
                            "Timer6 500", "Timer_rpm 300"));
    EXPECT_THAT(timer_texts({&frm_splash::Timer_progress, &form3::Timer2, &acquisizione::Timer_tinj,
                             &acquisizione::Timer_ricerca_max, &acquisizione::Timer1,
                             &acquisizione::Timerx}),
                ElementsAre("Timer_progress 500", "Timer2 0", "Timer_tinj 300",
                            "Timer_ricerca_max 100", "Timer1 100", "Timerx 0"));
    view::reset_timers();
}

} // namespace
} // namespace zol
