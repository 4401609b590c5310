// The two gain sliders of the engine panel, and the buttons that move the slider of the lower gain.
// `Slider_ktar` is the lower gain, for low load (parameter 3). `Slider_power` is the power gain,
// for high load (parameter 4). On LPG a move of the lower gain sets the power gain 200 below it.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;
using view::Pointer;

class GainSliders : public WarmCar {
  protected:
    using WarmCar::WarmCar;
    // The tips of both sliders: how far each gain is above the minimum, 1001.
    static std::string tips() { return Slider_ktar.look.tip + " " + Slider_power.look.tip; }
    void set_tips(const std::string& tip) {
        inside_program([&] {
            view::set_tip(Slider_ktar, tip);
            view::set_tip(Slider_power, tip);
        });
    }
};

// The handler of the power gain runs inside that of the lower gain, which then writes it again.
TEST_F(GainSliders, RaisingTheGainRaisesThePowerGain) {
    start_during_a_poll();
    follow({&Form1, &Slider_ktar, &Slider_power});
    operator_drags(Slider_ktar, 1250);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(1800);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(3, 1250)), At(1200, Write(4, 1050)),
                                     At(1400, Write(4, 1050)), At(1800, Send(3))));
    EXPECT_THAT(changes, ElementsAre("0 Slider_ktar at 1250", "0 Slider_ktar tip 249",
                                     "0 Form1 hourglass", "800 Slider_power at 1050",
                                     "800 Slider_power tip 49", "1400 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(3), 1250);
    EXPECT_EQ(unit->parameter(4), 1050);
    EXPECT_TRUE(focused(Form1));
}

TEST_F(GainSliders, MirrorIsSetAfterTheWait) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250);
    EXPECT_EQ(ms_until([] { return mirrors.ktar_low == 1250; }), 400);
    EXPECT_EQ(ms_until([] { return mirrors.ktar_high == 1050; }), 800);
    run_for(5000);
    mark();
    operator_drags(Slider_power, 1400);
    EXPECT_EQ(ms_until([] { return mirrors.ktar_high == 1400; }), 400);
}

TEST_F(GainSliders, MarkedRangeKeepsTheGainReadFromTheUnit) {
    start_during_a_poll();
    const double read = Slider_ktar.look.selection_length;
    EXPECT_EQ(read, Slider_ktar.look.value - 1001);
    operator_drags(Slider_ktar, 1300, 3000ms);
    EXPECT_EQ(Slider_ktar.look.value, 1300);
    EXPECT_EQ(Slider_ktar.look.selection_length, read);
}

// The poll at 1450 ms waits 300 ms on the timer of the handler's last wait of 400 ms, which
// therefore ends early.
TEST_F(GainSliders, MovedPowerGainRestartsThePolling) {
    start_between_polls();
    operator_drags(Slider_ktar, 1250, 1750ms);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(3, 1250)), At(1200, Write(4, 1050)),
                                     At(1400, Write(4, 1050)), At(1450, Send(3))));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(GainSliders, TipIsSetAgainAtTheEndOfAMove) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1190); // the power gain stays at 1001
    run_for(100);
    set_tips("?");
    run_for(700);
    EXPECT_EQ(tips(), "? 0");
    run_for(400);
    EXPECT_EQ(tips(), "189 0");
    run_for(1000);
    operator_drags(Slider_power, 1400, 100ms);
    set_tips("?");
    run_for(1000);
    EXPECT_EQ(tips(), "? 399");
}

TEST_F(GainSliders, TipFollowsTheDrag) {
    start_during_a_poll();
    inside_program([] { view::operator_acts::drag_on(Slider_ktar, 1300); });
    inside_program([] { view::operator_acts::drag_on(Slider_power, 1001); });
    inside_program([] { view::operator_acts::drag_on(Slider_power, 1402); });
    EXPECT_EQ(tips(), "299 401");
    EXPECT_TRUE(focused(Form1));
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty()) << "nothing is written before the drag ends";
}

TEST_F(GainSliders, DragWithoutAMoveReleasesTheFocus) {
    start_during_a_poll();
    for (view::Widget* slider : {&Slider_ktar, &Slider_power, &Slider_attenuazione}) {
        operator_drags(*slider, view::value(*slider));
        EXPECT_TRUE(focused(Form1)) << slider->name;
    }
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(GainSliders, ShownPressureIsWrittenOnGas) {
    start_during_a_poll();
    change_over_to_gas();
    while (!Timer_stato_sistema.is_on())
        run_for(1);
    while (Timer_stato_sistema.is_on())
        run_for(1);
    mark();
    operator_drags(Slider_ktar, 1500, 2200ms);
    const int shown = std::stoi(text(LabeL_pressure));
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(3, 1500)), At(1200, Write(4, 1300)),
                                     At(1400, Write(4, 1300)), At(1800, Write(104, shown)),
                                     At(2200, Send(3))));
    EXPECT_EQ(mirrors.calibration_pressure, shown);
    run_for(1000);
    EXPECT_EQ(text(Label_pressione_taratura), std::to_string(shown));
    EXPECT_EQ(unit->parameter(104), shown);
}

