// The shortcuts of the main window, except automatic tuning and parameter edit.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using view::Answer;
using view::Pointer;

constexpr int space = 32, page_up = 33, page_down = 34, end_key = 35, home = 36, left = 37, up = 38,
              right = 39, down = 40, f_key = 70, g_key = 71;
constexpr int shift = 1, ctrl = 2, alt = 4;

class Keyboard : public WarmCar {
  protected:
    // The slider's value after a key, with nothing written.
    double after_key(view::Widget& slider, double from, int key) {
        inside_program([&] {
            state.ui_loading = true;
            view::set_value_and_run_handler(slider, from);
        });
        operator_presses(Form1, key);
        EXPECT_TRUE(focused(Text2));
        return view::value(slider);
    }
    void press_forced_start(Answer answer, int after_ms = 0) {
        screen.answer_message("Forced start", answer, after_ms);
        operator_presses(Form1, f_key, ctrl);
    }
    void press_changeover_speed(const std::string& question, Answer answer, int after_ms = 0) {
        screen.answer_message(question, answer, after_ms);
        operator_presses(Form1, g_key, ctrl);
    }
    void rpm_says(const std::string& caption) {
        inside_program([&] { view::set_text(Label_rpm, caption); });
    }
};

TEST_F(Keyboard, OtherKeysDoNothing) {
    start_during_a_poll();
    inside_program([] { view::set_focus(Slider_power); });
    for (const int key : {space, page_up, page_down, left, right, up, down})
        for (const int modifiers : {shift, ctrl, alt, shift | ctrl, shift | alt, ctrl | alt, 7})
            operator_presses(Form1, key, modifiers);
    for (const int key : {f_key, g_key, 84, 86})
        for (const int modifiers : {0, shift, alt, shift | ctrl, shift | alt, ctrl | alt, 7})
            operator_presses(Form1, key, modifiers);
    for (const int key : {home, end_key, 9, 13, 27, 65, 72, 112, 0, -1, 256})
        for (const int modifiers : {0, ctrl})
            operator_presses(Form1, key, modifiers);
    EXPECT_TRUE(focused(Slider_power));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(state.poll_enabled);
    run_for(2000);
    EXPECT_THAT(timed_commands(), IsEmpty());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
    EXPECT_THAT(screen.input_boxes, IsEmpty());
    EXPECT_EQ(view::value(Slider_ktar), 1200);
}

TEST_F(Keyboard, KeysDoNothingWhileADialogIsOpen) {
    start_during_a_poll();
    inside_program([] { view::set_enabled(Form1, false); });
    operator_presses(Form1, right);
    operator_presses(Form1, space);
    operator_presses(Form1, f_key, ctrl, 2000ms);
    EXPECT_THAT(timed_commands(), IsEmpty());
}

// --- The steps of the sliders

TEST_F(Keyboard, KeyMovesItsSliderWithinTheScale) {
    start_during_a_poll();
    const std::tuple<view::Widget*, int, int, int> steps[] = {
        {&Slider_power, page_up, 1300, 1310},   {&Slider_power, page_down, 1300, 1290},
        {&Slider_power, page_up, 1795, 1800},   {&Slider_power, page_up, 1800, 1800},
        {&Slider_power, page_down, 1008, 1001}, {&Slider_ktar, left, 1300, 1290},
        {&Slider_ktar, right, 1300, 1310},      {&Slider_ktar, left, 1005, 1001},
        {&Slider_ktar, left, 1001, 1001},       {&Slider_ktar, right, 1799, 1800},
        {&Slider_attenuazione, up, 50, 45},     {&Slider_attenuazione, down, 50, 55},
        {&Slider_attenuazione, up, 3, 0},       {&Slider_attenuazione, up, 0, 0},
        {&Slider_attenuazione, down, 148, 150},
    };
    for (const auto& [slider, key, from, to] : steps)
        EXPECT_EQ(after_key(*slider, from, key), to) << slider->name << " " << from << " " << key;
}

