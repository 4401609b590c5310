// The other periodic jobs: watchdog, guard, reminders, and the lambda panel's own read.
#include "link/ecu_frames.h"
#include "monitor/polling.h"
#include "tests/support/replies.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;
using view::Colour;

class SideTimers : public ReplyTest {
  protected:
    // One colour for each period of 2 seconds.
    std::vector<Colour> colours_of(const Colour& colour, int periods) {
        std::vector<Colour> seen;
        for (int i = 0; i < periods; ++i) {
            run_for(2000);
            seen.push_back(colour);
        }
        return seen;
    }
    void expect_blinking(const Colour& colour, Colour one, Colour other) {
        const auto seen = colours_of(colour, 4);
        EXPECT_THAT(seen, testing::AnyOf(ElementsAre(one, other, one, other),
                                         ElementsAre(other, one, other, one)));
    }
    void open_lambda_panel() {
        start_scripted();
        operator_clicks(Command_lambda, 2000ms);
    }
};

// --- Watchdog and guard

TEST_F(SideTimers, WatchdogRestartsThePollingAfterTheDialog) {
    start_by_dialog();
    ASSERT_TRUE(Timer6.is_on());
    inside_program(monitor::stop_polling);
    run_for(400); // a telegram under way has ended
    EXPECT_GE(frames_in(550).size(), 1u);
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(SideTimers, WatchdogLeavesTheSettingsPanelAlone) {
    start_by_dialog();
    operator_clicks(Command_impostazioni, 1000ms);
    EXPECT_THAT(frames_in(10'000), IsEmpty());
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_TRUE(Timer6.is_on()) << "nothing stops it";
    operator_clicks(Command_engine);
    EXPECT_GE(frames_in(1000).size(), 2u);
}

TEST_F(SideTimers, ActivationPathHasNoWatchdog) {
    start_scripted();
    stop_polling();
    EXPECT_THAT(frames_in(20'000), IsEmpty());
    EXPECT_FALSE(Timer6.is_on());
    operator_clicks(Command_engine);
    EXPECT_FALSE(frames_in(500).empty());
}

TEST_F(SideTimers, GuardStopsAnyPollingOnTheSettingsPanel) {
    start_scripted();
    operator_clicks(Command_impostazioni, 3000ms);
    inside_program(monitor::start_polling);
    run_for(2400);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_THAT(frames_in(5000), IsEmpty());
}

TEST_F(SideTimers, GuardLeavesThePollingOfTheEnginePanel) {
    start_scripted();
    EXPECT_EQ(frames_in(7000).size(), 20u);
}

// --- Reminders

TEST_F(SideTimers, InjectionTimeButtonBlinksUntilAnAcquisition) {
    start_scripted();
    constexpr Colour grey = view::rgb(192, 192, 192);
    mirrors.tinj_lower = 2502;
    expect_blinking(Command5.look.back, grey, view::red);
    for (const double acquired : {2501.0, 2503.0, 0.0}) {
        inside_program([] { view::set_back(Command5, view::red); });
        mirrors.tinj_lower = acquired;
        EXPECT_THAT(colours_of(Command5.look.back, 2), ElementsAre(grey, grey)) << acquired;
    }
}

TEST_F(SideTimers, ServiceLineBlinksUntilTheFirstCheck) {
    start_scripted();
    const Colour ground = Form1.look.back;
    mirrors.last_check_day = 0;
    expect_blinking(lbl_ore.look.back, ground, view::red);
    mirrors.last_check_day = 1;
    EXPECT_THAT(colours_of(lbl_ore.look.back, 3), ElementsAre(ground, ground, ground));
}

TEST_F(SideTimers, HiddenTuningLineBlinksToo) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOLORETESTO=65280\n");
    start_scripted();
    EXPECT_FALSE(view::visible(lbl_tuning));
    run_for(2000);
    expect_blinking(lbl_tuning.look.fore, view::green, view::black);
}

TEST_F(SideTimers, TuningLineKeepsItsColourWithoutATextColour) {
    start_scripted();
    const Colour own = lbl_tuning.look.fore;
    EXPECT_THAT(colours_of(lbl_tuning.look.fore, 4), testing::Each(own));
}

// --- The read of the lambda panel

TEST_F(SideTimers, LambdaPanelAsksEvery100Milliseconds) {
    open_lambda_panel();
    telegram.state_number = 6;
    telegram.lambda = 333;
    EXPECT_EQ(frames_in(1000), std::vector(10, Send(3)));
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_EQ(gap_after(i), 100);
    EXPECT_EQ(text(Label_stato), "6");
    EXPECT_EQ(text(label_lambda_2), "333");
}

TEST_F(SideTimers, LambdaPanelShowsOnlyStatesBelowTen) {
    open_lambda_panel();
    for (const auto& [number, shown] : {std::pair{9, "9"}, {10, "9"}, {65535, "9"}, {0, "0"}}) {
        telegram.state_number = number;
        run_for(200);
        EXPECT_EQ(text(Label_stato), shown) << number;
    }
}

TEST_F(SideTimers, LambdaPanelShowsOnlyWholeTelegrams) {
    open_lambda_panel();
    for (std::size_t length = 0; length <= 300; ++length) {
        telegram.state_number = 1;
        run_for(200);
        next_telegrams = {reply_of_length(Telegram{.state_number = 2}, length)};
        run_for(100);
        EXPECT_EQ(text(Label_stato), length >= 27 ? "2" : "1") << length << " bytes";
    }
}

TEST_F(SideTimers, LambdaPanelIgnoresAnotherEcho) {
    open_lambda_panel();
    telegram.state_number = 3;
    run_for(200);
    for (std::size_t length = 0; length <= 300; ++length) {
        next_telegrams = {reply_of_length(Telegram{.state_number = 2, .echo = 16}, length)};
        run_for(100);
        EXPECT_EQ(text(Label_stato), "3") << length << " bytes";
    }
}

TEST_F(SideTimers, LambdaPanelSetsTheTabStopsOnAClosedPort) {
    open_lambda_panel();
    inside_program([] {
        link::close_port();
        view::set_tab_stop(Slider_ktar, false);
        view::set_tab_stop(Slider_attenuazione, false);
    });
    EXPECT_THAT(frames_in(1000), IsEmpty());
    EXPECT_TRUE(Timer3.is_on());
    EXPECT_TRUE(Slider_ktar.look.tab_stop);
    EXPECT_TRUE(Slider_attenuazione.look.tab_stop);
}

} // namespace
} // namespace zol::tests
