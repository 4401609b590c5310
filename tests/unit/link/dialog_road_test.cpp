// The first read by way of the connection dialog, from its OK to the window that is filled three
// seconds later.
#include "link/first_read.h"
#include "tests/unit/link/crafted_unit.h"
#include "view/timers.h"
#include "view/windows/frm_splash.h"

namespace zol::tests {
namespace {

using namespace centralina_attiva;
using testing::ElementsAre;
using testing::IsEmpty;

class DialogRoad : public CraftedBench {
  protected:
    DialogRoad() {
        const std::pair<int, int> words[] = {
            {8, 1250}, {10, 1050}, {16, 1},  {18, 35},    {20, 3900}, {22, 4200}, {24, 3},
            {26, 25},  {28, 50},   {30, 75}, {32, 1},     {36, 0},    {42, 12},   {48, 1200},
            {56, 20},  {78, 3},    {84, 1},  {86, 4},     {124, 1},   {134, 700}, {138, 800},
            {140, 1},  {148, 1},   {150, 1}, {154, 2300}, {156, 1}};
        for (const auto& [position, value] : words)
            crafted.set_word(position, value);
    }
    // Up to the good test; the wire's notes begin anew at OK, which is clicked now.
    void click_ok() {
        open_the_dialog();
        operator_clicks(Command_test);
        run_for(1600);
        forget_wire();
        ok_ms = now_ms();
        operator_clicks(Command_ok);
    }
    std::vector<std::pair<int, std::int64_t>> wire() const {
        std::vector<std::pair<int, std::int64_t>> all;
        for (const auto& sent : port->sent)
            all.emplace_back(sent.frame.command, sent.at_ms - ok_ms);
        return all;
    }
    std::int64_t ok_ms = 0;
};

using Wire = std::vector<std::pair<int, std::int64_t>>;

TEST_F(DialogRoad, AsksForVersionAndImageAndTheWatchdogStartsThePollingHalfASecondAfterIt) {
    click_ok();
    run_for(4800);
    // 1600 behind the version, 1800 behind the image, 800 to the end; 500 and 50 to the first poll.
    EXPECT_EQ(wire(), (Wire{{7, 0}, {1, 1600}, {3, 4750}}));
}

TEST_F(DialogRoad, TheDialogShowsThatItWorksAndThenGoes) {
    click_ok();
    EXPECT_FALSE(view::enabled(Command_ok));
    EXPECT_EQ(Command_ok.look.pointer, view::Pointer::hourglass);
    EXPECT_EQ(Centralina_Attiva.look.pointer, view::Pointer::hourglass);
    EXPECT_FALSE(view::visible(form1::Frame2));
    run_for(4199);
    EXPECT_TRUE(Centralina_Attiva.loaded);
    EXPECT_TRUE(app::state.connect_dialog_open);
    run_for(1);
    EXPECT_FALSE(Centralina_Attiva.loaded);
    EXPECT_FALSE(app::state.connect_dialog_open);
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_TRUE(form1::Timer6.is_on());
    EXPECT_TRUE(form1::Timer1.is_on());
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::maximised);
    EXPECT_FALSE(view::enabled(form1::Form1)); // until the window is filled
}

TEST_F(DialogRoad, TheMainWindowIsFilledAndHandedOverThreeSecondsAfterTheDialog) {
    click_ok();
    run_for(4200 + 2999);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_EQ(view::value(form1::Slider_ktar), form1::Slider_ktar.design.value);
    inside_program([] { view::set_window_state(form1::Form1, view::WindowState::normal); });
    run_for(1);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::maximised); // whatever came meanwhile
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_FALSE(form1::Timer1.is_on());
    EXPECT_EQ(view::value(form1::Slider_ktar), 1250);
    EXPECT_EQ(view::value(form1::Slider_power), 1050);
    EXPECT_EQ(view::text(form1::Label_attenuazione), "12"); // without the sign of activation
    EXPECT_EQ(view::value(form1::Slider1[1]), 25);          // not one below, as at activation
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(DialogRoad, WhatAnEarlierUnitHidIsBroughtBack) {
    open_the_dialog();
    operator_clicks(Command_test);
    run_for(1600);
    for (const int family : {0, 4}) {
        crafted.family = family;
        inside_program([] {
            view::set_visible(form1::Command_diagnosi, false);
            view::set_visible(form1::Frame_L_C_T, false);
            link::read_for_dialog();
        });
        run_for(4000);
        EXPECT_EQ(view::visible(form1::Command_diagnosi), family == 0);
        EXPECT_EQ(view::visible(form1::Frame_L_C_T), family == 4);
    }
}

TEST_F(DialogRoad, TheReadItselfLeavesTheMainWindowsFieldsAlone) {
    crafted.family = 4;
    crafted.version = 6;
    const view::Widget* const left_alone[] = {&form1::Slider_ktar,
                                              &form1::Slider_power,
                                              &form1::Slider_attenuazione,
                                              &form1::Slider3,
                                              &form1::Slider1[0],
                                              &form1::Slider1[1],
                                              &form1::Slider1[2],
                                              &form1::Slider1[3],
                                              &form1::Slider1[4],
                                              &form1::Option_gpl,
                                              &form1::Option_metano,
                                              &form1::Option_press_yes,
                                              &form1::Option_press_no,
                                              &form1::text_temp_comm,
                                              &form1::Text_time_comm,
                                              &form1::Text_min_tank,
                                              &form1::Text_max_tank,
                                              &form1::lbl_200,
                                              &form1::lbl_205,
                                              &form1::Label8,
                                              &form1::Label9,
                                              &form1::Label10,
                                              &form1::Label11,
                                              &form1::Label_led0,
                                              &form1::Label_led1,
                                              &form1::Label_led2,
                                              &form1::Label_led3,
                                              &form1::Label_attenuazione,
                                              &form1::Text_lambda_open_loop,
                                              &form1::Text_lambda_closed_loop,
                                              &form1::Label35,
                                              &form1::Option_abi_controllo_lambda,
                                              &form1::lambda_dir,
                                              &form1::lambda_inv,
                                              &form1::Option_disa_controllo_lambda};
    click_ok();
    std::vector<std::pair<std::string, double>> before;
    for (const view::Widget* widget : left_alone)
        before.emplace_back(view::text(*widget), view::value(*widget));
    run_for(4200);
    EXPECT_EQ(link::mirrors.lambda_open_loop_max, 700); // it was read
    for (std::size_t i = 0; i < std::size(left_alone); ++i) {
        EXPECT_EQ(view::text(*left_alone[i]), before[i].first) << full_name(*left_alone[i]);
        EXPECT_EQ(view::value(*left_alone[i]), before[i].second) << full_name(*left_alone[i]);
    }
}

TEST_F(DialogRoad, TheReadFillsWhatBelongsToIt) {
    crafted.family = 4;
    crafted.version = 6;
    click_ok();
    run_for(4200);
    EXPECT_EQ(app::state.tank_type, 3);
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, 3);
    EXPECT_TRUE(view::selected(form1::Option_corr));
    EXPECT_TRUE(view::checked(form1::mnu_debug_yes));
    EXPECT_TRUE(view::checked(form1::mnu_direction_inverse_eobd));
    EXPECT_TRUE(view::checked(form1::mnu_iso9141));
    EXPECT_TRUE(view::checked(form1::mnu_mivra));
    EXPECT_TRUE(view::visible(form1::Frame2));
    EXPECT_TRUE(view::selected(form1::Opt_modulare_yes));
    EXPECT_TRUE(view::visible(form1::Frame_L_C_T));
    EXPECT_TRUE(view::visible(form1::lbl_ore));
    EXPECT_EQ(app::state.firmware_text, "4.6.71");
}