// A step that reaches the limit updates none. "Up" updates the tip of another slider.
TEST_F(Keyboard, TipIsUpdatedAfterAStepInsideTheScaleOnly) {
    start_during_a_poll();
    after_key(Slider_ktar, 1290, right);
    const std::tuple<view::Widget*, int, int, const char*> steps[] = {
        {&Slider_power, page_up, 1300, "old 309"}, {&Slider_power, page_down, 1300, "old 289"},
        {&Slider_power, page_up, 1790, "old old"}, {&Slider_power, page_down, 1011, "old old"},
        {&Slider_ktar, left, 1300, "289 old"},     {&Slider_ktar, right, 1300, "309 old"},
        {&Slider_ktar, left, 1011, "old old"},     {&Slider_attenuazione, up, 50, "0 old"},
        {&Slider_attenuazione, up, 5, "old old"},  {&Slider_attenuazione, down, 50, "old old"},
    };
    for (const auto& [slider, key, from, tips] : steps) {
        inside_program([] {
            view::set_tip(Slider_ktar, "old");
            view::set_tip(Slider_power, "old");
        });
        after_key(*slider, from, key);
        EXPECT_EQ(Slider_ktar.look.tip + " " + Slider_power.look.tip, tips)
            << slider->name << " " << from << " " << key;
    }
}

TEST_F(Keyboard, StepWritesAsADragDoes) {
    start_during_a_poll();
    operator_presses(Form1, right, 1800ms);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Write(3, 1210)), At(1200, Write(4, 1010)),
                                              At(1400, Write(4, 1010))));
    EXPECT_TRUE(focused(Text2));
    run_for(200);
    mark();
    operator_presses(Form1, page_up, 700ms);
    EXPECT_THAT(writes(), ElementsAre(Write(4, 1020)));
    operator_presses(Form1, down, 700ms);
    EXPECT_EQ(unit->parameter(101), 25);
}

TEST_F(Keyboard, StepAtTheEndOfTheScaleWritesNothing) {
    set_parameter(3, 1001);
    start_during_a_poll();
    operator_presses(Form1, left, 2000ms);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_TRUE(focused(Text2));
}

TEST_F(Keyboard, WindowHandlesAKeyBeforeTheFocusedControl) {
    start_during_a_poll();
    inside_program([] { view::set_focus(Command7); });
    operator_presses(Form1, left);
    EXPECT_EQ(view::value(Slider_ktar), 1190);
    run_for(2000);
    EXPECT_TRUE(focused(Text2));
}

// --- Space changes the fuel over

TEST_F(Keyboard, SpaceOnPetrolChangesOverToGas) {
    start_during_a_poll();
    follow({&Form1});
    operator_presses(Form1, space);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_EQ(ms_until([] { return state.poll_enabled; }), 800);
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
    operator_presses(Form1, space, 900ms);
    EXPECT_THAT(timed_commands(), ElementsAre(At(400, Send(4))));
    EXPECT_EQ(unit->fuel(), sim::Gas::Fuel::petrol);
}

// In the fuel states of a requested changeover and of missing gas pressure.
class SpaceInFuelState : public Keyboard, public testing::WithParamInterface<int> {};

TEST_P(SpaceInFuelState, GoesBackToPetrol) {
    start_during_a_poll();
    port->alter = telegrams_with(26, GetParam());
    run_for(1000);
    ASSERT_TRUE(GetParam() == 2 ? state.gas_requested : state.no_press);
    forget_wire();
    operator_presses(Form1, space, 900ms);
    ASSERT_EQ(timed_commands().size(), 1u);
    EXPECT_EQ(timed_commands()[0].frame, Send(4));
}

INSTANTIATE_TEST_SUITE_P(Unfinished, SpaceInFuelState, testing::Values(2, 5));

// The outer wait ends with the nested ones.
TEST_F(Keyboard, SpaceDuringAChangeoverRunsInsideItsWait) {
    start_during_a_poll();
    operator_presses(Form1, space, 100ms);
    operator_presses(Form1, space, 1000ms);
    EXPECT_THAT(timed_commands(), ElementsAre(At(500, Send(22)), At(900, Send(22))));
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(Keyboard, PulledCableLeavesTheTimesOfSpace) {
    start_during_a_poll();
    operator_presses(Form1, space, 200ms);
    port->unplugged = true;
    EXPECT_EQ(ms_until([] { return state.poll_enabled; }), 800);
    EXPECT_THAT(timed_commands(), IsEmpty());
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

// --- Ctrl+F: forced start

TEST_F(Keyboard, ForcedStartAnsweredYesIsWritten) {
    start_during_a_poll();
    follow({&Form1});
    press_forced_start(Answer::yes);
    EXPECT_FALSE(state.poll_enabled);
    run_for(1200);
    const view::MessageBox& box = screen.message_boxes.at(0);
    EXPECT_EQ(box.text, "Forced start on gas: Yes switches it on, No switches it off.");
    EXPECT_EQ(box.title, "Forced START");
    EXPECT_EQ(box.buttons, view::Buttons::yes_no);
    EXPECT_EQ(box.icon, view::Icon::none);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(122, 1))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1100 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(122), 1);
}

