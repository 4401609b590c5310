// The first read by the direct road: the main window is activated and the unit answers at once.
#include "tests/unit/link/crafted_unit.h"
#include "view/timers.h"
#include "view/windows/frm_splash.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ActivationRoad : public CraftedBench {
  protected:
    ActivationRoad() {
        // A unit whose values the widgets can show, and a correction that its slider has already.
        const std::pair<int, int> words[] = {
            {8, 1250}, {10, 1050}, {16, 1},  {18, 35},    {20, 3900}, {22, 4200}, {24, 3},
            {26, 25},  {28, 50},   {30, 75}, {32, 1},     {36, 0},    {42, 12},   {48, 1200},
            {56, 20},  {78, 3},    {84, 1},  {86, 4},     {124, 1},   {134, 700}, {138, 800},
            {140, 1},  {148, 1},   {150, 1}, {154, 2700}, {156, 0}};
        for (const auto& [position, value] : words)
            crafted.set_word(position, value);
    }
    std::vector<std::int64_t> times_of(int command) const {
        std::vector<std::int64_t> times;
        for (const auto& sent : port->sent)
            if (sent.frame.command == command) times.push_back(sent.at_ms);
        return times;
    }
};

TEST_F(ActivationRoad, AsksForPresenceVersionAndImageInItsOwnRhythmAndThenPolls) {
    start_program();
    run_for(5000);
    // 500 before and 700 behind the presence test, 1600 behind each request, 400 behind the
    // filling, 50 to the first tick.
    const std::pair<int, std::int64_t> expected[] = {{6, 500}, {7, 1200}, {1, 2800}, {3, 4850}};
    ASSERT_EQ(port->sent.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(port->sent[i].frame, Send(expected[i].first));
        EXPECT_EQ(port->sent[i].at_ms, expected[i].second);
    }
}

TEST_F(ActivationRoad, TheEngineButtonInTheMiddleOfItLetsTheFillWriteWhatItPlaces) {
    start_program();
    run_for(3000); // the wait for the image
    ASSERT_TRUE(app::state.ui_loading);
    inside_program([] { form1::Timer_stato_sistema.tick = nullptr; });
    operator_clicks(form1::Command_engine);
    run_for(500);
    EXPECT_FALSE(app::state.ui_loading);
    run_for(20'000);
    EXPECT_THAT(writes(), testing::Contains(Write(3, 1250)));
}

TEST_F(ActivationRoad, TheWaitBehindTheReadEndsWithTheFirstPollThatRunsInsideIt) {
    crafted.set_word(8, 1200); // the gain slider moves nothing, and gives no pointer back
    start_program();
    run_for(4799);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(1);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    // Alone it would be over at 5200. The poll of 4850 sets the common timer anew.
    run_for(5149 - 4800);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
}

TEST_F(ActivationRoad, TheOperatorSeesTheWaitPointerFromTheAnswerOn) {
    start_program();
    run_for(1199);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    EXPECT_TRUE(app::state.ui_loading); // since the window's load
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    EXPECT_FALSE(view::visible(form1::Frame2));
    EXPECT_TRUE(app::state.ui_loading);
}

TEST_F(ActivationRoad, TheWindowIsMaximisedTheSplashGoneAndEverythingEnabled) {
    read_on_activation();
    run_for(1000);
    EXPECT_FALSE(frm_splash::frmSplash.loaded);
    EXPECT_FALSE(frm_splash::Timer_progress.is_on());
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::maximised);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_FALSE(app::state.no_reread);
    EXPECT_FALSE(app::state.connect_dialog_open);
    EXPECT_TRUE(form1::Timer_rpm.is_on());
    EXPECT_FALSE(form1::Timer6.is_on()); // the watchdog belongs to the other road
    EXPECT_FALSE(form1::Timer1.is_on());
    EXPECT_EQ(view::text(form1::Label35), "1");
    EXPECT_EQ(app::state.firmware_text, "0.2.71");
}

