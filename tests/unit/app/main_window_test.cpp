// The main window: its panels and service controls, the windows that it opens, and the marking of
// fields.
#include "app/app_state.h"
#include "app/field_marking.h"
#include "app/panel_buttons.h"
#include "app/port_menu.h"
#include "app/program/main_window.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "monitor/polling.h"
#include "tests/support/replies.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using app::state;
using link::mirrors;
using testing::ElementsAre;

class MainWindow : public ReplyTest {
  protected:
    void SetUp() override { start_scripted(); }
    static std::vector<std::string> shown_panels() {
        std::vector<std::string> names;
        for (view::Widget* panel : {&form1::frame_engine, &form1::Frame_impostazioni,
                                    &form1::Frame_Lambda, &form1::Frame_diagnosi})
            if (view::visible(*panel)) names.push_back(panel->name);
        return names;
    }
};

class MainWindowAtStart : public LogicTest {};

TEST_F(MainWindowAtStart, CarMenuIsDisabled) {
    port->silent = true;
    start_program();
    run_for(3000);
    EXPECT_FALSE(view::enabled(form1::mnu_check_car));
    EXPECT_THAT(screen.message_boxes, testing::IsEmpty());
}

TEST_F(MainWindow, StartsOnTheEnginePanel) {
    EXPECT_THAT(shown_panels(), ElementsAre("frame_engine"));
    EXPECT_TRUE(view::visible(form1::Command_exit));
    EXPECT_TRUE(view::enabled(form1::Command5));
    for (view::Widget* w : {&form1::Label_sfondo, &form1::Label_ct, &form1::lbl_ct})
        EXPECT_FALSE(view::visible(*w)) << w->name;
}

TEST_F(MainWindow, SettingsPanelStopsThePolling) {
    operator_clicks(form1::Command_impostazioni);
    EXPECT_THAT(shown_panels(), ElementsAre("Frame_impostazioni"));
    EXPECT_TRUE(state.settings_panel_open);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_TRUE(form1::Timer_chiusura_stato.is_on());
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_FALSE(view::enabled(form1::Command5));
    EXPECT_FALSE(view::visible(form1::Command_exit));
    EXPECT_FALSE(state.ui_loading);
    run_for(600);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre());
}

TEST_F(MainWindow, DelayedStopOfAPanelUndoesTheEngineButton) {
    operator_clicks(form1::Command_impostazioni);
    run_for(100);
    operator_clicks(form1::Command_engine);
    run_for(5000);
    EXPECT_THAT(shown_panels(), ElementsAre("frame_engine"));
    EXPECT_FALSE(state.poll_enabled);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre());
    operator_clicks(form1::Command_engine);
    run_for(1000);
    EXPECT_TRUE(state.poll_enabled) << "after the second click";
    EXPECT_THAT(frames(), testing::Not(ElementsAre()));
}

TEST_F(MainWindow, SettingsPanelPlacesFourTankSliders) {
    mirrors.tank_min_mv = 1948;
    mirrors.tank_max_mv = 3964;
    mirrors.tank_threshold_1 = 48;
    mirrors.tank_threshold_2 = 66;
    mirrors.tank_threshold_3 = 86;
    mirrors.tank_threshold_4 = 95;
    const double fifth = view::value(form1::Slider1[4]);
    const std::string led1 = view::text(form1::Label_led1), label9 = view::text(form1::Label9);
    operator_clicks(form1::Command_impostazioni);
    run_for(3000);
    std::vector<double> values;
    for (int row = 0; row < 5; ++row)
        values.push_back(view::value(form1::Slider1[row]));
    EXPECT_THAT(values, ElementsAre(48, 66, 86, 95, fifth));
    EXPECT_EQ(view::text(form1::Text_min_tank), "1948");
    EXPECT_EQ(view::text(form1::lbl_205), "1948");
    EXPECT_EQ(view::text(form1::Text_max_tank), "3964");
    EXPECT_EQ(view::text(form1::lbl_200), "3964");
    EXPECT_EQ(view::text(form1::Label_led1), led1);
    EXPECT_EQ(view::text(form1::Label9), label9);
    EXPECT_THAT(writes(), ElementsAre());
}