TEST_F(Keyboard, ForcedStartAnsweredNoWrites0) {
    set_parameter(122, 3);
    start_during_a_poll();
    press_forced_start(Answer::no);
    run_for(1200);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(122, 0))));
    EXPECT_EQ(link::mirrors.forced_start_mode, 3) << "the changeover window keeps what it shows";
}

TEST_F(Keyboard, PollingGoesOnDuringTheQuestion) {
    start_during_a_poll();
    run_for(320); // the pass is over: the next one begins while the box is open
    mark();
    press_forced_start(Answer::no, 3000);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal) << "no hourglass before the answer";
    run_for(3000);
    EXPECT_GE(std::ranges::count(frames(), Send(3)), 8);
    run_for(1500);
    EXPECT_THAT(writes(), ElementsAre(Write(122, 0)));
}

TEST_F(Keyboard, ForcedStartAsksWithoutALanguageFile) {
    std::filesystem::remove(folder / "language");
    start_during_a_poll();
    screen.answer_message("", Answer::no);
    operator_presses(Form1, f_key, ctrl, 1200ms);
    EXPECT_EQ(screen.message_boxes.at(0).title, "Forced START");
    EXPECT_EQ(screen.message_boxes.at(0).text, "");
}

TEST_F(Keyboard, CablePulledDuringTheQuestionLeavesItsTimes) {
    start_during_a_poll();
    press_forced_start(Answer::yes);
    port->unplugged = true;
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(ms_until([] { return !busy(Form1); }), 1100);
    EXPECT_THAT(writes(), IsEmpty());
}

// --- Ctrl+G: the shown speed becomes the changeover speed

TEST_F(Keyboard, ShownSpeedBecomesTheChangeoverSpeed) {
    start_during_a_poll();
    port->alter = telegrams_with(6, 2345);
    run_for(1000);
    while (Timer_stato_sistema.is_on())
        run_for(1);
    mark();
    follow({&Form1});
    press_changeover_speed("rpm: 2345", Answer::yes);
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

TEST_F(Keyboard, SpeedAloneIsAskedWithoutALanguage) {
    start_during_a_poll();
    state.current_language = "xx";
    rpm_says("1111");
    press_changeover_speed("", Answer::no);
    run_for(1200);
    EXPECT_EQ(screen.message_boxes.at(0).text, "1111");
}

TEST_F(Keyboard, SpeedIsTakenBeforeTheQuestion) {
    start_during_a_poll();
    rpm_says("1111");
    press_changeover_speed("rpm: 1111", Answer::yes, 2000);
    rpm_says("3333");
    run_for(4000);
    EXPECT_THAT(writes(), ElementsAre(Write(121, 1111)));
}

TEST_F(Keyboard, DeclinedSpeedLeavesThePollingRunning) {
    start_between_polls();
    press_changeover_speed("rpm: ", Answer::no);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_TRUE(polls_in(2000));
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(Keyboard, UnreadableSpeedCountsAs0) {
    start_during_a_poll();
    rpm_says("\u00fc--");
    press_changeover_speed("rpm: 0", Answer::yes);
    run_for(1200);
    EXPECT_THAT(writes(), ElementsAre(Write(121, 0)));
}

// --- The polling after both

TEST_F(Keyboard, OnlyTheWatchdogRestartsThePolling) {
    start_during_a_poll();
    press_forced_start(Answer::no);
    run_for(1200);
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(1000));
    press_changeover_speed("rpm: ", Answer::yes);
    run_for(2500);
    EXPECT_TRUE(polls_in(1000));
}

TEST_F(Keyboard, WatchdogLeavesThePollingStoppedOnTheSettings) {
    start_during_a_poll();
    inside_program([] { Timer6.on(); });
    operator_clicks(Command_impostazioni, 2000ms);
    press_forced_start(Answer::yes);
    run_for(2000);
    EXPECT_FALSE(polls_in(5000));
    operator_clicks(Command_engine, 1000ms);
    EXPECT_TRUE(polls_in(1000));
}

} // namespace
} // namespace zol::tests
