// The other controls of the calibration: attenuation, temperature correction, rpm multiplier.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class Attenuation : public WarmCar {};

TEST_F(Attenuation, TheSliderIsLockedWhileItsValueIsWritten) {
    start_during_a_poll();
    follow({&Form1, &Slider_attenuazione, &Label_attenuazione});
    operator_drags(Slider_attenuazione, 30);
    run_for(1000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(101, 30))));
    EXPECT_THAT(changes,
                ElementsAre("0 Slider_attenuazione at 30", "0 Form1 hourglass",
                            "0 Slider_attenuazione disabled", "400 Label_attenuazione says 30- ",
                            "600 Form1 normal pointer", "600 Slider_attenuazione enabled"));
    EXPECT_EQ(unit->parameter(101), 30);
    EXPECT_EQ(mirrors.attenuation, 30);
    EXPECT_EQ(view::focus(), &Form1);
}

TEST_F(Attenuation, ThePollingComesBackOnlyByTheWatchdog) {
    start_during_a_poll();
    operator_drags(Slider_attenuazione, 30);
    run_for(600);
    EXPECT_FALSE(polls_in(5000));
    EXPECT_FALSE(state.poll_enabled);
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(100));
}

TEST_F(Attenuation, NothingIsWrittenWhileTheProgramFillsItsWidgets) {
    start_during_a_poll();
    inside_program([] {
        state.ui_loading = true;
        view::set_value_and_run_handler(Slider_attenuazione, 90);
    });
    EXPECT_TRUE(view::enabled(Slider_attenuazione));
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(mirrors.attenuation, 20);
    EXPECT_EQ(view::text(Label_attenuazione), "- 20") << "the first read has a form of its own";
}

TEST_F(Attenuation, ACablePulledDuringTheWriteUnlocksTheSliderAllTheSame) {
    start_during_a_poll();
    operator_drags(Slider_attenuazione, 30);
    run_for(100);
    port->unplugged = true;
    run_for(499);
    EXPECT_FALSE(view::enabled(Slider_attenuazione));
    run_for(1);
    EXPECT_TRUE(view::enabled(Slider_attenuazione));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_THAT(writes(), IsEmpty());
}

class TemperatureCorrection : public WarmCar {
  protected:
    void open_settings_panel() {
        start_during_a_poll();
        operator_clicks(Command_impostazioni);
        run_for(1000);
        mark();
    }
};

TEST_F(TemperatureCorrection, IsWrittenAtOnceWithNoWaitBeforeIt) {
    open_settings_panel();
    follow({&Form1, &Slider3});
    operator_drags(Slider3, 7);
    run_for(1000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(52, 7))));
    EXPECT_THAT(changes,
                ElementsAre("0 Slider3 at 7", "0 Form1 hourglass", "200 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(52), 7);
    EXPECT_EQ(mirrors.temperature_correction, 7);
}

TEST_F(TemperatureCorrection, DoesNotTouchThePolling) {
    start_between_polls();
    inside_program([] {
        view::set_value_and_run_handler(Slider3, 5);
        EXPECT_TRUE(state.poll_enabled);
    });
    run_for(1000);
    EXPECT_EQ(timed().at(0), At(0, Write(52, 5)));
    EXPECT_GE(std::ranges::count(frames(), Send(3)), 2);
}

TEST_F(TemperatureCorrection, WritesAlsoWhileTheProgramFillsItsWidgets) {
    start_during_a_poll();
    inside_program([] {
        state.ui_loading = true;
        view::set_value_and_run_handler(Slider3, 6);
    });
    run_for(500);
    EXPECT_THAT(writes(), ElementsAre(Write(52, 6)));
}

class TemperatureBeyondScale : public TemperatureCorrection {
  protected:
    // As the unit's value is shown after the connection dialog.
    void show_15() {
        open_settings_panel();
        inside_program([] {
            view::set_range(Slider3, 0, 15);
            view::place_value(Slider3, 15);
        });
    }
};

class DragFromBeyondScale : public TemperatureBeyondScale,
                            public testing::WithParamInterface<double> {};

TEST_P(DragFromBeyondScale, OperatorSetsNoMoreThan10) {
    show_15();
    operator_drags(Slider3, GetParam());
    run_for(500);
    EXPECT_EQ(view::value(Slider3), std::min(10.0, GetParam()));
    EXPECT_EQ(Slider3.look.max, 10);
    EXPECT_THAT(writes(), ElementsAre(Write(52, std::min(10, static_cast<int>(GetParam())))));
}

INSTANTIATE_TEST_SUITE_P(Values, DragFromBeyondScale, testing::Values(0, 9, 10, 11, 12, 14));

TEST_F(TemperatureBeyondScale, HandleLetGoWhereItWasWritesNothing) {
    show_15();
    operator_drags(Slider3, 15);
    run_for(500);
    EXPECT_EQ(view::value(Slider3), 15);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TemperatureBeyondScale, DragShowsNoMoreThan10OnItsWay) {
    show_15();
    inside_program([] { view::operator_acts::drag_on(Slider3, 13); });
    EXPECT_EQ(view::value(Slider3), 10);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TemperatureCorrection, APulledCableStillGivesThePointerBack) {
    open_settings_panel();
    port->unplugged = true;
    operator_drags(Slider3, 9);
    EXPECT_EQ(Form1.look.pointer, Pointer::hourglass);
    run_for(200);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(mirrors.temperature_correction, 9);
}

class RpmMultiplier : public WarmCar {};

TEST_F(RpmMultiplier, MoreRpmLowersTheMultiplierByFive) {
    start_during_a_poll();
    follow({&Form1, &Command_rpm_piu, &Command_rpm_meno});
    operator_clicks(Command_rpm_piu);
    EXPECT_FALSE(state.poll_enabled);
    run_for(2000);
    EXPECT_THAT(timed(), ElementsAre(At(200, Write(1, 5))));
    EXPECT_THAT(changes,
                ElementsAre("0 Command_rpm_piu disabled", "0 Command_rpm_piu hourglass",
                            "0 Form1 hourglass", "0 Command_rpm_meno disabled",
                            "800 Command_rpm_piu enabled", "800 Command_rpm_meno enabled",
                            "800 Command_rpm_piu own pointer", "800 Form1 normal pointer"));
    EXPECT_EQ(view::focus(), &Text2);
    EXPECT_EQ(unit->parameter(1), 5);
}

TEST_F(RpmMultiplier, LessRpmRaisesTheMultiplierByFive) {
    start_during_a_poll();
    follow({&Form1, &Command_rpm_piu, &Command_rpm_meno});
    operator_clicks(Command_rpm_meno);
    run_for(699);
    inside_program([] { view::set_focus(Text2); }); // wherever the keyboard goes meanwhile
    run_for(1301);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(1, 15))));
    EXPECT_THAT(changes,
                ElementsAre("0 Command_rpm_meno disabled", "0 Command_rpm_meno hourglass",
                            "0 Form1 hourglass", "0 Command_rpm_piu disabled",
                            "700 Command_rpm_piu enabled", "700 Command_rpm_meno enabled",
                            "700 Command_rpm_meno own pointer", "700 Form1 normal pointer"));
    EXPECT_EQ(view::focus(), &Form1);
    EXPECT_EQ(unit->parameter(1), 15);
}

