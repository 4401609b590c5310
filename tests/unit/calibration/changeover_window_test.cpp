// The changeover window as a whole: how it fills, what it locks, and how it goes.
#include "app/message_catalogue.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using namespace form3;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

// A unit that has everything the window shows.
class ChangeoverWindow : public LogicTest {
  protected:
    ChangeoverWindow() : LogicTest(sim::Options{.family = 4, .version = 7, .revision = 71}) {}

    void in_the_unit(int number, int value) {
        unit->set_parameter(number, static_cast<std::uint16_t>(value));
    }
    void click_all_options() {
        for (auto* option : {&opt_norm, &opt_perm, &opt_acc, &Option1, &Option2, &Option3,
                             &Option_comm_auto_yes, &Option_comm_auto_no}) {
            operator_clicks(*option);
            run_for(2000);
        }
    }
};

TEST_F(ChangeoverWindow, ShowsWhatTheUnitHoldsAndWritesNothing) {
    for (const auto& [number, value] : {std::pair{121, 1450},
                                        {22, 850},
                                        {123, 1234},
                                        {124, 1555},
                                        {47, 123},
                                        {53, 5},
                                        {122, 3},
                                        {105, 1},
                                        {106, 500},
                                        {41, 5}})
        in_the_unit(number, value);
    open_settings();
    operator_clicks(form1::Command303);
    EXPECT_EQ(text(Text_rpm), "1450");
    EXPECT_EQ(text(Text_press_comm), "850");
    EXPECT_EQ(text(Text_123), "1230");
    EXPECT_EQ(text(Text_124), "1555");
    EXPECT_EQ(text(Text1), "1230");
    EXPECT_EQ(text(Text2), "500");
    EXPECT_TRUE(view::selected(opt_acc));
    EXPECT_TRUE(view::selected(Option_comm_auto_yes));
    EXPECT_TRUE(view::selected(Option2));
    EXPECT_EQ(view::value(Slider2), 2);
    EXPECT_TRUE(view::enabled(Slider2));
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(ChangeoverWindow, HoldsTheMainWindowAndThePollingWhileItIsOpen) {
    open_settings();
    operator_clicks(form1::Command303);
    EXPECT_TRUE(Form3.shown);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_EQ(text(Form3), *app::message(1134) + "...");
    EXPECT_EQ(text(lbl_rpm_comm), *app::message(1168) + "g/min.");
}

TEST_F(ChangeoverWindow, GivesFramesLabelsAndOptionsTheColourOfTheWindow) {
    open_settings();
    inside_program([] { view::load(Form3); });
    view::set_back(Form3, view::yellow);
    inside_program([] { Form3.on.load(); });
    EXPECT_EQ(app::state.panel_colour, view::yellow);
    for (const view::Widget* each : {&Frame6, &Frame_cut_benz, &lbl_rpm_comm, &Label_inj, &opt_norm,
                                     &Option_comm_auto_no, &Option3})
        EXPECT_EQ(each->look.back, view::yellow) << each->name;
    EXPECT_NE(Text_rpm.look.back, view::yellow);
    EXPECT_NE(Command1.look.back, view::yellow);
}

TEST_F(ChangeoverWindow, LoadsTheInjectionTimeWindowUnseen) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOLORETESTO=255\n");
    open_settings();
    operator_clicks(form1::Command303);
    EXPECT_TRUE(acquisizione::acquisizione.loaded);
    EXPECT_FALSE(acquisizione::acquisizione.shown);
    EXPECT_TRUE(acquisizione::Timer1.is_on());
    EXPECT_EQ(acquisizione::Label1.look.fore, 255);
    EXPECT_EQ(acquisizione::Label_max.look.fore, 255);
    EXPECT_FALSE(acquisizione::Timer_tinj.is_on());
    run_for(2000);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(ChangeoverWindow, LeavesTheInjectionTimeWindowLoadedBehindIt) {
    open_changeover();
    close_changeover();
    EXPECT_FALSE(Form3.loaded);
    EXPECT_TRUE(acquisizione::acquisizione.loaded);
    EXPECT_FALSE(acquisizione::acquisizione.shown);
    // Loaded already, it does nothing of its own at the next visit: the visit does.
    ASSERT_FALSE(acquisizione::Timer1.is_on());
    inside_program([] {
        view::set_enabled(form1::Form1, true);
        form1::Timer_stato_sistema.on();
        view::show(Form3);
        EXPECT_TRUE(acquisizione::Timer1.is_on());
        EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
        EXPECT_FALSE(view::enabled(form1::Form1));
    });
}

TEST_F(ChangeoverWindow, FillsTheScreenItFindsAsDoesTheOneLoadedWithIt) {
    screen.screen = {2 * 10125, 2 * (9000 - 705) + 705};
    open_changeover();
    for (const view::Widget* window : {&Form3, &acquisizione::acquisizione}) {
        SCOPED_TRACE(window->name);
        const view::Place &drawn = window->design.place, &now = window->look.place;
        EXPECT_EQ(now.width, 2 * drawn.width);
        EXPECT_EQ(now.height, 2 * drawn.height);
    }
    EXPECT_EQ(Text_rpm.look.place.left, 2 * Text_rpm.design.place.left);
}

TEST_F(ChangeoverWindow, SelectsTheStartModeThatIsHeldAndNoneForAnyOther) {
    open_settings();
    const std::pair<double, const view::Widget*> modes[] = {
        {0, &opt_norm}, {1, &opt_perm}, {3, &opt_acc}, {2, nullptr}, {7, nullptr}};
    for (const auto& [mode, selected] : modes) {
        link::mirrors.forced_start_mode = mode;
        reopen_changeover();
        for (const view::Widget* option : {&opt_norm, &opt_perm, &opt_acc})
            EXPECT_EQ(view::selected(*option), option == selected) << option->name << mode;
        close_changeover();
    }
}

TEST_F(ChangeoverWindow, SelectsTheCutOffThatIsHeldAndNoneForAnyOther) {
    open_settings();
    const std::pair<double, const view::Widget*> modes[] = {
        {7, &Option1}, {5, &Option2}, {2, &Option3}, {0, nullptr}};
    for (const auto& [mode, selected] : modes) {
        link::mirrors.gas_cut_off_mode = mode;
        reopen_changeover();
        for (const view::Widget* option : {&Option1, &Option2, &Option3})
            EXPECT_EQ(view::selected(*option), option == selected) << option->name << mode;
        close_changeover();
    }
}

TEST_F(ChangeoverWindow, TheDelaySliderIsDisabledOnlyWithoutAutomaticChangeover) {
    open_settings();
    link::mirrors.low_pressure_delay = 500;
    const std::tuple<double, bool, bool> cases[] = {
        {1, true, true}, {0, false, false}, {2, false, true}};
    for (const auto& [automatic, yes, slider_enabled] : cases) {
        link::mirrors.auto_changeover = automatic;
        reopen_changeover();
        EXPECT_EQ(view::selected(Option_comm_auto_yes), yes);
        EXPECT_EQ(view::selected(Option_comm_auto_no), !yes);
        EXPECT_EQ(view::enabled(Slider2), slider_enabled);
        EXPECT_EQ(view::value(Slider2), 2);
        EXPECT_THAT(frames(), IsEmpty());
        close_changeover();
    }
}

TEST_F(ChangeoverWindow, TheDelaySliderStandsByTheDelay) {
    open_settings();
    const std::pair<double, double> positions[] = {{50, 1}, {500, 2}, {2000, 3}, {777, 1}};
    for (const auto& [delay, position] : positions) {
        link::mirrors.low_pressure_delay = delay;
        reopen_changeover();
        EXPECT_EQ(view::value(Slider2), position) << delay;
        EXPECT_EQ(link::mirrors.low_pressure_delay, delay);
        EXPECT_THAT(frames(), IsEmpty());
        close_changeover();
    }
}

TEST_F(ChangeoverWindow, ThePetrolCutOffIsShownFromVersion7Revision71On) {
    open_settings();
    const std::tuple<int, double, bool> units[] = {
        {7, 71, true}, {7, 70, false}, {6, 71, false}, {8, 71, true}, {8, 70, false}};
    for (const auto& [version, revision, shown] : units) {
        app::state.ecu_version = version;
        app::state.ecu_revision = revision;
        reopen_changeover();
        EXPECT_EQ(view::visible(Frame_cut_benz), shown) << version << "." << revision;
        close_changeover();
    }
}

TEST_F(ChangeoverWindow, TheInjectionTimeIsShownRoundedToTensTiesToEven) {
    open_settings();
    const std::pair<double, const char*> shown[] = {
        {1234, "1230"}, {1235, "1240"}, {1225, "1220"}, {0, "0"}, {65535, "65540"}};
    for (const auto& [held, expected] : shown) {
        link::mirrors.cut_off_inj_time = held;
        reopen_changeover();
        EXPECT_EQ(text(Text_123), expected);
        close_changeover();
    }
}

TEST_F(ChangeoverWindow, OptionsDoNothingWhileThePollingFlagLocksThem) {
    open_changeover();
    app::state.settings_panel_open = false;
    inside_program([] { form1::Timer6.on(); });
    run_for(600); // the watchdog
    ASSERT_TRUE(app::state.poll_enabled);
    click_all_options();
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(Option3.look.pointer, Pointer::normal);
    operator_enters(Text_rpm, "1700"); // the fields know no lock
    run_for(1000);
    EXPECT_THAT(writes(), ElementsAre(Write(121, 1700)));
}

TEST_F(ChangeoverWindow, WithTheSettingsPanelOpenTheWatchdogLeavesTheOptionsUnlocked) {
    start_by_dialog();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    reopen_changeover();
    run_for(5000);
    EXPECT_FALSE(app::state.poll_enabled);
    operator_clicks(opt_perm);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(122, 1)));
}

