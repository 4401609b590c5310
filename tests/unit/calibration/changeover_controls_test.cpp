// The controls of the changeover window: each writes at once, with its own wait. Its number fields
// are in entry_fields_test.cpp.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using namespace form3;
using link::mirrors;

class ChangeoverControls : public LogicTest {
  protected:
    ChangeoverControls() : LogicTest({.family = 4, .version = 7, .revision = 71}) {}
};

struct Option {
    view::Widget& option;
    std::vector<Frame> writes;
    int wait_ms; // after each of them
    double& mirror;
};
void PrintTo(const Option& it, std::ostream* out) { *out << it.option.name; }

class ChangeoverOption : public ChangeoverControls, public testing::WithParamInterface<Option> {
  protected:
    view::Widget& option = GetParam().option;
    const std::int64_t end_ms =
        GetParam().wait_ms * static_cast<std::int64_t>(GetParam().writes.size());
    void expect_busy_until_end() {
        EXPECT_TRUE(busy(option));
        EXPECT_EQ(ms_until([this] { return !busy(option); }), end_ms);
        EXPECT_EQ(option.look.pointer, view::Pointer::normal);
    }
};

TEST_P(ChangeoverOption, WritesAtOnce) {
    open_changeover();
    GetParam().mirror = 99;
    operator_clicks(option);
    expect_busy_until_end();
    std::vector<Timed> expected;
    for (const Frame& write : GetParam().writes) {
        expected.push_back(At(GetParam().wait_ms * std::ssize(expected), write));
        EXPECT_EQ(unit->parameter(write.number), write.value);
    }
    EXPECT_EQ(timed(), expected);
    EXPECT_EQ(GetParam().mirror, GetParam().writes[0].value);
}

TEST_P(ChangeoverOption, PulledCableLeavesItsTimes) {
    open_changeover();
    operator_clicks(option, 100ms);
    port->unplugged = true;
    expect_busy_until_end();
    EXPECT_EQ(frames().size(), 1u);
    close_changeover();
    EXPECT_TRUE(view::enabled(form1::Form1));
}

INSTANTIATE_TEST_SUITE_P(
    Each, ChangeoverOption,
    testing::Values(Option{opt_norm, {Write(122, 0), Write(23, 0)}, 600, mirrors.forced_start_mode},
                    Option{opt_perm, {Write(122, 1)}, 600, mirrors.forced_start_mode},
                    Option{opt_acc, {Write(122, 3)}, 600, mirrors.forced_start_mode},
                    Option{Option1, {Write(41, 7)}, 900, mirrors.gas_cut_off_mode},
                    Option{Option2, {Write(41, 5)}, 900, mirrors.gas_cut_off_mode},
                    Option{Option3, {Write(41, 2), Write(47, 0)}, 500, mirrors.gas_cut_off_mode},
                    Option{Option_comm_auto_yes, {Write(105, 1)}, 200, mirrors.auto_changeover},
                    Option{Option_comm_auto_no, {Write(105, 0)}, 200, mirrors.auto_changeover}),
    [](const auto& tested) { return tested.param.option.name; });

TEST_F(ChangeoverControls, SecondWriteOfAnOptionSetsItsMirror) {
    open_changeover();
    mirrors.modular_changeover = mirrors.petrol_cut_off_rpm = 1;
    for (view::Widget* option : {&opt_norm, &Option3}) {
        operator_clicks(*option, 2000ms);
    }
    EXPECT_EQ(mirrors.modular_changeover, 0);
    EXPECT_EQ(mirrors.petrol_cut_off_rpm, 0);
}

TEST_F(ChangeoverControls, AutomaticChangeoverEnablesTheDelay) {
    open_changeover();
    operator_clicks(Option_comm_auto_no, 500ms);
    EXPECT_FALSE(view::enabled(Slider2));
    operator_clicks(Option_comm_auto_yes, 500ms);
    EXPECT_TRUE(view::enabled(Slider2));
}

TEST_F(ChangeoverControls, LockedOptionLeavesTheDelayEnabled) {
    open_changeover();
    app::state.poll_enabled = true;
    operator_clicks(Option_comm_auto_no, 500ms);
    EXPECT_TRUE(view::enabled(Slider2));
    EXPECT_EQ(mirrors.auto_changeover, 1);
}

