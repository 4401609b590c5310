// The fitter's shortcuts, but for automatic tuning and parameter edit.
#include "calibration/engine_panel.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Answer;
using view::Pointer;

constexpr int space = 32, page_up = 33, page_down = 34, end_key = 35, home = 36, left = 37, up = 38,
              right = 39, down = 40;
constexpr int shift = 1, ctrl = 2, alt = 4;

class Keyboard : public WarmCar {
  protected:
    // The slider's value after a key, with nothing written: the step alone.
    double after_key(view::Widget& slider, double from, int key) {
        inside_program([&] {
            state.ui_loading = true;
            view::set_value_and_run_handler(slider, from);
        });
        operator_presses(Form1, key);
        EXPECT_EQ(view::focus(), &Text2);
        return view::value(slider);
    }
};

TEST_F(Keyboard, ShiftAltAndUnlistedKeysDoNothing) {
    start_during_a_poll();
    inside_program([] { view::set_focus(Slider_power); });
    for (const int key : {space, page_up, page_down, left, right, up, down})
        for (const int state_of_shift :
             {shift, ctrl, alt, shift | ctrl, shift | alt, ctrl | alt, 7})
            operator_presses(Form1, key, state_of_shift);
    for (const int key : {70, 71, 84, 86})
        for (const int state_of_shift : {0, shift, alt, shift | ctrl, shift | alt, ctrl | alt, 7})
            operator_presses(Form1, key, state_of_shift);
    for (const int key : {home, end_key, 9, 13, 27, 65, 72, 112, 0, -1, 256})
        for (const int state_of_shift : {0, ctrl})
            operator_presses(Form1, key, state_of_shift);
    EXPECT_EQ(view::focus(), &Slider_power);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(state.poll_enabled);
    run_for(2000);
    EXPECT_THAT(timed_commands(), IsEmpty());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
    EXPECT_THAT(screen.input_boxes, IsEmpty());
    EXPECT_EQ(view::value(Slider_ktar), 1200);
}

TEST_F(Keyboard, ArrowsAndPagesMoveTheSlidersByTheirSteps) {
    start_during_a_poll();
    EXPECT_EQ(after_key(Slider_power, 1300, page_up), 1310);
    EXPECT_EQ(after_key(Slider_power, 1300, page_down), 1290);
    EXPECT_EQ(after_key(Slider_ktar, 1300, left), 1290);
    EXPECT_EQ(after_key(Slider_ktar, 1300, right), 1310);
    EXPECT_EQ(after_key(Slider_attenuazione, 50, up), 45) << "up lowers the attenuation";
    EXPECT_EQ(after_key(Slider_attenuazione, 50, down), 55);
}

TEST_F(Keyboard, TheStepsEndAtTheEndsOfTheScale) {
    start_during_a_poll();
    EXPECT_EQ(after_key(Slider_power, 1795, page_up), 1800);
    EXPECT_EQ(after_key(Slider_power, 1800, page_up), 1800);
    EXPECT_EQ(after_key(Slider_power, 1008, page_down), 1001);
    EXPECT_EQ(after_key(Slider_ktar, 1005, left), 1001);
    EXPECT_EQ(after_key(Slider_ktar, 1001, left), 1001);
    EXPECT_EQ(after_key(Slider_ktar, 1799, right), 1800);
    EXPECT_EQ(after_key(Slider_attenuazione, 3, up), 0);
    EXPECT_EQ(after_key(Slider_attenuazione, 0, up), 0);
    EXPECT_EQ(after_key(Slider_attenuazione, 148, down), 150);
}

TEST_F(Keyboard, ATipIsRefreshedBehindAStepInsideTheScaleOnly) {
    start_during_a_poll();
    const auto tips_after = [&](view::Widget& slider, double from, int key) {
        inside_program([] {
            view::set_tip(Slider_ktar, "old");
            view::set_tip(Slider_power, "old");
        });
        after_key(slider, from, key);
        return Slider_ktar.look.tip + " " + Slider_power.look.tip;
    };
    inside_program([] {
        state.ui_loading = true;
        view::set_value_and_run_handler(Slider_ktar, 1300);
    });
    EXPECT_EQ(tips_after(Slider_power, 1300, page_up), "old 309");
    EXPECT_EQ(tips_after(Slider_power, 1300, page_down), "old 289");
    EXPECT_EQ(tips_after(Slider_power, 1790, page_up), "old old") << "1800 is the limit itself";
    EXPECT_EQ(tips_after(Slider_power, 1011, page_down), "old old");
    EXPECT_EQ(tips_after(Slider_ktar, 1300, left), "289 old");
    EXPECT_EQ(tips_after(Slider_ktar, 1300, right), "309 old");
    EXPECT_EQ(tips_after(Slider_ktar, 1011, left), "old old");
    EXPECT_EQ(tips_after(Slider_attenuazione, 50, up), "0 old") << "that of another slider";
    EXPECT_EQ(tips_after(Slider_attenuazione, 5, up), "old old");
    EXPECT_EQ(tips_after(Slider_attenuazione, 50, down), "old old");
}

