// The two gain sliders of the engine panel and the buttons that move the lower one.
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

class GainSliders : public WarmCar {};

TEST_F(GainSliders, RaisingTheGainOnLpgPullsThePowerGainAlongAndWritesItTwice) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250);
    run_for(1800);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(3, 1250)), At(1200, Write(4, 1050)),
                                     At(1400, Write(4, 1050)), At(1800, Send(3))));
    EXPECT_EQ(view::value(Slider_power), 1050);
    EXPECT_EQ(unit->parameter(3), 1250);
    EXPECT_EQ(unit->parameter(4), 1050);
    EXPECT_EQ(mirrors.ktar_low, 1250);
    EXPECT_EQ(mirrors.ktar_high, 1050);
}

TEST_F(GainSliders, AGainIsTakenFromItsSliderBehindTheWaitNotAheadOfIt) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250);
    run_for(399);
    EXPECT_NE(mirrors.ktar_low, 1250);
    run_for(1);
    EXPECT_EQ(mirrors.ktar_low, 1250);
    run_for(399);
    EXPECT_NE(mirrors.ktar_high, 1050);
    run_for(1);
    EXPECT_EQ(mirrors.ktar_high, 1050);
    run_for(5000);
    operator_drags(Slider_power, 1400);
    run_for(399);
    EXPECT_EQ(mirrors.ktar_high, 1050);
    run_for(1);
    EXPECT_EQ(mirrors.ktar_high, 1400);
}

TEST_F(GainSliders, TheMarkedStretchStaysAtTheGainThatWasRead) {
    start_during_a_poll();
    const double read = Slider_ktar.look.selection_length;
    EXPECT_EQ(read, Slider_ktar.look.value - 1001);
    operator_drags(Slider_ktar, 1300);
    run_for(3000);
    EXPECT_EQ(Slider_ktar.look.value, 1300);
    EXPECT_EQ(Slider_ktar.look.selection_length, read);
}

TEST_F(GainSliders, ThePollingGoesOnBesideTheRestOnceThePowerGainHasMoved) {
    start_between_polls();
    operator_drags(Slider_ktar, 1250);
    run_for(1750);
    // The telegram's 300 ms end the last 400 ms before their time: both stand on one timer.
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(3, 1250)), At(1200, Write(4, 1050)),
                                     At(1400, Write(4, 1050)), At(1450, Send(3))));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

TEST_F(GainSliders, PointerAndTipsFollowTheWholeMove) {
    start_during_a_poll();
    follow({&Form1, &Slider_ktar, &Slider_power});
    operator_drags(Slider_ktar, 1250);
    run_for(1800);
    EXPECT_THAT(changes, ElementsAre("0 Slider_ktar at 1250", "0 Slider_ktar tip 249",
                                     "0 Form1 hourglass", "800 Slider_power at 1050",
                                     "800 Slider_power tip 49", "1400 Form1 normal pointer"))
        << "the nested move gives the pointer back first";
}

TEST_F(GainSliders, TheTipsAreSetAnewAtTheEndOfAMove) {
    start_during_a_poll();
    const auto blot_tips = [this] {
        inside_program([] {
            view::set_tip(Slider_ktar, "?");
            view::set_tip(Slider_power, "?");
        });
    };
    operator_drags(Slider_ktar, 1190); // the power gain stays at 1001
    run_for(100);
    blot_tips();
    run_for(700);
    EXPECT_EQ(Slider_power.look.tip + " " + Slider_ktar.look.tip, "0 ?");
    run_for(400);
    EXPECT_EQ(Slider_ktar.look.tip, "189");
    run_for(1000);
    operator_drags(Slider_power, 1400);
    run_for(100);
    blot_tips();
    run_for(1000);
    EXPECT_EQ(Slider_power.look.tip + " " + Slider_ktar.look.tip, "399 ?");
}

