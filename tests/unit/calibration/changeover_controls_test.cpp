// The controls of the changeover window: each writes at once, with its own wait.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using namespace form3;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class ChangeoverControls : public LogicTest {
  protected:
    ChangeoverControls() : LogicTest(sim::Options{.family = 4, .version = 7, .revision = 71}) {}
};

struct OptionCase {
    view::Widget& option;
    std::vector<Frame> writes;
    int wait_ms; // behind each of them
    double& mirror;
};

const OptionCase option_cases[] = {
    {opt_norm, {Write(122, 0), Write(23, 0)}, 600, link::mirrors.forced_start_mode},
    {opt_perm, {Write(122, 1)}, 600, link::mirrors.forced_start_mode},
    {opt_acc, {Write(122, 3)}, 600, link::mirrors.forced_start_mode},
    {Option1, {Write(41, 7)}, 900, link::mirrors.gas_cut_off_mode},
    {Option2, {Write(41, 5)}, 900, link::mirrors.gas_cut_off_mode},
    {Option3, {Write(41, 2), Write(47, 0)}, 500, link::mirrors.gas_cut_off_mode},
    {Option_comm_auto_yes, {Write(105, 1)}, 200, link::mirrors.auto_changeover},
    {Option_comm_auto_no, {Write(105, 0)}, 200, link::mirrors.auto_changeover},
};

TEST_F(ChangeoverControls, EachOptionWritesAtOnceAndWaitsBehindEachWrite) {
    open_changeover();
    link::mirrors.modular_changeover = link::mirrors.petrol_cut_off_rpm = 1;
    for (const OptionCase& each : option_cases) {
        SCOPED_TRACE(each.option.name);
        each.mirror = 99;
        mark();
        operator_clicks(each.option);
        const int total_ms = each.wait_ms * static_cast<int>(each.writes.size());
        run_for(total_ms - 1);
        EXPECT_TRUE(busy(each.option));
        run_for(1);
        EXPECT_EQ(each.option.look.pointer, Pointer::normal);
        std::vector<Timed> expected;
        for (const Frame& write : each.writes)
            expected.push_back(At(each.wait_ms * static_cast<int>(expected.size()), write));
        EXPECT_EQ(timed(), expected);
        EXPECT_EQ(each.mirror, each.writes[0].value);
        for (const Frame& write : each.writes)
            EXPECT_EQ(unit->parameter(write.number), write.value);
    }
    EXPECT_EQ(link::mirrors.modular_changeover, 0);
    EXPECT_EQ(link::mirrors.petrol_cut_off_rpm, 0);
}

TEST_F(ChangeoverControls, AutomaticChangeoverFreesTheDelaySliderAndTheOtherLocksIt) {
    open_changeover();
    operator_clicks(Option_comm_auto_no);
    run_for(500);
    EXPECT_FALSE(view::enabled(Slider2));
    operator_clicks(Option_comm_auto_yes);
    run_for(500);
    EXPECT_TRUE(view::enabled(Slider2));
}

TEST_F(ChangeoverControls, ALockedOptionLeavesTheDelaySliderAlone) {
    open_changeover();
    app::state.poll_enabled = true;
    operator_clicks(Option_comm_auto_no);
    run_for(500);
    EXPECT_TRUE(view::enabled(Slider2));
    EXPECT_EQ(link::mirrors.auto_changeover, 1);
}

TEST_F(ChangeoverControls, TheLockOfTheOptionsDoesNotHoldTheDelaySlider) {
    open_changeover();
    app::state.poll_enabled = true;
    operator_drags(Slider2, view::value(Slider2) == 3 ? 2 : 3);
    run_for(500);
    EXPECT_EQ(writes().size(), 1u);
    EXPECT_EQ(writes().at(0).number, 106);
}

TEST_F(ChangeoverControls, AnotherOptionClickedInTheWaitRunsNested) {
    open_changeover();
    operator_clicks(Option1);
    run_for(300);
    operator_clicks(opt_perm);
    run_for(599);
    EXPECT_TRUE(busy(Option1));
    EXPECT_TRUE(busy(opt_perm));
    run_for(1); // the wait that both stand on ends for both
    EXPECT_FALSE(busy(Option1));
    EXPECT_FALSE(busy(opt_perm));
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(41, 7)), At(300, Write(122, 1))));
}