TEST_F(DialogRoad, Family1ReadsItsKindOfLambdaInput) {
    crafted.family = 1;
    crafted.set_word(150, 0);
    click_ok();
    run_for(4200);
    EXPECT_TRUE(view::selected(form1::Option_tens));
    EXPECT_EQ(link::mirrors.lambda_input_kind, 0);
}

TEST_F(DialogRoad, AWrongVersionIsAskedForAgainWithoutLimit) {
    int asked = 0;
    crafted.instead = [&asked](int command) -> std::optional<Bytes> {
        if (command != 7) return std::nullopt;
        ++asked;
        if (asked <= 50) return Bytes{80, 67, 0, 12, 1, 0, 0, 0, 0, 0, 0, 0};
        return std::nullopt;
    };
    click_ok();
    run_for(50 * 1600 + 1);
    EXPECT_EQ(frames().size(), 51U);
    for (std::size_t i = 0; i < 51; ++i)
        EXPECT_EQ(wire()[i], (std::pair{7, static_cast<std::int64_t>(i) * 1600}));
    run_for(1600);
    EXPECT_EQ(frames().back(), Send(1));
}

TEST_F(DialogRoad, AnImageIsAskedForThreeTimesAndThenTheOldValuesStayWithoutAWord) {
    crafted.instead = [](int command) -> std::optional<Bytes> {
        if (command == 1) return Bytes{80, 67, 0, 5, 9, 1, 1};
        return std::nullopt;
    };
    link::mirrors.ktar_low = 1111;
    click_ok();
    run_for(1600 + 3 * 1800 + 800);
    EXPECT_EQ(wire(), (Wire{{7, 0}, {1, 1600}, {1, 3400}, {1, 5200}}));
    EXPECT_FALSE(Centralina_Attiva.loaded);
    EXPECT_EQ(link::mirrors.ktar_low, 1111);
    EXPECT_THAT(screen.message_boxes, IsEmpty());
    EXPECT_TRUE(form1::Timer6.is_on());
}