TEST_F(ChangeoverControls, LockOfTheOptionsLeavesTheDelayFree) {
    open_changeover();
    app::state.poll_enabled = true;
    operator_drags(Slider2, view::value(Slider2) == 3 ? 2 : 3, 500ms);
    EXPECT_EQ(writes().size(), 1u);
    EXPECT_EQ(writes().at(0).number, 106);
}

// Both waits use one timer, so they end together.
TEST_F(ChangeoverControls, OptionClickedDuringAWaitRunsNested) {
    open_changeover();
    operator_clicks(Option1, 300ms);
    operator_clicks(opt_perm);
    EXPECT_EQ(ms_until([] { return !busy(Option1) || !busy(opt_perm); }), 900);
    EXPECT_FALSE(busy(Option1));
    EXPECT_FALSE(busy(opt_perm));
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(41, 7)), At(300, Write(122, 1))));
}

TEST_F(ChangeoverControls, EachPositionOfTheDelaySliderHasItsDelay) {
    open_changeover();
    follow({&Form3});
    for (const auto& [position, delay] : {std::pair{2, 500}, {3, 2000}, {1, 50}}) {
        mark();
        operator_drags(Slider2, position, 1000ms);
        EXPECT_THAT(changes, ElementsAre("0 Form3 hourglass", "200 Form3 normal pointer"));
        EXPECT_THAT(timed(), ElementsAre(At(0, Write(106, delay))));
        EXPECT_EQ(mirrors.low_pressure_delay, delay);
    }
}

TEST_F(ChangeoverControls, EnterOnTheDelaySliderSendsTheSpeed) {
    open_changeover();
    operator_clicks(Text_rpm);
    operator_types(Text_rpm, "1650");
    inside_program([] { view::set_focus(Slider2); });
    operator_presses(Form3, 'A');
    EXPECT_THAT(frames(), IsEmpty());
    mark();
    operator_presses(Form3, 13);
    EXPECT_EQ(Text_rpm.look.back, view::white);
    EXPECT_FALSE(Text_rpm.look.edit_marker);
    EXPECT_EQ(ms_until([] { return !busy(Form3); }), 400);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(121, 1650))));
    EXPECT_EQ(mirrors.changeover_rpm, 1650);
}

TEST_F(ChangeoverControls, EnterOnTheDelaySliderFreesTheWrongField) {
    open_changeover();
    inside_program([] { view::set_focus(Slider2); });
    view::set_enabled(Text_press_comm, false);
    operator_presses(Form3, 13);
    EXPECT_FALSE(view::enabled(Text_rpm));
    EXPECT_EQ(ms_until([] { return view::enabled(Text_press_comm); }), 400);
    run_for(5000);
    EXPECT_FALSE(view::enabled(Text_rpm));
    close_changeover();
    reopen_changeover();
    EXPECT_TRUE(view::enabled(Text_rpm));
}

// With the number that it has, not with a new one.
TEST_F(ChangeoverControls, FieldOpensAClosedPort) {
    open_changeover();
    const int number = port->number;
    app::state.com_port_number = 6;
    for (view::Widget* field :
         {&Text_rpm, &Text_press_comm, &Text_123, &Text_124, &Text1, &Text2}) {
        SCOPED_TRACE(field->name);
        port->close();
        mark();
        operator_enters(*field, "2000");
        EXPECT_TRUE(port->is_open());
        run_for(1000);
        EXPECT_EQ(writes().size(), 1u);
        EXPECT_EQ(port->number, number);
    }
    port->close();
    inside_program([] { view::set_focus(Slider2); });
    operator_presses(Form3, 13);
    EXPECT_TRUE(port->is_open());
}

TEST_F(ChangeoverControls, OptionsAndDelayLeaveAClosedPortClosed) {
    open_changeover();
    port->close();
    operator_clicks(opt_acc, 1000ms);
    operator_drags(Slider2, view::value(Slider2) == 1 ? 2 : 1, 1000ms);
    EXPECT_FALSE(port->is_open());
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(ChangeoverControls, PortThatCannotBeOpenedShowsNoBox) {
    open_changeover();
    port->close();
    port->open_error = "gone";
    operator_enters(Text_rpm, "1500");
    EXPECT_EQ(ms_until([] { return view::enabled(Text_rpm); }), 800);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

} // namespace
} // namespace zol::tests