TEST_F(GainSliders, TheTipShowsTheGainAboveUnityWhileTheSliderIsDragged) {
    start_during_a_poll();
    inside_program([] { view::operator_acts::drag_on(Slider_ktar, 1300); });
    EXPECT_EQ(Slider_ktar.look.tip, "299");
    inside_program([] { view::operator_acts::drag_on(Slider_power, 1001); });
    inside_program([] { view::operator_acts::drag_on(Slider_power, 1402); });
    EXPECT_EQ(Slider_power.look.tip, "401");
    EXPECT_EQ(view::focus(), &Form1);
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty()) << "nothing is written before the drag ends";
}

TEST_F(GainSliders, LettingGoOfAGainOrAttenuationSliderWhereItWasLeavesTheKeysToTheWindow) {
    start_during_a_poll();
    for (view::Widget* slider : {&Slider_ktar, &Slider_power, &Slider_attenuazione}) {
        operator_drags(*slider, view::value(*slider));
        EXPECT_EQ(view::focus(), &Form1) << slider->name;
    }
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(GainSliders, AtTheEndOfAMoveThePollingRunsAndTheWindowHasTheKeys) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(1400);
    EXPECT_TRUE(state.poll_enabled) << "the nested move lets it run in the middle";
    run_for(400);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_EQ(view::focus(), &Form1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(polls_in(400));
}

TEST_F(GainSliders, OnPetrolNoCalibrationPressureIsWritten) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1500);
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1500), Write(4, 1300), Write(4, 1300)));
    EXPECT_EQ(unit->parameter(104), 1200);
}

TEST_F(GainSliders, OnGasTheShownPressureIsWrittenAsTheCalibrationPressure) {
    start_during_a_poll();
    change_over_to_gas();
    while (!Timer_stato_sistema.is_on())
        run_for(1);
    while (Timer_stato_sistema.is_on())
        run_for(1);
    mark();
    operator_drags(Slider_ktar, 1500);
    run_for(1800);
    const int shown = std::stoi(view::text(LabeL_pressure));
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(3, 1500)), At(1200, Write(4, 1300)),
                                     At(1400, Write(4, 1300)), At(1800, Write(104, shown))));
    EXPECT_EQ(mirrors.calibration_pressure, shown);
    run_for(399);
    EXPECT_EQ(port->sent.size(), 4u);
    run_for(1);
    EXPECT_EQ(port->sent.size(), 5u) << "the polling goes on 400 ms after the last write";
    run_for(1000);
    EXPECT_EQ(view::text(Label_pressione_taratura), std::to_string(shown));
    EXPECT_EQ(unit->parameter(104), shown);
}

TEST_F(GainSliders, OnGasWithoutAPressureSensorNoPressureIsWritten) {
    unit->set_parameter(sim::par::pressure_sensor, 0);
    start_during_a_poll();
    change_over_to_gas();
    forget_wire();
    operator_drags(Slider_ktar, 1500);
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1500), Write(4, 1300), Write(4, 1300)));
}

TEST_F(GainSliders, APowerGainThatDoesNotMoveIsWrittenOnce) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1190); // 990 is raised to 1001, where the slider stands
    run_for(1200);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Write(3, 1190)), At(800, Write(4, 1001))));
    EXPECT_TRUE(Timer_stato_sistema.is_on());
}

TEST_F(GainSliders, MovingThePowerGainLeavesTheOtherWhereItIs) {
    start_during_a_poll();
    follow({&Form1, &Slider_ktar, &Slider_power});
    operator_drags(Slider_power, 1400);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(600);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(4, 1400))));
    EXPECT_THAT(changes, ElementsAre("0 Slider_power at 1400", "0 Slider_power tip 399",
                                     "0 Form1 hourglass", "600 Form1 normal pointer"));
    EXPECT_EQ(mirrors.ktar_high, 1400);
    EXPECT_EQ(mirrors.ktar_low, 1200);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_EQ(view::focus(), &Form1);
    run_for(100);
    EXPECT_EQ(unit->parameter(4), 1400);
    EXPECT_EQ(unit->parameter(3), 1200);
}

