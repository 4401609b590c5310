// The first read on the dialog path: from the click on OK until the main window is filled, three
// seconds after the dialog has closed.
#include "link/first_read.h"
#include "tests/unit/link/crafted_unit.h"
#include "view/windows/frm_splash.h"

namespace zol::tests {
namespace {

using namespace centralina_attiva;
using testing::ElementsAre;
using testing::IsEmpty;

class DialogPath : public CraftedUnitTest {
  protected:
    DialogPath() {
        crafted.set_words_of_a_car();
        crafted.set_words({{154, 2300}, {156, 1}});
    }
    // Passes the port test and clicks OK, from where `timed` counts.
    void click_ok() {
        open_the_dialog();
        pass_the_port_test();
        mark();
        operator_clicks(Command_ok);
    }
    // Up to the end of the dialog.
    void read() {
        click_ok();
        run_for(4200);
    }
};

TEST_F(DialogPath, SendsVersionThenImageThenPolls) {
    click_ok();
    run_for(4800);
    // 1600 ms after the version request, 1800 after the image request and 800 to the end; then the
    // watchdog's 500 and 50 to the first poll.
    EXPECT_THAT(timed(), ElementsAre(At(0, Send(7)), At(1600, Send(1)), At(4750, Send(3))));
}

TEST_F(DialogPath, DialogIsBusyUntilItCloses) {
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

TEST_F(DialogPath, FillsTheMainWindowThreeSecondsLater) {
    click_ok();
    run_for(4200 + 2999);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_EQ(view::value(form1::Slider_ktar), form1::Slider_ktar.design.value);
    inside_program([] { view::set_window_state(form1::Form1, view::WindowState::normal); });
    run_for(1);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::maximised);
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_FALSE(form1::Timer1.is_on());
    EXPECT_EQ(view::value(form1::Slider_ktar), 1250);
    EXPECT_EQ(view::value(form1::Slider_power), 1050);
    EXPECT_EQ(view::text(form1::Label_attenuazione),
              "12");                               // without the sign that activation shows
    EXPECT_EQ(view::value(form1::Slider1[1]), 25); // not one below its threshold
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(DialogPath, BringsBackWhatAnEarlierUnitHid) {
    open_the_dialog();
    pass_the_port_test();
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

TEST_F(DialogPath, LeavesTheFieldsOfTheMainWindowAlone) {
    crafted.family = 4;
    crafted.version = 6;
    using namespace form1;
    const view::Widget* const left_alone[] = {&Slider_ktar,
                                              &Slider_power,
                                              &Slider_attenuazione,
                                              &Slider3,
                                              &Slider1[0],
                                              &Slider1[1],
                                              &Slider1[2],
                                              &Slider1[3],
                                              &Slider1[4],
                                              &Option_gpl,
                                              &Option_metano,
                                              &Option_press_yes,
                                              &Option_press_no,
                                              &text_temp_comm,
                                              &Text_time_comm,
                                              &Text_min_tank,
                                              &Text_max_tank,
                                              &lbl_200,
                                              &lbl_205,
                                              &Label8,
                                              &Label9,
                                              &Label10,
                                              &Label11,
                                              &Label_led0,
                                              &Label_led1,
                                              &Label_led2,
                                              &Label_led3,
                                              &Label_attenuazione,
                                              &Text_lambda_open_loop,
                                              &Text_lambda_closed_loop,
                                              &Label35,
                                              &Option_abi_controllo_lambda,
                                              &lambda_dir,
                                              &lambda_inv,
                                              &Option_disa_controllo_lambda};
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

TEST_F(DialogPath, FillsTheControlsOfThisPath) {
    crafted.family = 4;
    crafted.version = 6;
    read();
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

TEST_F(DialogPath, Family1ReadsItsKindOfLambdaInput) {
    crafted.family = 1;
    crafted.set_word(150, 0);
    read();
    EXPECT_TRUE(view::selected(form1::Option_tens));
    EXPECT_EQ(link::mirrors.lambda_input_kind, 0);
}

TEST_F(DialogPath, RepeatsTheVersionRequestWithoutLimit) {
    int asked = 0;
    crafted.reply_to_command(7, [&asked]() -> std::optional<Bytes> {
        if (++asked > 50) return std::nullopt;
        return of_length(frame_bytes(1), 12);
    });
    click_ok();
    run_for(50 * 1600 + 1);
    EXPECT_EQ(frames().size(), 51U);
    for (std::size_t i = 0; i < 51; ++i)
        EXPECT_EQ(timed()[i], At(static_cast<std::int64_t>(i) * 1600, Send(7)));
    run_for(1600);
    EXPECT_EQ(frames().back(), Send(1));
}

TEST_F(DialogPath, KeepsTheOldValuesAfterThreeLostImages) {
    crafted.reply_to_command(1, [] { return frame_bytes(9, {1, 1}); });
    link::mirrors.ktar_low = 1111;
    click_ok();
    run_for(1600 + 3 * 1800 + 800);
    EXPECT_THAT(timed(), ElementsAre(At(0, Send(7)), At(1600, Send(1)), At(3400, Send(1)),
                                     At(5200, Send(1))));
    EXPECT_FALSE(Centralina_Attiva.loaded);
    EXPECT_EQ(link::mirrors.ktar_low, 1111);
    EXPECT_THAT(screen.message_boxes, IsEmpty());
    EXPECT_TRUE(form1::Timer6.is_on());
}

TEST_F(DialogPath, TakesTheThirdImage) {
    int asked = 0;
    crafted.reply_to_command(1, [&asked]() -> std::optional<Bytes> {
        if (++asked < 3) return Bytes{};
        return std::nullopt;
    });
    click_ok();
    run_for(1600 + 3 * 1800 + 800);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(link::mirrors.ktar_low, 1250);
    EXPECT_FALSE(Centralina_Attiva.loaded);
}

TEST_F(DialogPath, OpenSettingsPanelKeepsTheWatchdogOff) {
    crafted.present = false;
    start_program();
    run_for(1000);
    operator_clicks(form1::Command_impostazioni);
    run_for(200); // up to the dialog
    crafted.present = true;
    pass_the_port_test();
    operator_clicks(Command_ok);
    run_for(4200);
    EXPECT_FALSE(Centralina_Attiva.loaded);
    EXPECT_FALSE(form1::Timer6.is_on());
}

TEST_F(DialogPath, TemperatureCorrectionOf15Shows15) {
    crafted.set_word(36, 15);
    read();
    run_for(3000);
    EXPECT_EQ(view::value(form1::Slider3), 15);
}

TEST_F(DialogPath, TemperatureCorrectionAbove20Shows10) {
    crafted.set_word(36, 21);
    read();
    run_for(3000);
    EXPECT_EQ(view::value(form1::Slider3), 10);
}

TEST_F(DialogPath, LaterActivationReadsNothing) {
    click_ok();
    run_for(9000);
    forget_wire();
    read_again();
    EXPECT_THAT(frames(), testing::Each(Send(3)));
    EXPECT_TRUE(form1::Timer6.is_on());
}

TEST_F(DialogPath, PollingUnloadsTheDialog) {
    click_ok();
    run_for(9000);
    inside_program([] { view::show(Centralina_Attiva); });
    run_for(1000);
    EXPECT_FALSE(Centralina_Attiva.loaded); // each poll unloads it
}

} // namespace
} // namespace zol::tests