TEST_F(RpmMultiplier, TheTimerGoesOnButThePollingStaysForbiddenUntilTheWatchdog) {
    start_between_polls();
    operator_clicks(Command_rpm_piu);
    run_for(800);
    EXPECT_TRUE(Timer_stato_sistema.is_on());
    EXPECT_FALSE(state.poll_enabled);
    run_for(50);
    EXPECT_FALSE(Timer_stato_sistema.is_on()) << "its first tick ends it";
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(100));
}

TEST_F(RpmMultiplier, TheTimerGoesOnBehindLessRpmToo) {
    start_between_polls();
    operator_clicks(Command_rpm_meno);
    run_for(699);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(1);
    EXPECT_TRUE(Timer_stato_sistema.is_on());
    EXPECT_FALSE(state.poll_enabled);
}

TEST_F(RpmMultiplier, AWatchdogThatWasFasterIsStoppedAndWaitedFor) {
    start_between_polls();
    inside_program([] { Timer6.on(); });
    run_for(350); // between two passes again, and 150 ms from the watchdog's tick
    mark();
    operator_clicks(Command_rpm_piu);
    run_for(149);
    EXPECT_FALSE(state.poll_enabled);
    run_for(1);
    EXPECT_TRUE(state.poll_enabled) << "the watchdog";
    run_for(1850);
    // The pass that it began takes the 200 ms over, from 200 to 500, and runs on from 550.
    EXPECT_EQ(timed().at(0), At(200, Send(3)));
    ASSERT_EQ(timed_commands().size(), 1u);
    EXPECT_EQ(timed_commands()[0], At(1000, Write(1, 5)));
}

TEST_F(RpmMultiplier, AWatchdogThatWasFasterCostsHalfASecond) {
    start_during_a_poll();
    operator_clicks(Command_rpm_piu);
    run_for(199);
    inside_program([] {
        Timer_stato_sistema.tick = nullptr; // nothing is asked beside it
        Timer_stato_sistema.on();
    });
    run_for(501);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_THAT(timed(), ElementsAre(At(700, Write(1, 5))));
}

TEST_F(RpmMultiplier, BelowFiveItGoesBackUp) {
    unit->set_parameter(1, 7);
    start_during_a_poll();
    for (const int expected : {2, 5, 5}) {
        operator_clicks(Command_rpm_piu);
        run_for(1000);
        EXPECT_EQ(unit->parameter(1), expected);
        EXPECT_EQ(mirrors.rpm_multiplier, expected);
    }
    EXPECT_THAT(writes(), ElementsAre(Write(1, 2), Write(1, 5), Write(1, 5)));
}

TEST_F(RpmMultiplier, HasNoUpperLimitAndWhatHasNoBytesIsNotSent) {
    unit->set_parameter(1, 65530);
    start_during_a_poll();
    operator_clicks(Command_rpm_meno);
    run_for(1000);
    follow({&Command_rpm_meno});
    mark();
    operator_clicks(Command_rpm_meno);
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(mirrors.rpm_multiplier, 65540);
    EXPECT_THAT(changes,
                ElementsAre("0 Command_rpm_meno disabled", "0 Command_rpm_meno hourglass",
                            "700 Command_rpm_meno enabled", "700 Command_rpm_meno own pointer"));
}

TEST_F(RpmMultiplier, ASecondPressDuringTheFirstFindsBothButtonsLocked) {
    start_during_a_poll();
    operator_clicks(Command_rpm_piu);
    run_for(100);
    operator_clicks(Command_rpm_piu);
    operator_clicks(Command_rpm_meno);
    run_for(2000);
    EXPECT_THAT(writes(), ElementsAre(Write(1, 5)));
}

TEST_F(RpmMultiplier, APulledCableUnlocksTheButtonsAllTheSame) {
    start_during_a_poll();
    operator_clicks(Command_rpm_meno);
    run_for(100);
    port->unplugged = true;
    run_for(600);
    EXPECT_TRUE(view::enabled(Command_rpm_piu));
    EXPECT_TRUE(view::enabled(Command_rpm_meno));
    EXPECT_EQ(Command_rpm_meno.look.pointer, Pointer::custom);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace zol::tests
