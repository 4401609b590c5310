// The small periodic jobs around the polling: watchdog, guard, reminders, the lambda panel's own
// read, and the filling of the window after the connection dialog.
#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "monitor/polling.h"
#include "tests/support/replies.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"

#include <algorithm>

namespace zol::tests {
namespace {

using app::state;
using link::mirrors;
using testing::ElementsAre;

constexpr view::Colour grey = view::rgb(192, 192, 192);

class SideTimers : public ReplyBench {
  protected:
    void stop_all_polling() {
        inside_program([] { monitor::stop_polling(); });
        run_for(1000);
        forget_wire();
    }
    // By way of the connection dialog: the unit is silent at first.
    void start_by_dialog() {
        port->silent = true;
        start_program();
        run_for(5000);
        port->silent = false;
        operator_clicks(centralina_attiva::Command_test);
        run_for(2000);
        operator_clicks(centralina_attiva::Command_ok);
        run_for(9000); // its reads, and the filling three seconds later
    }
};

TEST_F(SideTimers, TheWatchdogRestartsAStoppedPollingWithinHalfASecondAfterTheDialog) {
    start_by_dialog();
    ASSERT_TRUE(form1::Timer6.is_on());
    inside_program([] { monitor::stop_polling(); });
    run_for(400); // a telegram under way has ended
    forget_wire();
    run_for(550);
    EXPECT_GE(port->sent.size(), 1u);
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(SideTimers, TheWatchdogLeavesTheSettingsPanelAlone) {
    start_by_dialog();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    forget_wire();
    run_for(10'000);
    EXPECT_THAT(frames(), ElementsAre());
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_TRUE(form1::Timer6.is_on()) << "nothing stops it";
    operator_clicks(form1::Command_engine);
    run_for(1000);
    EXPECT_GE(port->sent.size(), 2u);
}

TEST_F(SideTimers, OnTheDirectRoadNothingRestartsThePollingButTheEngineButton) {
    start_scripted();
    stop_all_polling();
    run_for(20'000);
    EXPECT_THAT(frames(), ElementsAre());
    EXPECT_FALSE(form1::Timer6.is_on());
    operator_clicks(form1::Command_engine);
    run_for(500);
    EXPECT_FALSE(frames().empty());
}

TEST_F(SideTimers, TheGuardStopsAPollingOnTheSettingsPanelWhoeverStartsIt) {
    start_scripted();
    operator_clicks(form1::Command_impostazioni);
    run_for(3000);
    inside_program([] { monitor::start_polling(); });
    run_for(2400);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre());
}

TEST_F(SideTimers, TheGuardLeavesThePollingOfTheEnginePanelAlone) {
    start_scripted();
    forget_wire();
    run_for(7000);
    EXPECT_EQ(port->sent.size(), 20u);
}

TEST_F(SideTimers, TheInjectionTimeButtonBlinksRedAsLongAsNothingWasAcquired) {
    start_scripted();
    mirrors.tinj_lower = 2502;
    run_for(2000);
    const view::Colour first = form1::Command5.look.back;
    run_for(2000);
    const view::Colour second = form1::Command5.look.back;
    EXPECT_NE(first, second);
    EXPECT_EQ(first + second, grey + view::red);
    run_for(2000);
    EXPECT_EQ(form1::Command5.look.back, first);
    for (const double acquired : {2501.0, 2503.0, 0.0}) {
        inside_program([] { view::set_back(form1::Command5, view::red); });
        mirrors.tinj_lower = acquired;
        run_for(2000);
        EXPECT_EQ(form1::Command5.look.back, grey) << acquired;
        run_for(2000);
        EXPECT_EQ(form1::Command5.look.back, grey) << acquired;
    }
}

TEST_F(SideTimers, TheServiceLineBlinksRedAsLongAsThereWasNoCheck) {
    start_scripted();
    const view::Colour ground = form1::Form1.look.back;
    mirrors.last_check_day = 0;
    run_for(2000);
    const view::Colour first = form1::lbl_ore.look.back;
    run_for(2000);
    const view::Colour second = form1::lbl_ore.look.back;
    EXPECT_NE(first, second);
    EXPECT_EQ(first + second, ground + view::red);
    mirrors.last_check_day = 1;
    for (int i = 0; i < 3; ++i) {
        run_for(2000);
        EXPECT_EQ(form1::lbl_ore.look.back, ground);
    }
}

TEST_F(SideTimers, TheTuningLineBlinksBetweenTextColourAndBlackSeenOrNot) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOLORETESTO=65280\n");
    start_scripted();
    EXPECT_FALSE(view::visible(form1::lbl_tuning));
    run_for(2000);
    std::vector<view::Colour> seen;
    for (int i = 0; i < 4; ++i) {
        run_for(2000);
        seen.push_back(form1::lbl_tuning.look.fore);
    }
    if (seen[0] == view::black) std::rotate(seen.begin(), seen.begin() + 1, seen.end());
    EXPECT_THAT(seen, ElementsAre(view::green, view::black, view::green, view::black));
}

TEST_F(SideTimers, WithoutATextColourTheTuningLineKeepsItsOwn) {
    start_scripted();
    const view::Colour own = form1::lbl_tuning.look.fore;
    for (int i = 0; i < 4; ++i) {
        run_for(2000);
        EXPECT_EQ(form1::lbl_tuning.look.fore, own);
    }
}

TEST_F(SideTimers, TheLambdaPanelAsksEvery100MillisecondsWithNoWait) {
    start_scripted();
    operator_clicks(form1::Command_lambda);
    run_for(2000);
    forget_wire();
    telegram.state_number = 6;
    telegram.lambda = 333;
    run_for(1000);
    ASSERT_EQ(port->sent.size(), 10u);
    EXPECT_THAT(frames(), testing::Each(Send(3)));
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_EQ(gap_behind(i), 100);
    EXPECT_EQ(view::text(form1::Label_stato), "6");
    EXPECT_EQ(view::text(form1::label_lambda_2), "333");
}

TEST_F(SideTimers, TheLambdaPanelShowsOnlyStatesBelowTen) {
    start_scripted();
    operator_clicks(form1::Command_lambda);
    run_for(1000);
    for (const auto& [number, text] :
         std::vector<std::pair<int, const char*>>{{9, "9"}, {10, "9"}, {65535, "9"}, {0, "0"}}) {
        telegram.state_number = number;
        run_for(200);
        EXPECT_EQ(view::text(form1::Label_stato), text) << number;
    }
}

TEST_F(SideTimers, TheLambdaPanelTakesOnlyWholeTelegramsWithTheRightEcho) {
    start_scripted();
    operator_clicks(form1::Command_lambda);
    telegram.state_number = 1;
    run_for(1000);
    Telegram other{.state_number = 2};
    for (std::size_t length = 0; length <= 300; ++length) {
        telegram.state_number = 1;
        run_for(200);
        next_telegrams = {reply_of_length(other, length)};
        run_for(100);
        EXPECT_EQ(view::text(form1::Label_stato), length >= 27 ? "2" : "1") << length << " bytes";
    }
    other.echo = 16;
    telegram.state_number = 3;
    run_for(200);
    for (std::size_t length = 0; length <= 300; ++length) {
        next_telegrams = {reply_of_length(other, length)};
        run_for(100);
        EXPECT_EQ(view::text(form1::Label_stato), "3") << length << " bytes";
    }
}

TEST_F(SideTimers, TheLambdaPanelsReadGoesQuietOnAClosedPortAndGivesTheTabStops) {
    start_scripted();
    operator_clicks(form1::Command_lambda);
    run_for(1000);
    inside_program([] {
        link::close_port();
        view::set_tab_stop(form1::Slider_ktar, false);
        view::set_tab_stop(form1::Slider_attenuazione, false);
    });
    forget_wire();
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre());
    EXPECT_TRUE(form1::Timer3.is_on());
    EXPECT_TRUE(form1::Slider_ktar.look.tab_stop);
    EXPECT_TRUE(form1::Slider_attenuazione.look.tab_stop);
}

TEST_F(SideTimers, AfterTheDialogTheWindowIsFilledOnceThreeSecondsLater) {
    unit->set_parameter(3, 1333);
    unit->set_parameter(4, 1444);
    unit->set_parameter(15, 41);
    unit->set_parameter(52, 15);
    unit->set_parameter(101, 30);
    unit->set_parameter(110, 7);
    port->silent = true;
    start_program();
    run_for(5000);
    ASSERT_TRUE(centralina_attiva::Centralina_Attiva.shown);
    port->silent = false;
    operator_clicks(centralina_attiva::Command_test);
    run_for(2000);
    operator_clicks(centralina_attiva::Command_ok);
    while (centralina_attiva::Centralina_Attiva.loaded)
        run_for(10);
    run_for(2980);
    EXPECT_EQ(view::text(form1::Text_time_comm), form1::Text_time_comm.design.text);
    EXPECT_FALSE(view::enabled(form1::Form1));
    run_for(240); // the correction's slider writes in the middle, and waits
    EXPECT_EQ(view::value(form1::Slider_ktar), 1333);
    EXPECT_EQ(form1::Slider_ktar.look.selection_length, 332);
    EXPECT_EQ(view::value(form1::Slider_power), 1444);
    EXPECT_EQ(form1::Slider_power.look.selection_length, 443);
    EXPECT_EQ(view::text(form1::text_temp_comm), "41");
    EXPECT_EQ(view::value(form1::Slider3), 15);
    EXPECT_EQ(view::value(form1::Slider_attenuazione), 30);
    EXPECT_EQ(view::text(form1::Label_attenuazione), "30") << "no dash on this road";
    EXPECT_EQ(view::text(form1::Text_time_comm), "7");
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::maximised);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_FALSE(state.ui_loading);
    EXPECT_FALSE(form1::Timer1.is_on());
    EXPECT_THAT(writes(), ElementsAre(Write(52, 15)));
}

// The filling alone, from mirrors set by hand.
class Filling : public SideTimers {
  protected:
    void SetUp() override {
        start_scripted();
        stop_all_polling();
    }
    void fill() {
        inside_program([] { form1::Timer1.on(); });
        run_for(3500);
    }
};

TEST_F(Filling, ItComesInItsOrder) {
    mirrors.ktar_low = 1301;
    mirrors.ktar_high = 1302;
    mirrors.fuel_type = view::selected(form1::Option_gpl) ? 0 : 1;
    mirrors.changeover_temperature = 55;
    mirrors.tank_min_mv = 111;
    mirrors.tank_max_mv = 999;
    mirrors.pressure_sensor = view::selected(form1::Option_press_yes) ? 0 : 1;
    mirrors.attenuation = 70;
    mirrors.temperature_correction = 9;
    mirrors.changeover_time = 99;
    inside_program([] { view::set_text(form1::Label_carburante, "?"); });
    std::vector<std::string> order;
    screen.on_changed = [&](view::Widget& widget, view::Aspect aspect) {
        const std::string name = view::full_name(widget);
        const bool blinks = name == "lbl_ore" || name == "Command5" || name == "led_rpm";
        // Some options flip their own pointer and the window's before they fall silent.
        if (aspect == view::Aspect::pointer) return;
        if (blinks || widget.parent == &form1::Frame_tank || !form1::Timer1.is_on()) return;
        if (order.empty() || order.back() != name) order.push_back(name);
    };
    fill();
    const bool gpl = mirrors.fuel_type == 1;
    const std::string on = gpl ? "Option_gpl" : "Option_metano";
    const std::string off = gpl ? "Option_metano" : "Option_gpl";
    std::vector<std::string> expected = {"Slider_ktar", "Slider_power"};
    if (gpl) expected.emplace_back("Label_carburante");
    expected.insert(expected.end(), {off, on});
    if (!gpl) expected.emplace_back("Label_carburante");
    const bool sensor = mirrors.pressure_sensor == 1;
    expected.insert(expected.end(),
                    {"text_temp_comm", sensor ? "Option_press_no" : "Option_press_yes",
                     sensor ? "Option_press_yes" : "Option_press_no", "Slider_attenuazione",
                     "Label_attenuazione", "Slider3", "Text_time_comm"});
    EXPECT_EQ(order, expected);
    EXPECT_THAT(frames(), ElementsAre(Write(52, 9))) << "all other handlers are silent";
}

TEST_F(Filling, EitherFuelIsChosenAsTheUnitHasIt) {
    for (const int fuel : {0, 1, 0}) {
        mirrors.fuel_type = fuel;
        fill();
        EXPECT_EQ(view::selected(form1::Option_gpl), fuel == 1);
        EXPECT_EQ(view::selected(form1::Option_metano), fuel == 0);
    }
}

TEST_F(Filling, ACorrectionAboveTwentyIsShownAsTenAndOneUpToTwentyAsItIs) {
    for (const auto& [correction, shown] : std::vector<std::pair<double, double>>{
             {0, 0}, {10, 10}, {11, 11}, {15, 15}, {20, 20}, {21, 10}, {65535, 10}}) {
        mirrors.temperature_correction = correction;
        fill();
        EXPECT_EQ(view::value(form1::Slider3), shown) << correction;
        EXPECT_EQ(form1::Slider3.look.max, std::max(10.0, shown));
    }
}

TEST_F(Filling, GainsOutsideTheSliderLeaveItWhereItIs) {
    mirrors.ktar_low = 1500;
    fill();
    mirrors.ktar_low = 1801;
    mirrors.ktar_high = 1000;
    const double power = view::value(form1::Slider_power);
    fill();
    EXPECT_EQ(view::value(form1::Slider_ktar), 1500);
    EXPECT_EQ(view::value(form1::Slider_power), power);
}

TEST_F(Filling, TheTankListIsFilledAndThePresetSelected) {
    state.tank_type = 3;
    inside_program([] { view::set_items(form1::Combo_tank_level, {}); });
    fill();
    EXPECT_EQ(form1::Combo_tank_level.look.items.size(), 6u);
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, 3);
    EXPECT_FALSE(view::selected(form1::Check1));
    state.tank_type = 99;
    fill();
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_TRUE(view::selected(form1::Check1));
}

TEST_F(Filling, AFuelThatIsNeitherLeavesBothOptionsAndTheText) {
    const bool gpl = view::selected(form1::Option_gpl);
    inside_program([] { view::set_text(form1::Label_carburante, "as it was"); });
    mirrors.fuel_type = 2;
    fill();
    EXPECT_EQ(view::selected(form1::Option_gpl), gpl);
    EXPECT_EQ(view::text(form1::Label_carburante), "as it was");
}

} // namespace
} // namespace zol::tests