TEST_F(ActivationRoad, TheBaseWordsReachTheirWidgets) {
    read_on_activation();
    EXPECT_EQ(view::value(form1::Slider_ktar), 1250);
    EXPECT_EQ(form1::Slider_ktar.look.selection_length, 249);
    EXPECT_EQ(view::value(form1::Slider_power), 1050);
    EXPECT_EQ(form1::Slider_power.look.selection_length, 49);
    EXPECT_TRUE(view::selected(form1::Option_gpl));
    EXPECT_FALSE(view::selected(form1::Option_metano));
    EXPECT_EQ(view::text(form1::text_temp_comm), "35");
    EXPECT_EQ(view::text(form1::Text_min_tank), "3900");
    EXPECT_EQ(view::text(form1::lbl_205), "3900");
    EXPECT_EQ(view::text(form1::Text_max_tank), "4200");
    EXPECT_EQ(view::text(form1::lbl_200), "4200");
    EXPECT_TRUE(view::selected(form1::Option_press_yes));
    EXPECT_EQ(view::text(form1::Label_attenuazione), "- 12");
    EXPECT_EQ(view::value(form1::Slider_attenuazione), 12);
    EXPECT_EQ(view::text(form1::Text_time_comm), "20");
    EXPECT_EQ(app::state.tank_type, 3);
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, 3);
    EXPECT_FALSE(view::selected(form1::Check1));
}

TEST_F(ActivationRoad, TheTankSlidersStandWhereThisRoadPutsThem) {
    read_on_activation();
    const double sliders[] = {3, 24, 50, 75, 75}; // the second is one below
    for (int row = 0; row < 5; ++row)
        EXPECT_EQ(view::value(form1::Slider1[row]), sliders[row]) << row;
    EXPECT_EQ(view::text(form1::Label8), "4%");
    EXPECT_EQ(view::text(form1::Label_led0), "3%");
    EXPECT_EQ(view::text(form1::Label9), "25%");
    EXPECT_EQ(view::text(form1::Label_led1), "24%");
    EXPECT_EQ(view::text(form1::Label10), "50%");
    EXPECT_EQ(view::text(form1::Label_led2), "49%");
    EXPECT_EQ(view::text(form1::Label11), "75%");
    EXPECT_EQ(view::text(form1::Label_led3), "74%");
}

TEST_F(ActivationRoad, MethaneAndNoPressureSensorShowAsSuch) {
    crafted.set_word(16, 0);
    crafted.set_word(32, 2); // anything but 1
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_metano));
    EXPECT_FALSE(view::selected(form1::Option_gpl));
    EXPECT_TRUE(view::selected(form1::Option_press_no));
    EXPECT_FALSE(view::selected(form1::Option_press_yes));
}

TEST_F(ActivationRoad, AFuelThatIsNeitherSelectsNothing) {
    crafted.set_word(16, 7);
    read_on_activation();
    EXPECT_FALSE(view::selected(form1::Option_metano));
    EXPECT_FALSE(view::selected(form1::Option_gpl));
}

TEST_F(ActivationRoad, ATemperatureCorrectionAbove10ShowsAs10AndIsWrittenBack) {
    crafted.set_word(36, 15);
    read_on_activation();
    EXPECT_EQ(view::value(form1::Slider3), 10);
    EXPECT_THAT(writes(), ElementsAre(Write(52, 10)));
    EXPECT_EQ(times_of(3), std::vector<std::int64_t>{});
    run_for(100);
    EXPECT_EQ(times_of(3), std::vector<std::int64_t>{5050}); // 200 behind the write
}

TEST_F(ActivationRoad, GainsOutsideTheSlidersLeaveThemAlone) {
    crafted.set_word(8, 900);
    crafted.set_word(10, 1900);
    read_on_activation();
    EXPECT_EQ(view::value(form1::Slider_ktar), form1::Slider_ktar.design.value);
    EXPECT_EQ(view::value(form1::Slider_power), form1::Slider_power.design.value);
    EXPECT_EQ(form1::Slider_ktar.look.selection_length, 0);
    EXPECT_EQ(link::mirrors.ktar_low, 900);
    EXPECT_EQ(link::mirrors.ktar_high, 1900);
}

TEST_F(ActivationRoad, NothingIsWrittenToTheUnitWhileTheWindowIsFilled) {
    for (const int family : {0, 1, 2, 3, 4}) {
        SCOPED_TRACE(family);
        crafted.family = family;
        crafted.version = 7;
        if (family == 0) read_on_activation();
        inside_program([] {
            view::hide(form1::Form1);
            view::show(form1::Form1);
        }); // anew
        run_for(6000);
        EXPECT_EQ(app::state.ecu_family, family);
        EXPECT_THAT(writes(), IsEmpty());
    }
}

TEST_F(ActivationRoad, TheLambdaPanelIsFilledFromTheLongLayout) {
    crafted.family = 4;
    crafted.version = 6;
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_abi_controllo_lambda));
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "700");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "800");
    EXPECT_TRUE(view::selected(form1::lambda_dir));
    EXPECT_TRUE(view::selected(form1::Option_corr));
    EXPECT_TRUE(view::checked(form1::mnu_debug_yes));
    EXPECT_FALSE(view::checked(form1::mnu_debug_no));
    EXPECT_TRUE(view::visible(form1::Frame_L_C_T));
    EXPECT_TRUE(view::checked(form1::mnu_direction_inverse_eobd));
    EXPECT_TRUE(view::checked(form1::mnu_iso9141));
    EXPECT_TRUE(view::checked(form1::mnu_mivra));
    EXPECT_TRUE(view::visible(form1::Frame2));
    EXPECT_TRUE(view::selected(form1::Opt_modulare_no));
}