TEST_F(ChangeoverControls, EachPositionOfTheDelaySliderHasItsDelay) {
    open_changeover();
    const std::pair<double, int> delays[] = {{2, 500}, {3, 2000}, {1, 50}};
    for (const auto& [position, delay] : delays) {
        mark();
        operator_drags(Slider2, position);
        EXPECT_TRUE(busy(Form3));
        run_for(199);
        EXPECT_TRUE(busy(Form3));
        run_for(1);
        EXPECT_EQ(Form3.look.pointer, Pointer::normal);
        EXPECT_THAT(timed(), ElementsAre(At(0, Write(106, delay))));
        EXPECT_EQ(link::mirrors.low_pressure_delay, delay);
    }
}

TEST_F(ChangeoverControls, EnterOnTheDelaySliderSendsTheSpeedAndFreesTheWrongField) {
    open_changeover();
    operator_clicks(Text_rpm);
    operator_types(Text_rpm, "1650");
    inside_program([] { view::set_focus(Slider2); });
    operator_presses(Form3, 'A');
    EXPECT_THAT(frames(), IsEmpty());
    view::set_enabled(Text_press_comm, false);
    mark();
    operator_presses(Form3, 13);
    EXPECT_FALSE(view::enabled(Text_rpm));
    EXPECT_EQ(Text_rpm.look.back, 16777215);
    EXPECT_FALSE(Text_rpm.look.edit_marker);
    run_for(399);
    EXPECT_TRUE(busy(Form3));
    EXPECT_FALSE(view::enabled(Text_press_comm));
    run_for(1);
    EXPECT_FALSE(busy(Form3));
    EXPECT_TRUE(view::enabled(Text_press_comm));
    run_for(5000);
    EXPECT_FALSE(view::enabled(Text_rpm));
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(121, 1650))));
    EXPECT_EQ(link::mirrors.changeover_rpm, 1650);
    close_changeover();
    reopen_changeover();
    EXPECT_TRUE(view::enabled(Text_rpm));
}

struct FieldCase {
    view::Widget& field;
    int parameter;
    const char* typed;
    int sent;
    int wait_ms;
};

const FieldCase field_cases[] = {
    {Text_rpm, 121, "1500", 1500, 800}, {Text_press_comm, 22, "900", 900, 800},
    {Text_123, 123, "1234", 1234, 800}, {Text_124, 124, "1600", 1600, 800},
    {Text1, 47, "1234", 123, 400},      {Text2, 53, "250", 2, 800},
};

TEST_F(ChangeoverControls, EachFieldIsMarkedByAClickAndWrittenByEnter) {
    open_changeover();
    for (const FieldCase& each : field_cases) {
        SCOPED_TRACE(each.field.name);
        operator_clicks(each.field);
        EXPECT_EQ(text(each.field), "");
        EXPECT_EQ(each.field.look.back, 8421631);
        EXPECT_TRUE(each.field.look.edit_marker);
        operator_types(each.field, each.typed);
        operator_presses(Form3, '0');
        run_for(1000);
        mark();
        operator_presses(Form3, 13);
        EXPECT_FALSE(view::enabled(each.field));
        EXPECT_TRUE(busy(Form3));
        EXPECT_EQ(each.field.look.back, 16777215);
        EXPECT_FALSE(each.field.look.edit_marker);
        run_for(each.wait_ms - 1);
        EXPECT_FALSE(view::enabled(each.field));
        EXPECT_TRUE(busy(Form3));
        run_for(1);
        EXPECT_TRUE(view::enabled(each.field));
        EXPECT_EQ(Form3.look.pointer, Pointer::normal);
        EXPECT_THAT(timed(), ElementsAre(At(0, Write(each.parameter, each.sent))));
        EXPECT_EQ(unit->parameter(each.parameter), each.sent);
    }
}