TEST_F(Keyboard, AStepWritesAsADragDoes) {
    start_during_a_poll();
    operator_presses(Form1, right);
    run_for(1800);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Write(3, 1210)), At(1200, Write(4, 1010)),
                                              At(1400, Write(4, 1010))));
    EXPECT_EQ(view::focus(), &Text2);
    run_for(200);
    mark();
    operator_presses(Form1, page_up);
    run_for(700);
    EXPECT_THAT(writes(), ElementsAre(Write(4, 1020)));
    operator_presses(Form1, down);
    run_for(700);
    EXPECT_EQ(unit->parameter(101), 25);
}

TEST_F(Keyboard, AtTheEndOfTheScaleAKeyWritesNothing) {
    unit->set_parameter(3, 1001);
    start_during_a_poll();
    operator_presses(Form1, left);
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(view::focus(), &Text2);
}

TEST_F(Keyboard, TheWindowSeesAKeyBeforeTheFieldThatIsBeingFilled) {
    start_during_a_poll();
    inside_program([] { view::set_focus(Command7); });
    operator_presses(Form1, left);
    EXPECT_EQ(view::value(Slider_ktar), 1190);
    run_for(2000);
    EXPECT_EQ(view::focus(), &Text2);
}

TEST_F(Keyboard, KeysDoNothingWhileADialogHasTheWord) {
    start_during_a_poll();
    inside_program([] { view::set_enabled(Form1, false); });
    operator_presses(Form1, right);
    operator_presses(Form1, space);
    operator_presses(Form1, 70, ctrl);
    run_for(2000);
    EXPECT_THAT(timed_commands(), IsEmpty());
}

TEST_F(Keyboard, SpaceOnPetrolGoesOverToGas) {
    start_during_a_poll();
    follow({&Form1});
    operator_presses(Form1, space);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(799);
    EXPECT_FALSE(state.poll_enabled);
    run_for(1);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Send(22))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "800 Form1 normal pointer"));
    run_for(3000);
    EXPECT_EQ(unit->fuel(), sim::Gas::Fuel::gas);
    EXPECT_TRUE(state.on_gas);
}

TEST_F(Keyboard, SpaceOnGasGoesBackToPetrol) {
    start_during_a_poll();
    change_over_to_gas();
    while (Timer_stato_sistema.is_on())
        run_for(1);
    mark();
    operator_presses(Form1, space);
    run_for(900);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Send(4))));
    EXPECT_EQ(unit->fuel(), sim::Gas::Fuel::petrol);
}

TEST_F(Keyboard, SpaceTakesBackAChangeoverThatIsStillWaiting) {
    start_during_a_poll();
    port->alter = telegrams_with(26, 2);
    run_for(1000);
    ASSERT_TRUE(state.gas_requested);
    forget_wire();
    operator_presses(Form1, space);
    run_for(900);
    ASSERT_EQ(timed_commands().size(), 1u);
    EXPECT_EQ(timed_commands()[0].frame, Send(4));
}

TEST_F(Keyboard, SpaceWithoutGasPressureGoesBackToPetrol) {
    start_during_a_poll();
    port->alter = telegrams_with(26, 5);
    run_for(1000);
    ASSERT_TRUE(state.no_press);
    forget_wire();
    operator_presses(Form1, space);
    run_for(900);
    ASSERT_EQ(timed_commands().size(), 1u);
    EXPECT_EQ(timed_commands()[0].frame, Send(4));
}

TEST_F(Keyboard, ASecondSpaceDuringTheFirstRunsInsideItsWait) {
    start_during_a_poll();
    operator_presses(Form1, space);
    run_for(100);
    operator_presses(Form1, space);
    run_for(1000);
    // The outer wait ends with the nested ones.
    EXPECT_THAT(timed_commands(), ElementsAre(At(500, Send(22)), At(900, Send(22))));
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(Keyboard, SpaceWithThePulledCableGivesPointerAndPollingBack) {
    start_during_a_poll();
    operator_presses(Form1, space);
    run_for(200);
    port->unplugged = true;
    run_for(600);
    EXPECT_THAT(timed_commands(), IsEmpty());
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(Keyboard, ForcedStartAnsweredYesIsWritten) {
    start_during_a_poll();
    follow({&Form1});
    screen.answer_message("Forced start", Answer::yes);
    operator_presses(Form1, 70, ctrl);
    EXPECT_FALSE(state.poll_enabled);
    run_for(1200);
    ASSERT_EQ(screen.message_boxes.size(), 1u);
    const view::MessageBox& box = screen.message_boxes[0];
    EXPECT_EQ(box.text, "Forced start on gas: Yes switches it on, No switches it off.");
    EXPECT_EQ(box.title, "Forced START");
    EXPECT_EQ(box.buttons, view::Buttons::yes_no);
    EXPECT_EQ(box.icon, view::Icon::none);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(122, 1))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1100 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(122), 1);
}

TEST_F(Keyboard, ForcedStartAnsweredNoWritesNought) {
    unit->set_parameter(122, 3);
    start_during_a_poll();
    screen.answer_message("Forced start", Answer::no);
    operator_presses(Form1, 70, ctrl);
    run_for(1200);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(122, 0))));
    EXPECT_EQ(link::mirrors.forced_start_mode, 3) << "the changeover window keeps what it shows";
}