TEST_F(DialogRoad, TheSecondOrThirdImageIsAsGoodAsTheFirst) {
    int asked = 0;
    crafted.instead = [&asked](int command) -> std::optional<Bytes> {
        if (command == 1 && ++asked < 3) return Bytes{};
        return std::nullopt;
    };
    click_ok();
    run_for(1600 + 3 * 1800 + 800);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(link::mirrors.ktar_low, 1250);
    EXPECT_FALSE(Centralina_Attiva.loaded);
}

TEST_F(DialogRoad, WithTheSettingsPanelOpenTheWatchdogIsNotStarted) {
    click_ok();
    app::state.settings_panel_open = true;
    run_for(4200);
    EXPECT_FALSE(Centralina_Attiva.loaded);
    EXPECT_FALSE(form1::Timer6.is_on());
}

TEST_F(DialogRoad, ATemperatureCorrectionOf15Shows15) {
    crafted.set_word(36, 15);
    click_ok();
    run_for(4200 + 3000);
    EXPECT_EQ(view::value(form1::Slider3), 15);
}

TEST_F(DialogRoad, ATemperatureCorrectionAbove20Shows10) {
    crafted.set_word(36, 21);
    click_ok();
    run_for(4200 + 3000);
    EXPECT_EQ(view::value(form1::Slider3), 10);
}

TEST_F(DialogRoad, AfterItTheMainWindowIsNotReadAgain) {
    click_ok();
    run_for(9000);
    forget_wire();
    inside_program([] {
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    run_for(5000);
    EXPECT_THAT(frames(), testing::Each(Send(3)));
    EXPECT_TRUE(form1::Timer6.is_on());
}

TEST_F(DialogRoad, TheDialogStaysAwayOnceThePollingRuns) {
    click_ok();
    run_for(9000);
    inside_program([] { view::show(Centralina_Attiva); });
    run_for(1000);
    EXPECT_FALSE(Centralina_Attiva.loaded); // each poll unloads it
}

struct Features {
    int family;
    bool eobd_menu, lambda_button, diagnosis_button, current_option, tens_corr_frame;
};

class FeaturesByTheDialog : public CraftedBench, public testing::WithParamInterface<Features> {};

TEST_P(FeaturesByTheDialog, ShowWhatTheFamilyHas) {
    crafted.family = GetParam().family;
    read_by_dialog();
    EXPECT_EQ(view::enabled(form1::mnu_eobd), GetParam().eobd_menu);
    EXPECT_EQ(view::visible(form1::Command_lambda), GetParam().lambda_button);
    EXPECT_EQ(view::visible(form1::Command_diagnosi), GetParam().diagnosis_button);
    EXPECT_EQ(view::visible(form1::Option_corr), GetParam().current_option);
    EXPECT_EQ(view::visible(form1::Frame_L_C_T), GetParam().tens_corr_frame);
}

// Family 0 loses its lambda button on this road, and family 4 is none of its cases.
INSTANTIATE_TEST_SUITE_P(Families, FeaturesByTheDialog,
                         testing::Values(Features{0, true, false, true, true, true},
                                         Features{1, false, true, false, false, true},
                                         Features{2, true, true, true, true, true},
                                         Features{3, true, true, true, true, true},
                                         Features{4, true, true, true, true, true}));

} // namespace
} // namespace zol::tests
