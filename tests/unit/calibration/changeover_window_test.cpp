// The changeover window as a whole: how it is filled, what it locks and how it is left.
#include "app/message_catalogue.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using namespace form3;
using app::state;
using link::mirrors;
using testing::Contains;

class ChangeoverWindow : public LogicTest {
  protected:
    // A unit that has everything the window shows.
    ChangeoverWindow() : LogicTest({.family = 4, .version = 7, .revision = 71}) {}

    void open_changeover_after_dialog() {
        start_by_dialog();
        operator_clicks(form1::Command_impostazioni, 1000ms);
        reopen_changeover();
    }
    // The window filled from this value, as if the unit had given it. Closes an open window first.
    void show(double& mirror, double value) {
        if (Form3.loaded) close_changeover();
        mirror = value;
        reopen_changeover();
        EXPECT_EQ(mirror, value);
        EXPECT_THAT(frames(), IsEmpty());
    }
    static const view::Widget* selected_of(const std::vector<view::Widget*>& options) {
        const auto found =
            std::ranges::find_if(options, [](auto* each) { return view::selected(*each); });
        return found == options.end() ? nullptr : *found;
    }
};

TEST_F(ChangeoverWindow, ShowsTheValuesOfTheUnit) {
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
        set_parameter(number, value);
    open_settings();
    operator_clicks(form1::Command303);
    EXPECT_THAT((std::vector{text(Text_rpm), text(Text_press_comm), text(Text_123), text(Text_124),
                             text(Text1), text(Text2)}),
                ElementsAre("1450", "850", "1230", "1555", "1230", "500"));
    EXPECT_TRUE(view::selected(opt_acc));
    EXPECT_TRUE(view::selected(Option_comm_auto_yes));
    EXPECT_TRUE(view::selected(Option2));
    EXPECT_EQ(view::value(Slider2), 2);
    EXPECT_TRUE(view::enabled(Slider2));
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(ChangeoverWindow, DisablesTheMainWindow) {
    open_settings();
    operator_clicks(form1::Command303);
    EXPECT_TRUE(Form3.shown);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_TRUE(state.ui_loading);
    EXPECT_EQ(text(Form3), *app::message(1134) + "...");
    EXPECT_EQ(text(lbl_rpm_comm), *app::message(1168) + "g/min.");
}

TEST_F(ChangeoverWindow, GivesItsBackgroundToFramesLabelsOptions) {
    open_settings();
    inside_program([] { view::load(Form3); });
    view::set_back(Form3, view::yellow);
    inside_program([] { Form3.on.load(); });
    EXPECT_EQ(state.panel_colour, view::yellow);
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
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(ChangeoverWindow, LeavesTheInjectionTimeWindowLoaded) {
    open_changeover();
    close_changeover();
    EXPECT_FALSE(Form3.loaded);
    EXPECT_TRUE(acquisizione::acquisizione.loaded);
    EXPECT_FALSE(acquisizione::acquisizione.shown);
}

// It runs no load handler then, so the changeover window does that handler's work.
TEST_F(ChangeoverWindow, StopsPollingWithALoadedInjectionTimeWindow) {
    open_changeover();
    close_changeover();
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

TEST_F(ChangeoverWindow, ScalesBothWindowsToTheScreen) {
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

// --- Filling

TEST_F(ChangeoverWindow, SelectsTheStartModeOfTheUnit) {
    open_settings();
    const std::pair<double, const view::Widget*> modes[] = {
        {0, &opt_norm}, {1, &opt_perm}, {3, &opt_acc}, {2, nullptr}, {7, nullptr}};
    for (const auto& [mode, selected] : modes) {
        show(mirrors.forced_start_mode, mode);
        EXPECT_EQ(selected_of({&opt_norm, &opt_perm, &opt_acc}), selected) << mode;
    }
}

TEST_F(ChangeoverWindow, SelectsTheCutOffOfTheUnit) {
    open_settings();
    const std::pair<double, const view::Widget*> modes[] = {
        {7, &Option1}, {5, &Option2}, {2, &Option3}, {0, nullptr}};
    for (const auto& [mode, selected] : modes) {
        show(mirrors.gas_cut_off_mode, mode);
        EXPECT_EQ(selected_of({&Option1, &Option2, &Option3}), selected) << mode;
    }
}

TEST_F(ChangeoverWindow, DelayIsDisabledWithoutAutomaticChangeover) {
    open_settings();
    mirrors.low_pressure_delay = 500;
    const std::tuple<double, bool, bool> cases[] = {
        {1, true, true}, {0, false, false}, {2, false, true}};
    for (const auto& [automatic, yes, delay_enabled] : cases) {
        show(mirrors.auto_changeover, automatic);
        EXPECT_EQ(view::selected(Option_comm_auto_yes), yes);
        EXPECT_EQ(view::selected(Option_comm_auto_no), !yes);
        EXPECT_EQ(view::enabled(Slider2), delay_enabled);
        EXPECT_EQ(view::value(Slider2), 2);
    }
}

TEST_F(ChangeoverWindow, DelaySliderShowsTheDelay) {
    open_settings();
    for (const auto& [delay, position] : {std::pair{50, 1}, {500, 2}, {2000, 3}, {777, 1}}) {
        show(mirrors.low_pressure_delay, delay);
        EXPECT_EQ(view::value(Slider2), position) << delay;
    }
}

TEST_F(ChangeoverWindow, PetrolCutOffIsShownFromVersion7Revision71On) {
    open_settings();
    const std::tuple<int, double, bool> units[] = {
        {7, 71, true}, {7, 70, false}, {6, 71, false}, {8, 71, true}, {8, 70, false}};
    for (const auto& [version, revision, shown] : units) {
        state.ecu_version = version;
        show(state.ecu_revision, revision);
        EXPECT_EQ(view::visible(Frame_cut_benz), shown) << version << "." << revision;
    }
}

TEST_F(ChangeoverWindow, InjectionTimeIsRoundedToTensTiesToEven) {
    open_settings();
    const std::pair<double, const char*> times[] = {
        {1234, "1230"}, {1235, "1240"}, {1225, "1220"}, {0, "0"}, {65535, "65540"}};
    for (const auto& [held, shown] : times) {
        show(mirrors.cut_off_inj_time, held);
        EXPECT_EQ(text(Text_123), shown);
    }
}

TEST_F(ChangeoverWindow, ShowsItsOwnChangesTheNextTime) {
    open_changeover();
    operator_clicks(opt_acc, 1000ms);
    operator_enters(Text1, "1234", 1000ms);
    operator_drags(Slider2, 3, 1000ms);
    operator_clicks(Option1, 1000ms);
    close_changeover();
    reopen_changeover();
    EXPECT_TRUE(view::selected(opt_acc));
    EXPECT_EQ(text(Text1), "1230");
    EXPECT_EQ(view::value(Slider2), 3);
    EXPECT_TRUE(view::selected(Option1));
    // The injection time's window is loaded already; all else is as at the first opening.
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(state.poll_enabled);
    operator_clicks(opt_perm, 1000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(122, 1)));
}

// --- The lock of the options

TEST_F(ChangeoverWindow, PollingFlagLocksTheOptionsOnly) {
    open_changeover();
    state.settings_panel_open = false;
    inside_program([] { form1::Timer6.on(); });
    run_for(600); // the watchdog
    ASSERT_TRUE(state.poll_enabled);
    for (auto* option : {&opt_norm, &opt_perm, &opt_acc, &Option1, &Option2, &Option3,
                         &Option_comm_auto_yes, &Option_comm_auto_no}) {
        operator_clicks(*option, 2000ms);
    }
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(Option3.look.pointer, view::Pointer::normal);
    operator_enters(Text_rpm, "1700", 1000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(121, 1700)));
}

TEST_F(ChangeoverWindow, WatchdogLeavesTheOptionsFreeOnTheSettingsPanel) {
    open_changeover_after_dialog();
    run_for(5000);
    EXPECT_FALSE(state.poll_enabled);
    operator_clicks(opt_perm, 1000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(122, 1)));
}

// --- Leaving

TEST_F(ChangeoverWindow, ExitUnloadsItAfterHalfASecond) {
    open_changeover();
    acquisizione::Timer_tinj.on();
    follow({&Command1, &form1::Form1});
    operator_clicks(Command1);
    EXPECT_FALSE(acquisizione::Timer_tinj.is_on());
    EXPECT_EQ(ms_until([] { return !Form3.loaded; }), 500);
    EXPECT_THAT(changes,
                testing::UnorderedElementsAre("0 Command1 hourglass", "0 Command1 disabled",
                                              "0 Form1 enabled", "500 Command1 normal pointer"));
    run_for(2000);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_THAT(frames(), IsEmpty());
}

// The main window's activation waits 400 ms inside the last 300 of the exit.
TEST_F(ChangeoverWindow, ExitSetsTheFillingMark) {
    open_changeover();
    operator_clicks(Command1, 500ms);
    state.ui_loading = false;
    EXPECT_EQ(ms_until([] { return state.ui_loading; }), 900);
}

TEST_F(ChangeoverWindow, WatchdogRestartsThePollingAfterTheDialog) {
    open_changeover_after_dialog();
    state.settings_panel_open = false; // as saving an injection time leaves it
    close_changeover();
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_THAT(frames(), Contains(Send(3)));
    EXPECT_TRUE(state.ui_loading);
}

TEST_F(ChangeoverWindow, OnlyTheEngineButtonRestartsThePolling) {
    open_changeover();
    state.settings_panel_open = false;
    close_changeover();
    run_for(10'000);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_THAT(frames(), IsEmpty()) << "nor is the unit read again";
    operator_clicks(form1::Command_engine, 2000ms);
    EXPECT_THAT(frames(), Contains(Send(3)));
}

TEST_F(ChangeoverWindow, CloseButtonDuringAWriteFreesTheMainWindow) {
    open_changeover();
    operator_clicks(opt_norm, 100ms);
    operator_closes(Form3);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_FALSE(Form3.loaded);
    run_for(2000);
    EXPECT_THAT(writes(), ElementsAre(Write(122, 0), Write(23, 0)));
    operator_clicks(form1::Command_engine, 2000ms);
    EXPECT_THAT(frames(), Contains(Send(3)));
}

// With the flag set, the main window's activation would read the unit again.
TEST_F(ChangeoverWindow, LeavingClearsThePollingFlag) {
    open_changeover();
    state.poll_enabled = true;
    operator_closes(Form3);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_TRUE(state.ui_loading);
    run_for(10'000);
    EXPECT_THAT(frames(), IsEmpty());
}

} // namespace
} // namespace zol::tests