TEST_F(MainWindow, EngineButtonRestartsThePolling) {
    operator_clicks(form1::Command_impostazioni);
    run_for(3000);
    state.ui_loading = true;
    inside_program([] { view::set_pointer(form1::Form1, view::Pointer::hourglass); });
    forget_wire();
    operator_clicks(form1::Command_engine);
    EXPECT_FALSE(state.settings_panel_open);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_TRUE(view::enabled(form1::Command5));
    EXPECT_THAT(shown_panels(), ElementsAre("Frame_impostazioni")) << "until its wait has ended";
    EXPECT_FALSE(view::visible(form1::Command_exit));
    run_for(1000);
    EXPECT_THAT(shown_panels(), ElementsAre("frame_engine"));
    EXPECT_TRUE(view::visible(form1::Command_exit));
    EXPECT_EQ(view::focus(), &form1::Form1);
    EXPECT_FALSE(state.ui_loading);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    EXPECT_GE(port->sent.size(), 2u);
}

// The port is closed, so that no telegram changes the length of the wait.
TEST_F(MainWindow, EngineButtonWaits500MsForThePolling) {
    operator_clicks(form1::Command_impostazioni);
    run_for(3000);
    inside_program([] { link::close_port(); });
    operator_clicks(form1::Command_engine);
    run_for(499);
    EXPECT_THAT(shown_panels(), ElementsAre("Frame_impostazioni"));
    run_for(1);
    EXPECT_THAT(shown_panels(), ElementsAre("frame_engine"));
}

TEST_F(MainWindow, EngineButtonDoesNotWaitWhilePolling) {
    for (int i = 0; i < 100 && !form1::Timer_stato_sistema.is_on(); ++i)
        run_for(10);
    ASSERT_TRUE(form1::Timer_stato_sistema.is_on());
    inside_program([] { view::set_visible(form1::frame_engine, false); });
    operator_clicks(form1::Command_engine);
    EXPECT_THAT(shown_panels(), ElementsAre("frame_engine"));
}

TEST_F(MainWindow, EngineButtonEnablesTheWindow) {
    inside_program([] {
        view::set_enabled(form1::Form1, false);
        form1::Command_engine.on.click();
    });
    run_for(1000);
    EXPECT_TRUE(view::enabled(form1::Form1));
}

TEST_F(MainWindow, LambdaPanelShowsTheMirrors) {
    mirrors.lambda_open_loop_max = 512;
    mirrors.lambda_closed_loop_max = 433;
    mirrors.lambda_control = 1;
    mirrors.lambda_direction = 0;
    mirrors.lambda_input_kind = 1;
    inside_program([] { view::set_text(form1::Label35, "4"); });
    operator_clicks(form1::Command_lambda);
    EXPECT_THAT(shown_panels(), ElementsAre("Frame_Lambda"));
    EXPECT_TRUE(view::visible(form1::Picture1));
    EXPECT_FALSE(view::enabled(form1::Command5));
    EXPECT_FALSE(view::visible(form1::Command_exit));
    EXPECT_TRUE(form1::Timer_chiusura_stato.is_on());
    EXPECT_TRUE(form1::Timer3.is_on());
    EXPECT_EQ(view::text(form1::Label35), "1");
    EXPECT_EQ(view::text(form1::Text_lambda_open_loop), "512");
    EXPECT_EQ(view::text(form1::Text_lambda_closed_loop), "433");
    EXPECT_TRUE(view::selected(form1::Option_abi_controllo_lambda));
    EXPECT_TRUE(view::selected(form1::lambda_inv));
    EXPECT_TRUE(view::selected(form1::Option_corr));
    mirrors.lambda_control = 0;
    mirrors.lambda_direction = 1;
    mirrors.lambda_input_kind = 0;
    operator_clicks(form1::Command_lambda);
    EXPECT_TRUE(view::selected(form1::Option_disa_controllo_lambda));
    EXPECT_TRUE(view::selected(form1::lambda_dir));
    EXPECT_TRUE(view::selected(form1::Option_tens));
    run_for(5000);
    EXPECT_THAT(writes(), ElementsAre());
    EXPECT_FALSE(state.poll_enabled) << "stopped after 200 ms";
}

TEST_F(MainWindow, OtherPanelsEndTheLambdaTrace) {
    for (view::Widget* button : {&form1::Command_engine, &form1::Command_impostazioni}) {
        operator_clicks(form1::Command_lambda);
        run_for(1000);
        ASSERT_TRUE(form1::Timer3.is_on());
        operator_clicks(*button);
        EXPECT_FALSE(form1::Timer3.is_on()) << button->name;
        run_for(1000);
    }
}

TEST_F(MainWindow, ParameterMenuOpensItsWindow) {
    operator_clicks(form1::Command_lambda);
    run_for(100);
    operator_clicks(form1::barra1);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_TRUE(form2::Form2.shown);
}

