// The other controls of the calibration: attenuation, temperature correction, rpm multiplier.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;
using view::Pointer;

class Attenuation : public WarmCar {};

TEST_F(Attenuation, SliderIsLockedWhileItsValueIsWritten) {
    start_during_a_poll();
    follow({&Form1, &Slider_attenuazione, &Label_attenuazione});
    operator_drags(Slider_attenuazione, 30, 1000ms);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(101, 30))));
    EXPECT_THAT(changes,
                ElementsAre("0 Slider_attenuazione at 30", "0 Form1 hourglass",
                            "0 Slider_attenuazione disabled", "400 Label_attenuazione says 30- ",
                            "600 Form1 normal pointer", "600 Slider_attenuazione enabled"));
    EXPECT_EQ(unit->parameter(101), 30);
    EXPECT_EQ(mirrors.attenuation, 30);
    EXPECT_TRUE(focused(Form1));
}

TEST_F(Attenuation, FillingWritesNothing) {
    start_during_a_poll();
    inside_program([] {
        state.ui_loading = true;
        view::set_value_and_run_handler(Slider_attenuazione, 90);
    });
    EXPECT_TRUE(view::enabled(Slider_attenuazione));
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(mirrors.attenuation, 20);
    EXPECT_EQ(text(Label_attenuazione), "- 20") << "the form of the first read";
}

class TemperatureCorrection : public WarmCar {};

TEST_F(TemperatureCorrection, IsWrittenAtOnce) {
    open_settings();
    follow({&Form1, &Slider3});
    operator_drags(Slider3, 7, 1000ms);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(52, 7))));
    EXPECT_THAT(changes,
                ElementsAre("0 Slider3 at 7", "0 Form1 hourglass", "200 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(52), 7);
    EXPECT_EQ(mirrors.temperature_correction, 7);
}

TEST_F(TemperatureCorrection, LeavesThePollingRunning) {
    start_between_polls();
    inside_program([] {
        view::set_value_and_run_handler(Slider3, 5);
        EXPECT_TRUE(state.poll_enabled);
    });
    run_for(1000);
    EXPECT_EQ(timed().at(0), At(0, Write(52, 5)));
    EXPECT_GE(std::ranges::count(frames(), Send(3)), 2);
}

TEST_F(TemperatureCorrection, IsWrittenDuringTheFilling) {
    start_during_a_poll();
    inside_program([] {
        state.ui_loading = true;
        view::set_value_and_run_handler(Slider3, 6);
    });
    run_for(500);
    EXPECT_THAT(writes(), ElementsAre(Write(52, 6)));
}

TEST_F(TemperatureCorrection, PulledCableLeavesItsTimes) {
    open_settings();
    port->unplugged = true;
    operator_drags(Slider3, 9);
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(ms_until([] { return !busy(Form1); }), 200);
    EXPECT_EQ(mirrors.temperature_correction, 9);
}

// After the connection dialog the slider shows a value of the unit up to 20.
class TemperatureBeyondScale : public TemperatureCorrection {
  protected:
    void show_15() {
        open_settings();
        inside_program([] {
            view::set_range(Slider3, 0, 15);
            view::place_value(Slider3, 15);
        });
    }
};

TEST_F(TemperatureBeyondScale, OperatorSetsNoMoreThan10) {
    show_15();
    for (const int value : {0, 9, 10, 11, 12, 14}) {
        SCOPED_TRACE(value);
        inside_program([] {
            view::set_range(Slider3, 0, 15);
            view::place_value(Slider3, 15);
        });
        mark();
        operator_drags(Slider3, value, 500ms);
        EXPECT_EQ(view::value(Slider3), std::min(10, value));
        EXPECT_EQ(Slider3.look.max, 10);
        EXPECT_THAT(writes(), ElementsAre(Write(52, std::min(10, value))));
    }
}

TEST_F(TemperatureBeyondScale, HandleLetGoWhereItWasWritesNothing) {
    show_15();
    operator_drags(Slider3, 15, 500ms);
    EXPECT_EQ(view::value(Slider3), 15);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TemperatureBeyondScale, DragShowsNoMoreThan10) {
    show_15();
    inside_program([] { view::operator_acts::drag_on(Slider3, 13); });
    EXPECT_EQ(view::value(Slider3), 10);
    EXPECT_THAT(writes(), IsEmpty());
}

class RpmMultiplier : public WarmCar {
  protected:
    void expect_locked_until(int ms, const std::string& clicked, const std::string& other) {
        const std::string end = std::to_string(ms) + " ";
        EXPECT_THAT(changes, testing::UnorderedElementsAre(
                                 "0 " + clicked + " disabled", "0 " + clicked + " hourglass",
                                 "0 Form1 hourglass", "0 " + other + " disabled",
                                 end + clicked + " enabled", end + other + " enabled",
                                 end + clicked + " own pointer", end + "Form1 normal pointer"));
    }
};

TEST_F(RpmMultiplier, MoreRpmLowersItByFive) {
    start_during_a_poll();
    follow({&Form1, &Command_rpm_piu, &Command_rpm_meno});
    operator_clicks(Command_rpm_piu);
    EXPECT_FALSE(state.poll_enabled);
    run_for(2000);
    EXPECT_THAT(timed(), ElementsAre(At(200, Write(1, 5))));
    expect_locked_until(800, "Command_rpm_piu", "Command_rpm_meno");
    EXPECT_TRUE(focused(Text2));
    EXPECT_EQ(unit->parameter(1), 5);
}

TEST_F(RpmMultiplier, LessRpmRaisesItByFive) {
    start_during_a_poll();
    follow({&Form1, &Command_rpm_piu, &Command_rpm_meno});
    operator_clicks(Command_rpm_meno, 699ms);
    inside_program([] { view::set_focus(Text2); });
    run_for(1301);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(1, 15))));
    expect_locked_until(700, "Command_rpm_meno", "Command_rpm_piu");
    EXPECT_TRUE(focused(Form1));
    EXPECT_EQ(unit->parameter(1), 15);
}