TEST_F(GainSliders, WhileTheProgramFillsItsWidgetsTheGainsWriteNothing) {
    start_during_a_poll();
    inside_program([] {
        state.ui_loading = true;
        view::set_pointer(Form1, Pointer::hourglass);
        view::set_focus(Text2);
        view::set_value_and_run_handler(Slider_power, 1300);
        EXPECT_EQ(view::focus(), &Text2);
        EXPECT_EQ(Form1.look.pointer, Pointer::hourglass);
        view::set_value_and_run_handler(Slider_ktar, 1300);
    });
    // The lower gain's handler gives focus and pointer all the same.
    EXPECT_EQ(view::focus(), &Form1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_EQ(mirrors.ktar_low, 1200);
    EXPECT_EQ(mirrors.ktar_high, 1001);
}

TEST_F(GainSliders, TheButtonsShiftTheLowerGainByAHundred) {
    start_during_a_poll();
    operator_clicks(Command7);
    run_for(2500);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1300), Write(4, 1100), Write(4, 1100)));
    EXPECT_EQ(Slider_ktar.look.tip, "299");
    EXPECT_EQ(view::focus(), &Form1);
    forget_wire();
    operator_clicks(Command8);
    run_for(2500);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1200), Write(4, 1001), Write(4, 1001)));
    EXPECT_EQ(Slider_ktar.look.tip, "199");
}

TEST_F(GainSliders, AtTheEndsOfTheScaleTheButtonsChangeNothing) {
    start_during_a_poll();
    inside_program([] {
        view::place_value(Slider_ktar, 1701);
        state.ui_loading = true;
    });
    operator_clicks(Command7);
    EXPECT_EQ(view::value(Slider_ktar), 1701) << "1801 is rejected, not clamped";
    EXPECT_EQ(Slider_ktar.look.tip, "700") << "the tip is refreshed all the same";
    EXPECT_FALSE(state.ui_loading);
    EXPECT_EQ(view::focus(), &Form1);
    inside_program([] { view::place_value(Slider_ktar, 1100); });
    operator_clicks(Command8);
    EXPECT_EQ(view::value(Slider_ktar), 1100);
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(GainSliders, TheButtonsReachTheVeryEndsOfTheScale) {
    start_during_a_poll();
    inside_program([] { view::place_value(Slider_ktar, 1700); });
    operator_clicks(Command7);
    run_for(2500);
    EXPECT_EQ(unit->parameter(3), 1800);
    EXPECT_EQ(unit->parameter(4), 1600);
}

TEST_F(GainSliders, AStepOfTheKeyboardDuringAMoveRunsInsideItsWait) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250);
    run_for(100);
    operator_presses(Form1, 39);
    run_for(3500);
    // The nested step writes 1260 for both; the outer move then writes what the slider shows.
    EXPECT_THAT(timed_commands(), ElementsAre(At(500, Write(3, 1260)), At(1300, Write(4, 1060)),
                                              At(1500, Write(4, 1060)), At(1900, Write(3, 1260)),
                                              At(2300, Write(4, 1060))));
    EXPECT_EQ(view::value(Slider_ktar), 1260);
}

TEST_F(GainSliders, ACablePulledDuringAMoveLeavesTheWindowAlive) {
    start_during_a_poll();
    follow({&Form1});
    operator_drags(Slider_ktar, 1250);
    run_for(600);
    port->unplugged = true;
    run_for(1200);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Write(3, 1250))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1400 Form1 normal pointer"));
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_EQ(mirrors.ktar_high, 1050) << "the mirror is the record, sent or not";
    port->unplugged = false;
    EXPECT_TRUE(polls_in(1000));
}

class GainSlidersOnMethane : public WarmCar {
  protected:
    GainSlidersOnMethane() : WarmCar(0) {}
};

TEST_F(GainSlidersOnMethane, ThePowerGainFollowsAt300BelowAndNeverBelow1001) {
    start_during_a_poll();
    operator_drags(Slider_ktar, 1250);
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1250), Write(4, 1001)));
    forget_wire();
    operator_drags(Slider_ktar, 1500);
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(3, 1500), Write(4, 1200), Write(4, 1200)));
}

} // namespace
} // namespace zol::tests
