// The first read on the activation path: the main window is activated and the unit replies at once.
#include "tests/unit/link/crafted_unit.h"
#include "view/windows/frm_splash.h"

namespace zol::tests {
namespace {

using testing::IsEmpty;

class ActivationPath : public CraftedUnitTest {
  protected:
    ActivationPath() {
        crafted.set_words_of_a_car();
        crafted.set_words({{154, 2700}, {156, 0}});
    }
};

// The waits: 500 ms before the presence test and 700 ms after it, 1600 ms after the request for the
// version and 1600 ms after that for the image, 400 ms after the window is filled, and 50 ms until
// the first tick of the polling timer.
TEST_F(ActivationPath, SendsPresenceVersionImageThenPolls) {
    start_program();
    run_for(5000);
    EXPECT_THAT(timed(), testing::ElementsAre(At(500, Send(6)), At(1200, Send(7)),
                                              At(2800, Send(1)), At(4850, Send(3))));
}

TEST_F(ActivationPath, EngineButtonDuringTheReadMakesTheFillWrite) {
    start_program();
    run_for(3000); // the wait for the image
    ASSERT_TRUE(app::state.ui_loading);
    // The button also starts the polling, which would take replies of the read.
    inside_program([] { form1::Timer_stato_sistema.tick = nullptr; });
    operator_clicks(form1::Command_engine);
    run_for(500);
    EXPECT_FALSE(app::state.ui_loading);
    run_for(20'000);
    EXPECT_THAT(writes(), testing::Contains(Write(3, 1250)));
}

TEST_F(ActivationPath, WaitAfterTheReadEndsWithTheFirstPoll) {
    // The gain slider already has this value, so its handler does not run.
    crafted.set_word(8, 1200);
    start_program();
    run_for(4799);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(1);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    // Alone the wait would end at 5200 ms. The poll at 4850 ms sets the shared timer to 300 ms.
    run_for(5149 - 4800);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
}

TEST_F(ActivationPath, HourglassIsShownFromTheReplyOn) {
    start_program();
    run_for(1199);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    EXPECT_TRUE(app::state.ui_loading); // set when the window is loaded
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    EXPECT_FALSE(view::visible(form1::Frame2));
    EXPECT_TRUE(app::state.ui_loading);
}

TEST_F(ActivationPath, LeavesTheMainWindowReadyForUse) {
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
    EXPECT_FALSE(form1::Timer6.is_on()); // the watchdog belongs to the dialog path
    EXPECT_FALSE(form1::Timer1.is_on());
    EXPECT_EQ(view::text(form1::Label35), "1");
    EXPECT_EQ(app::state.firmware_text, "0.2.71");
}

TEST_F(ActivationPath, WordsOfTheImageAreShownInTheirWidgets) {
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

TEST_F(ActivationPath, PlacesTheTankSliders) {
    read_on_activation();
    // The second slider is one below its threshold, 25.
    const double sliders[] = {3, 24, 50, 75, 75};
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

TEST_F(ActivationPath, ShowsMethaneWithoutPressureSensor) {
    crafted.set_word(16, 0);
    crafted.set_word(32, 2); // every value but 1 means no sensor
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_metano));
    EXPECT_FALSE(view::selected(form1::Option_gpl));
    EXPECT_TRUE(view::selected(form1::Option_press_no));
    EXPECT_FALSE(view::selected(form1::Option_press_yes));
}

TEST_F(ActivationPath, UnknownFuelSelectsNothing) {
    crafted.set_word(16, 7);
    read_on_activation();
    EXPECT_FALSE(view::selected(form1::Option_metano));
    EXPECT_FALSE(view::selected(form1::Option_gpl));
}

TEST_F(ActivationPath, TemperatureCorrectionAbove10IsWrittenBackAs10) {
    crafted.set_word(36, 15);
    read_on_activation();
    EXPECT_EQ(view::value(form1::Slider3), 10);
    EXPECT_EQ(frames().back(), Write(52, 10));
    run_for(100);
    EXPECT_EQ(writes().size(), 1U);
    // The write delays the first poll by 200 ms.
    EXPECT_EQ(timed().back(), At(5050, Send(3)));
}

TEST_F(ActivationPath, GainsOutOfRangeLeaveTheSlidersUnchanged) {
    crafted.set_word(8, 900);
    crafted.set_word(10, 1900);
    read_on_activation();
    EXPECT_EQ(view::value(form1::Slider_ktar), form1::Slider_ktar.design.value);
    EXPECT_EQ(view::value(form1::Slider_power), form1::Slider_power.design.value);
    EXPECT_EQ(form1::Slider_ktar.look.selection_length, 0);
    EXPECT_EQ(link::mirrors.ktar_low, 900);
    EXPECT_EQ(link::mirrors.ktar_high, 1900);
}

TEST_F(ActivationPath, FillingTheWindowWritesNothing) {
    crafted.version = 7;
    read_on_activation();
    for (const int family : {0, 1, 2, 3, 4}) {
        SCOPED_TRACE(family);
        crafted.family = family;
        read_again();
        EXPECT_EQ(app::state.ecu_family, family);
        EXPECT_THAT(writes(), IsEmpty());
    }
}

TEST_F(ActivationPath, FillsTheLambdaPanelFromTheLongLayout) {
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

TEST_F(ActivationPath, LambdaWordsOfZeroSelectTheOtherOptions) {
    crafted.family = 4;
    crafted.set_words({{124, 0}, {140, 0}, {148, 0}, {150, 0}});
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_disa_controllo_lambda));
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_TRUE(view::selected(form1::Option_tens));
    EXPECT_TRUE(view::checked(form1::mnu_debug_no));
    EXPECT_FALSE(view::checked(form1::mnu_debug_yes));
}

TEST_F(ActivationPath, Family1AlwaysSelectsTheVoltageInput) {
    crafted.family = 1;
    crafted.set_words({{96, 1}, {106, 300}, {110, 400}, {112, 0}});
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_tens));
    EXPECT_FALSE(view::selected(form1::Option_corr));
    EXPECT_EQ(link::mirrors.lambda_input_kind, 0);
    EXPECT_TRUE(view::selected(form1::Option_abi_controllo_lambda));
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "300");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "400");
}