TEST_F(ActivationRoad, LambdaControlOffAndInvertedShowTheOtherOptions) {
    crafted.family = 4;
    for (const int position : {124, 140, 148, 150})
        crafted.set_word(position, 0);
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_disa_controllo_lambda));
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_TRUE(view::selected(form1::Option_tens));
    EXPECT_TRUE(view::checked(form1::mnu_debug_no));
    EXPECT_FALSE(view::checked(form1::mnu_debug_yes));
}

TEST_F(ActivationRoad, Family1TakesVoltageWhateverStandsInTheImage) {
    crafted.family = 1;
    crafted.set_word(96, 1);
    crafted.set_word(106, 300);
    crafted.set_word(110, 400);
    crafted.set_word(112, 0);
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_tens));
    EXPECT_FALSE(view::selected(form1::Option_corr));
    EXPECT_EQ(link::mirrors.lambda_input_kind, 0);
    EXPECT_TRUE(view::selected(form1::Option_abi_controllo_lambda));
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "300");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "400");
}

TEST_F(ActivationRoad, InFamily3TheLaterWordsWin) {
    crafted.family = 3;
    crafted.set_word(106, 300);
    crafted.set_word(110, 400);
    read_on_activation();
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "700");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "800");
    EXPECT_TRUE(view::selected(form1::Option_corr)); // voltage first, then the long layout's word
    // The diagnosis words are not read for it on this road.
    EXPECT_FALSE(view::checked(form1::mnu_direction_inverse_eobd));
    EXPECT_FALSE(view::checked(form1::mnu_iso9141));
}

// An image that ends before the long layout's words shows that the short one's were taken first.
TEST_F(ActivationRoad, InFamily3TheShortLayoutsWordsStayWhereTheLaterOnesAreMissing) {
    crafted.family = 3;
    crafted.set_word(96, 1);
    crafted.set_word(106, 300);
    crafted.set_word(110, 400);
    crafted.set_word(112, 0);
    crafted.image.resize(113);
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_abi_controllo_lambda));
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "300");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "400");
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_TRUE(view::selected(form1::Option_tens));
}

TEST_F(ActivationRoad, BehindAUnitWithoutDiagnosisOneOfFamily4BringsItBack) {
    crafted.family = 1;
    read_on_activation();
    ASSERT_FALSE(view::visible(form1::Command_diagnosi));
    ASSERT_FALSE(view::enabled(form1::mnu_eobd));
    crafted.family = 4;
    inside_program([] {
        view::set_visible(form1::Command_lambda, false);
        view::set_text(form1::Label35, "7");
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    run_for(8000);
    EXPECT_TRUE(view::visible(form1::Command_diagnosi));
    EXPECT_TRUE(view::enabled(form1::mnu_eobd));
    EXPECT_TRUE(view::visible(form1::Command_lambda));
    EXPECT_EQ(view::text(form1::Label35), "1");
}

struct Features {
    int family;
    bool eobd_menu, lambda_button, diagnosis_button, current_option, tens_corr_frame;
};

class FeaturesOnActivation : public CraftedBench, public testing::WithParamInterface<Features> {};

TEST_P(FeaturesOnActivation, ShowWhatTheFamilyHas) {
    crafted.family = GetParam().family;
    read_on_activation();
    EXPECT_EQ(view::enabled(form1::mnu_eobd), GetParam().eobd_menu);
    EXPECT_EQ(view::visible(form1::Command_lambda), GetParam().lambda_button);
    EXPECT_EQ(view::visible(form1::Command_diagnosi), GetParam().diagnosis_button);
    EXPECT_EQ(view::visible(form1::Option_corr), GetParam().current_option);
    EXPECT_EQ(view::visible(form1::Frame_L_C_T), GetParam().tens_corr_frame);
}

// Families 2 and 3 keep what the window was designed with.
INSTANTIATE_TEST_SUITE_P(Families, FeaturesOnActivation,
                         testing::Values(Features{0, true, true, true, true, false},
                                         Features{1, false, true, false, false, true},
                                         Features{2, true, true, true, true, true},
                                         Features{3, true, true, true, true, true},
                                         Features{4, true, true, true, true, true}));

} // namespace
} // namespace zol::tests