TEST_F(ChangeoverWindow, ExitGivesTheMainWindowBackAtOnceAndGoesHalfASecondLater) {
    open_changeover();
    acquisizione::Timer_tinj.on();
    operator_clicks(Command1);
    EXPECT_TRUE(busy(Command1));
    EXPECT_FALSE(view::enabled(Command1));
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_FALSE(acquisizione::Timer_tinj.is_on());
    run_for(499);
    EXPECT_TRUE(Form3.loaded);
    EXPECT_TRUE(busy(Command1));
    run_for(1);
    EXPECT_FALSE(Form3.loaded);
    EXPECT_EQ(Command1.look.pointer, Pointer::normal);
    app::state.ui_loading = false;
    run_for(399); // the main window's activation waits 400 inside the last 300
    EXPECT_FALSE(app::state.ui_loading);
    run_for(1);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(1600);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_THAT(frames(), IsEmpty());
}

// The handlers of the main window are silent from then on, until the engine button.
TEST_F(ChangeoverWindow, AfterExitTheMainWindowWritesNothingUntilTheEngineButton) {
    open_changeover();
    close_changeover();
    operator_drags(form1::Slider1[0], 10);
    run_for(1000);
    EXPECT_THAT(frames(), IsEmpty());
    operator_clicks(form1::Command_engine);
    run_for(1000);
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    mark();
    operator_drags(form1::Slider1[0], 11);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(32, 11)));
}