TEST_F(ActivationPath, Family3ShowsLambdaWordsOfTheLongLayout) {
    crafted.family = 3;
    crafted.set_words({{106, 300}, {110, 400}});
    read_on_activation();
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "700");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "800");
    // The short layout selects voltage first; the word of the long layout then selects current.
    EXPECT_TRUE(view::selected(form1::Option_corr));
    // This path does not read the diagnosis words of family 3.
    EXPECT_FALSE(view::checked(form1::mnu_direction_inverse_eobd));
    EXPECT_FALSE(view::checked(form1::mnu_iso9141));
}

// The words of the short layout are read first; this image lacks those of the long layout.
TEST_F(ActivationPath, Family3KeepsShortLayoutWordsIfImageEnds) {
    crafted.family = 3;
    crafted.set_words({{96, 1}, {106, 300}, {110, 400}, {112, 0}});
    crafted.image.resize(113);
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Option_abi_controllo_lambda));
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "300");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "400");
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_TRUE(view::selected(form1::Option_tens));
}

TEST_F(ActivationPath, Family4AfterFamily1ShowsDiagnosisAgain) {
    crafted.family = 1;
    read_on_activation();
    ASSERT_FALSE(view::visible(form1::Command_diagnosi));
    ASSERT_FALSE(view::enabled(form1::mnu_eobd));
    crafted.family = 4;
    inside_program([] {
        view::set_visible(form1::Command_lambda, false);
        view::set_text(form1::Label35, "7");
    });
    read_again();
    EXPECT_TRUE(view::visible(form1::Command_diagnosi));
    EXPECT_TRUE(view::enabled(form1::mnu_eobd));
    EXPECT_TRUE(view::visible(form1::Command_lambda));
    EXPECT_EQ(view::text(form1::Label35), "1");
}

} // namespace
} // namespace zol::tests