// The pass that the watchdog began takes the 200 ms over, from 200 to 500, and goes on at 550.
TEST_F(RpmMultiplier, PollingThatTheWatchdogRestartedIsStopped) {
    start_between_polls();
    inside_program([] { Timer6.on(); });
    run_for(350); // between two passes again, and 150 ms from the watchdog's tick
    mark();
    operator_clicks(Command_rpm_piu);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_EQ(ms_until([] { return state.poll_enabled; }), 150);
    run_for(1850);
    EXPECT_EQ(timed().at(0), At(200, Send(3)));
    EXPECT_THAT(timed_commands(), ElementsAre(At(1000, Write(1, 5))));
}

// Without its tick, the restarted timer costs the 500 ms of a second stop.
TEST_F(RpmMultiplier, RestartedTimerCostsHalfASecond) {
    start_during_a_poll();
    operator_clicks(Command_rpm_piu, 199ms);
    inside_program([] {
        Timer_stato_sistema.tick = nullptr;
        Timer_stato_sistema.on();
    });
    run_for(501);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_THAT(timed(), ElementsAre(At(700, Write(1, 5))));
}

TEST_F(RpmMultiplier, GoesUpAgainBelowFive) {
    set_parameter(1, 7);
    start_during_a_poll();
    for (const int expected : {2, 5, 5}) {
        mark();
        operator_clicks(Command_rpm_piu, 1000ms);
        EXPECT_THAT(writes(), ElementsAre(Write(1, expected)));
        EXPECT_EQ(unit->parameter(1), expected);
        EXPECT_EQ(mirrors.rpm_multiplier, expected);
    }
}

TEST_F(RpmMultiplier, ValueWithoutBytesIsNotSent) {
    set_parameter(1, 65530);
    start_during_a_poll();
    follow({&Form1, &Command_rpm_piu, &Command_rpm_meno});
    operator_clicks(Command_rpm_meno, 1000ms);
    mark();
    operator_clicks(Command_rpm_meno, 1000ms);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(mirrors.rpm_multiplier, 65540) << "it has no upper limit";
    expect_locked_until(700, "Command_rpm_meno", "Command_rpm_piu");
}

TEST_F(RpmMultiplier, SecondPressFindsBothButtonsLocked) {
    start_during_a_poll();
    operator_clicks(Command_rpm_piu, 100ms);
    operator_clicks(Command_rpm_piu);
    operator_clicks(Command_rpm_meno, 2000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(1, 5)));
}

} // namespace
} // namespace zol::tests