TEST_F(ChangeoverWindow, OnTheDialogsRoadTheWatchdogBringsThePollingBack) {
    start_by_dialog();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    reopen_changeover();
    app::state.settings_panel_open = false; // as saving an injection time leaves it
    close_changeover();
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
    EXPECT_TRUE(app::state.ui_loading);
}

TEST_F(ChangeoverWindow, OnTheDirectRoadNothingBringsThePollingBackButTheEngineButton) {
    open_changeover();
    app::state.settings_panel_open = false;
    close_changeover();
    run_for(10000);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_THAT(frames(), IsEmpty()); // nor is the unit read anew
    operator_clicks(form1::Command_engine);
    run_for(2000);
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

TEST_F(ChangeoverWindow, ClosedByItsFrameInTheMiddleOfAWriteItGivesTheMainWindowBack) {
    open_changeover();
    operator_clicks(opt_norm);
    run_for(100);
    operator_closes(Form3);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_FALSE(Form3.loaded);
    run_for(2000);
    EXPECT_THAT(writes(), ElementsAre(Write(122, 0), Write(23, 0)));
    operator_clicks(form1::Command_engine);
    run_for(2000);
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

TEST_F(ChangeoverWindow, AVisitIsFoundAgainAtTheNext) {
    open_changeover();
    operator_clicks(opt_acc);
    run_for(1000);
    operator_enters(Text1, "1234");
    run_for(1000);
    operator_drags(Slider2, 3);
    run_for(1000);
    operator_clicks(Option1);
    run_for(1000);
    EXPECT_EQ(unit->parameter(122), 3);
    EXPECT_EQ(unit->parameter(47), 123);
    EXPECT_EQ(unit->parameter(106), 2000);
    EXPECT_EQ(unit->parameter(41), 7);
    close_changeover();
    reopen_changeover();
    EXPECT_TRUE(view::selected(opt_acc));
    EXPECT_EQ(text(Text1), "1230");
    EXPECT_EQ(view::value(Slider2), 3);
    EXPECT_TRUE(view::selected(Option1));
    // The second time the injection time's window is there already; all else is as the first time.
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.poll_enabled);
    operator_clicks(opt_perm);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(122, 1)));
}

// With the flag standing, the main window's activation would read the unit from the start.
TEST_F(ChangeoverWindow, LeavingClearsThePollingFlag) {
    open_changeover();
    app::state.poll_enabled = true;
    operator_closes(Form3);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(10000);
    EXPECT_THAT(frames(), IsEmpty());
}

} // namespace
} // namespace zol::tests