TEST_F(Keyboard, ThePollingRunsOnBeneathTheQuestion) {
    start_during_a_poll();
    run_for(320); // the pass is over: the next one begins beneath the box
    mark();
    screen.answer_message("Forced start", Answer::no, 3000);
    operator_presses(Form1, 70, ctrl);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal) << "no hourglass before the answer";
    run_for(3000);
    EXPECT_GE(std::ranges::count(frames(), Send(3)), 8);
    run_for(1500);
    EXPECT_THAT(writes(), ElementsAre(Write(122, 0)));
}

TEST_F(Keyboard, ForcedStartWithNoTextToAskWithStillAsks) {
    std::filesystem::remove(folder / "language");
    start_during_a_poll();
    screen.answer_message("", Answer::no);
    operator_presses(Form1, 70, ctrl);
    run_for(1200);
    EXPECT_EQ(screen.message_boxes.at(0).title, "Forced START");
    EXPECT_EQ(screen.message_boxes.at(0).text, "");
}

TEST_F(Keyboard, TheShownSpeedBecomesTheChangeoverSpeed) {
    start_during_a_poll();
    port->alter = telegrams_with(6, 2345);
    run_for(1000);
    while (Timer_stato_sistema.is_on())
        run_for(1);
    mark();
    follow({&Form1});
    screen.answer_message("rpm: 2345", Answer::yes);
    operator_presses(Form1, 71, ctrl);
    run_for(1200);
    const view::MessageBox& box = screen.message_boxes.at(0);
    EXPECT_EQ(box.text, "Use the present engine speed as changeover speed? rpm: 2345");
    EXPECT_EQ(box.title, "RPM SWITCH");
    EXPECT_EQ(box.buttons, view::Buttons::yes_no);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(121, 2345))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1100 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(121), 2345);
    EXPECT_NE(link::mirrors.changeover_rpm, 2345) << "the changeover window keeps what it shows";
}

TEST_F(Keyboard, WithoutALanguageTheSpeedAloneIsTheQuestion) {
    start_during_a_poll();
    state.current_language = "xx";
    inside_program([] { view::set_text(Label_rpm, "1111"); });
    screen.answer_message("", Answer::no);
    operator_presses(Form1, 71, ctrl);
    run_for(1200);
    EXPECT_EQ(screen.message_boxes.at(0).text, "1111");
}

TEST_F(Keyboard, TheSpeedIsTakenBeforeTheQuestionAndDecliningChangesNothing) {
    start_during_a_poll();
    inside_program([] { view::set_text(Label_rpm, "1111"); });
    screen.answer_message("rpm: 1111", Answer::yes, 2000);
    operator_presses(Form1, 71, ctrl);
    inside_program([] { view::set_text(Label_rpm, "3333"); });
    run_for(4000);
    EXPECT_THAT(writes(), ElementsAre(Write(121, 1111)));
    forget_wire();
    screen.answer_message("rpm: ", Answer::no);
    operator_presses(Form1, 71, ctrl);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(Keyboard, DecliningTheSpeedLeavesThePollingRunning) {
    start_between_polls();
    screen.answer_message("rpm: ", Answer::no);
    operator_presses(Form1, 71, ctrl);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_TRUE(polls_in(400));
}

TEST_F(Keyboard, AnUnreadableSpeedCountsAsNought) {
    start_during_a_poll();
    inside_program([] { view::set_text(Label_rpm, "\u00fc--"); });
    screen.answer_message("rpm: 0", Answer::yes);
    operator_presses(Form1, 71, ctrl);
    run_for(1200);
    EXPECT_THAT(writes(), ElementsAre(Write(121, 0)));
}

TEST_F(Keyboard, AfterForcedStartAndSpeedThePollingComesBackOnlyByTheWatchdog) {
    start_during_a_poll();
    screen.answer_message("Forced start", Answer::no);
    operator_presses(Form1, 70, ctrl);
    run_for(1200);
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(1000));
    screen.answer_message("rpm: ", Answer::yes);
    operator_presses(Form1, 71, ctrl);
    run_for(2500);
    EXPECT_TRUE(polls_in(1000));
}

TEST_F(Keyboard, WithTheSettingsPanelOpenNotEvenTheWatchdogBringsThePollingBack) {
    start_during_a_poll();
    inside_program([] { Timer6.on(); });
    operator_clicks(Command_impostazioni);
    run_for(2000);
    screen.answer_message("Forced start", Answer::yes);
    operator_presses(Form1, 70, ctrl);
    run_for(2000);
    EXPECT_FALSE(polls_in(5000));
    operator_clicks(Command_engine);
    run_for(1000);
    EXPECT_TRUE(polls_in(1000));
}

TEST_F(Keyboard, ACablePulledUnderTheQuestionEndsInTheNormalPointer) {
    start_during_a_poll();
    screen.answer_message("Forced start", Answer::yes);
    operator_presses(Form1, 70, ctrl);
    port->unplugged = true;
    run_for(1099);
    EXPECT_EQ(Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace zol::tests