TEST_F(MainWindow, TwoButtonsOpenTheirWindows) {
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    operator_clicks(form1::Command303);
    EXPECT_TRUE(form3::Form3.loaded);
    run_for(3000);
    inside_program([] { view::unload(form3::Form3); });
    run_for(5000);
    operator_clicks(form1::Command_engine);
    run_for(2000);
    operator_clicks(form1::Command5);
    EXPECT_TRUE(acquisizione::acquisizione.loaded);
}

TEST_F(MainWindow, StopButtonStopsThePolling) {
    EXPECT_FALSE(form1::Command1.on.click);
    inside_program([] { view::set_visible(form1::Command2, true); });
    operator_clicks(form1::Command2);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(1000);
    forget_wire();
    run_for(3000);
    EXPECT_THAT(frames(), ElementsAre());
}

TEST_F(MainWindow, DoubleClicksShowOrHideTheServiceControls) {
    const std::vector<view::Widget*> brought = {
        &form1::Label_sfondo,   &form1::Label_pressione_taratura,
        &form1::lbl_ct,         &form1::lbl_ktar,
        &form1::Label28,        &form1::Command_hyperterminal,
        &form1::Command_scarico};
    std::vector<view::Widget*> hidden = brought;
    hidden.insert(hidden.end(),
                  {&form1::Label_ct, &form1::Label_ktar, &form1::Command1, &form1::Command2});
    inside_program([&] {
        for (view::Widget* w : hidden)
            view::set_visible(*w, true);
        view::set_focus(form1::Slider_ktar);
    });
    operator_double_clicks(form1::Label12);
    for (const view::Widget* w : hidden)
        EXPECT_FALSE(view::visible(*w)) << w->name;
    EXPECT_EQ(view::focus(), &form1::Text2);
    inside_program([] { view::set_focus(form1::Slider_ktar); });
    operator_double_clicks(form1::Label18);
    for (const view::Widget* w : hidden) {
        const bool back = std::find(brought.begin(), brought.end(), w) != brought.end();
        EXPECT_EQ(view::visible(*w), back) << w->name;
    }
    EXPECT_EQ(view::focus(), &form1::Text2);
}

TEST_F(MainWindow, FieldIsRedUntilEnter) {
    inside_program([] { app::begin_field_edit(form1::Text_time_comm); });
    EXPECT_TRUE(form1::Text_time_comm.look.edit_marker);
    EXPECT_EQ(form1::Text_time_comm.look.back, 8421631);
    EXPECT_EQ(view::text(form1::Text_time_comm), "");
    inside_program([] {
        view::set_text(form1::Text_time_comm, "12");
        app::end_field_edit(form1::Text_time_comm);
    });
    EXPECT_FALSE(form1::Text_time_comm.look.edit_marker);
    EXPECT_EQ(form1::Text_time_comm.look.back, 16777215);
    EXPECT_EQ(view::text(form1::Text_time_comm), "12");
}

TEST_F(MainWindow, PanelButtonsShowThatTheProgramIsBusy) {
    inside_program([] { app::show_busy_on_buttons(); });
    EXPECT_EQ(form1::Command_engine.look.pointer, view::Pointer::hourglass);
    EXPECT_EQ(form1::Command_impostazioni.look.pointer, view::Pointer::hourglass);
    inside_program([] { app::show_normal_on_buttons(); });
    EXPECT_EQ(form1::Command_engine.look.pointer, view::Pointer::custom);
    EXPECT_EQ(form1::Command_impostazioni.look.pointer, view::Pointer::custom);
}

TEST_F(MainWindow, ManualOpensInTheLanguageInUse) {
    state.current_language = "pl";
    operator_clicks(form1::mnu_Manual);
    EXPECT_THAT(screen.manuals, ElementsAre((folder / "zol.chm").string() + " pl/index.htm"));
    state.current_language.clear();
    inside_program([] { app::ShowHtmlHelp("a.chm", "b.htm"); });
    EXPECT_EQ(screen.manuals.back(), "a.chm b.htm");
}

TEST_F(MainWindow, ExitDuringAWaitKeepsHandlersFromWriting) {
    operator_drags(form1::Slider_ktar, 1500); // waits 400 ms before its first write
    run_for(100);
    operator_clicks(form1::Command_exit);
    EXPECT_TRUE(state.ui_loading);
    EXPECT_TRUE(state.no_reread);
    EXPECT_FALSE(state.poll_enabled);
    operator_drags(form1::Slider_power, 1600);
    run_for(700);
    EXPECT_TRUE(time.ended());
    EXPECT_FALSE(port->is_open());
    EXPECT_THAT(writes(), ElementsAre());
}

} // namespace
} // namespace zol::tests