TEST_F(GainSliders, NoPressureIsWrittenWithoutASensor) {
    set_parameter(sim::par::pressure_sensor, 0);
    start_during_a_poll();
    change_over_to_gas();
    mark();
    operator_drags(Slider_ktar, 1500, 3000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1500), Write(4, 1300), Write(4, 1300)));
}

// 200 below 1190 is 990. It is raised to the minimum, 1001, which the slider already has.
TEST_F(GainSliders, UnmovedPowerGainIsWrittenOnce) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1190, 1200ms);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Write(3, 1190)), At(800, Write(4, 1001))));
    EXPECT_TRUE(Timer_stato_sistema.is_on());
}

TEST_F(GainSliders, MovingPowerGainLeavesLowerGainUnchanged) {
    start_during_a_poll();
    follow({&Form1, &Slider_ktar, &Slider_power});
    operator_drags(Slider_power, 1400);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(600);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_TRUE(focused(Form1));
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(4, 1400))));
    EXPECT_THAT(changes, ElementsAre("0 Slider_power at 1400", "0 Slider_power tip 399",
                                     "0 Form1 hourglass", "600 Form1 normal pointer"));
    run_for(100);
    EXPECT_EQ(unit->parameter(4), 1400);
    EXPECT_EQ(unit->parameter(3), 1200);
}

// During the filling, the handler of the lower gain still moves the focus to the window and resets
// the pointer; that of the power gain does not.
TEST_F(GainSliders, FillingWritesNothing) {
    start_during_a_poll();
    inside_program([] {
        state.ui_loading = true;
        view::set_pointer(Form1, Pointer::hourglass);
        view::set_focus(Text2);
        view::set_value_and_run_handler(Slider_power, 1300);
        EXPECT_TRUE(focused(Text2));
        EXPECT_TRUE(busy(Form1));
        view::set_value_and_run_handler(Slider_ktar, 1300);
    });
    EXPECT_TRUE(focused(Form1));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_EQ(mirrors.ktar_low, 1200);
    EXPECT_EQ(mirrors.ktar_high, 1001);
}

TEST_F(GainSliders, ButtonsMoveTheLowerGainByAHundred) {
    start_during_a_poll();
    operator_clicks(Command7, 2500ms);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1300), Write(4, 1100), Write(4, 1100)));
    EXPECT_EQ(tips(), "299 99");
    EXPECT_TRUE(focused(Form1));
    forget_wire();
    operator_clicks(Command8, 2500ms);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1200), Write(4, 1001), Write(4, 1001)));
    EXPECT_EQ(tips(), "199 0");
}

TEST_F(GainSliders, ButtonsCanReachTheEndsOfTheScale) {
    start_during_a_poll();
    for (const auto& [button, from, to] :
         {std::tuple{&Command7, 1700, 1800}, {&Command8, 1101, 1001}}) {
        inside_program([&] { view::place_value(Slider_ktar, from); });
        operator_clicks(*button, 2500ms);
        EXPECT_EQ(unit->parameter(3), to);
    }
}

// A step that would leave the scale is rejected, not shortened.
TEST_F(GainSliders, StepBeyondTheScaleMovesNoSlider) {
    start_during_a_poll();
    inside_program([] {
        view::place_value(Slider_ktar, 1701);
        state.ui_loading = true;
    });
    operator_clicks(Command7);
    EXPECT_EQ(view::value(Slider_ktar), 1701);
    EXPECT_EQ(Slider_ktar.look.tip, "700") << "the tip is updated anyway";
    EXPECT_FALSE(state.ui_loading);
    EXPECT_TRUE(focused(Form1));
    inside_program([] { view::place_value(Slider_ktar, 1100); });
    operator_clicks(Command8);
    EXPECT_EQ(view::value(Slider_ktar), 1100);
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
}

// The key's handler runs during the first wait of the drag's handler. The drag's handler writes
// after its wait what the sliders then show, so it also writes 1260 and 1060.
TEST_F(GainSliders, KeyDuringAMoveRunsInsideItsWait) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250, 100ms);
    operator_presses(Form1, 39, 3500ms); // the right arrow
    EXPECT_THAT(timed_commands(), ElementsAre(At(500, Write(3, 1260)), At(1300, Write(4, 1060)),
                                              At(1500, Write(4, 1060)), At(1900, Write(3, 1260)),
                                              At(2300, Write(4, 1060))));
    EXPECT_EQ(view::value(Slider_ktar), 1260);
}

TEST_F(GainSliders, MirrorIsSetThoughTheCableIsPulled) {
    start_during_a_poll();
    port->unplugged = true;
    operator_drags(Slider_ktar, 1250, 1200ms);
    EXPECT_EQ(mirrors.ktar_high, 1050);
}

class GainSlidersOnMethane : public GainSliders {
  protected:
    GainSlidersOnMethane() : GainSliders(0) {}
};

TEST_F(GainSlidersOnMethane, PowerGainIs300LowerDownTo1001) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250, 3000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1250), Write(4, 1001)));
    forget_wire();
    operator_drags(Slider_ktar, 1500, 3000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1500), Write(4, 1200), Write(4, 1200)));
}

} // namespace
} // namespace zol::tests