TEST_F(ChangeoverControls, TheSpeedFieldOfThePetrolCutOffSendsWholeTens) {
    open_changeover();
    const std::pair<const char*, int> cases[] = {{"1234", 123},   {"9", 0}, {"1239.4", 123},
                                                 {"1239.6", 124}, {"", 0},  {"-5", 0}};
    for (const auto& [typed, sent] : cases) {
        mark();
        operator_enters(Text1, typed);
        run_for(1000);
        EXPECT_THAT(frames(), ElementsAre(Write(47, sent))) << typed;
    }
}

TEST_F(ChangeoverControls, TheTimeFieldOfThePetrolCutOffHasAFloorOf100) {
    open_changeover();
    const std::pair<const char*, int> cases[] = {{"50", 100},   {"99.9", 100}, {"", 100},
                                                 {"-400", 100}, {"100", 1},    {"250", 2},
                                                 {"299", 2},    {"299.6", 3},  {"6553599", 65535}};
    for (const auto& [typed, sent] : cases) {
        mark();
        operator_enters(Text2, typed);
        run_for(1000);
        EXPECT_THAT(frames(), ElementsAre(Write(53, sent))) << typed;
        EXPECT_EQ(link::mirrors.petrol_cut_off_time, sent);
    }
}

TEST_F(ChangeoverControls, TheCutOffSpeedIsRoundedWithTiesToEven) {
    open_changeover();
    for (const auto& [typed, sent] : {std::pair{"12.5", 12}, {"13.5", 14}, {"1500.4", 1500}}) {
        mark();
        operator_enters(Text_124, typed);
        run_for(1000);
        EXPECT_THAT(frames(), ElementsAre(Write(124, sent))) << typed;
    }
}

TEST_F(ChangeoverControls, AFieldOpensAClosedPortWithTheNumberItHasAndAnOptionDoesNot) {
    open_changeover();
    for (view::Widget* field :
         {&Text_rpm, &Text_press_comm, &Text_123, &Text_124, &Text1, &Text2}) {
        SCOPED_TRACE(field->name);
        port->close();
        mark();
        operator_clicks(opt_acc);
        run_for(1000);
        operator_drags(Slider2, view::value(Slider2) == 1 ? 2 : 1);
        run_for(1000);
        EXPECT_FALSE(port->is_open());
        EXPECT_THAT(frames(), IsEmpty());
        const int number = port->number;
        app::state.com_port_number = 6;
        operator_enters(*field, "2000");
        EXPECT_TRUE(port->is_open());
        run_for(1000);
        EXPECT_EQ(writes().size(), 1u);
        EXPECT_EQ(port->number, number);
    }
    port->close();
    mark();
    inside_program([] { view::set_focus(Slider2); });
    operator_presses(Form3, 13);
    EXPECT_TRUE(port->is_open());
    EXPECT_THAT(frames(), ElementsAre(Write(121, 2000)));
}

TEST_F(ChangeoverControls, APortThatCannotBeOpenedLetsTheFieldRunThroughItsWait) {
    open_changeover();
    port->close();
    port->open_error = "gone";
    operator_enters(Text_rpm, "1500");
    run_for(799);
    EXPECT_FALSE(view::enabled(Text_rpm));
    run_for(1);
    EXPECT_TRUE(view::enabled(Text_rpm));
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_TRUE(screen.message_boxes.empty());
}

TEST_F(ChangeoverControls, ACablePulledInTheMiddleOfAnOptionLetsItRunThroughItsWaits) {
    open_changeover();
    for (const OptionCase& each : option_cases) {
        SCOPED_TRACE(each.option.name);
        port->unplugged = false;
        mark();
        operator_clicks(each.option);
        run_for(100);
        port->unplugged = true;
        const int total_ms = each.wait_ms * static_cast<int>(each.writes.size());
        run_for(total_ms - 101);
        EXPECT_TRUE(busy(each.option));
        run_for(1);
        EXPECT_EQ(each.option.look.pointer, Pointer::normal);
        EXPECT_EQ(frames().size(), 1u);
    }
    close_changeover();
    EXPECT_TRUE(view::enabled(form1::Form1));
}

} // namespace
} // namespace zol::tests
