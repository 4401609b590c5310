// The hand-over of the line to another program, and the debug pair.
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

namespace zol::tests {
namespace {

using namespace form1;

struct HandOver {
    const char* name;
    view::Widget* button;
    int command;
    sim::ControlUnit::Mode mode;
};

class TerminalHandOver : public LogicTest, public testing::WithParamInterface<HandOver> {
  protected:
    void hand_over_on_a_quiet_line() {
        start_connected();
        operator_double_clicks(Label18); // shows the buttons
        stop_polling();
        mark();
        operator_clicks(*GetParam().button);
    }
};

TEST_P(TerminalHandOver, SendsItsCommandThenClosesThePort) {
    hand_over_on_a_quiet_line();
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(busy(Form1));
    EXPECT_EQ(ms_until([this] { return !port->is_open(); }), 1600);
    EXPECT_THAT(timed(), ElementsAre(At(800, Send(GetParam().command))));
    EXPECT_EQ(unit->mode(), GetParam().mode);
}

TEST_P(TerminalHandOver, SecondOneSendsNothing) {
    hand_over_on_a_quiet_line();
    run_for(2000);
    forget_wire();
    operator_clicks(*GetParam().button, 5000ms);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

// Neither the engine button nor the return from another window asks the unit anything.
TEST_P(TerminalHandOver, LeavesTheLineQuietForTheRestOfTheRun) {
    hand_over_on_a_quiet_line();
    run_for(2000);
    forget_wire();
    operator_clicks(Command_engine, 5000ms);
    operator_clicks(barra1, 1000ms);
    operator_clicks(form2::cmd_exit, 10'000ms);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    EXPECT_TRUE(app::state.no_reread);
}

TEST_P(TerminalHandOver, WaitsForAPendingTelegram) {
    start_connected();
    operator_double_clicks(Label18);
    forget_wire();
    operator_clicks(*GetParam().button, 5000ms);
    EXPECT_THAT(frames(), ElementsAre(Send(GetParam().command)));
}

INSTANTIATE_TEST_SUITE_P(To, TerminalHandOver,
                         testing::Values(HandOver{"Terminal", &Command_hyperterminal, 20,
                                                  sim::ControlUnit::Mode::terminal},
                                         HandOver{"Download", &Command_scarico, 21,
                                                  sim::ControlUnit::Mode::download}),
                         [](const auto& to) { return std::string(to.param.name); });

class DebugPair : public LogicTest {
  protected:
    void expect_state(bool on) {
        EXPECT_EQ(link::mirrors.debug_flag, on ? 1 : 0);
        EXPECT_EQ(view::checked(mnu_debug_yes), on);
        EXPECT_EQ(view::checked(mnu_debug_no), !on);
    }
};

TEST_F(DebugPair, YesWritesBothFlags) {
    start_quietly();
    operator_clicks(mnu_debug_yes, 5000ms);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(153, 1)), At(900, Write(20, 1))));
    EXPECT_EQ(unit->parameter(153), 1);
    EXPECT_EQ(unit->parameter(20), 1);
    expect_state(true);
}

TEST_F(DebugPair, NoWritesBothFlagsBack) {
    start_quietly();
    operator_clicks(mnu_debug_yes, 2000ms);
    forget_wire();
    operator_clicks(mnu_debug_no, 2000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(153, 0), Write(20, 0)));
    expect_state(false);
}

TEST_F(DebugPair, MarkedItemWritesAgain) {
    start_quietly();
    for (int i = 0; i < 2; ++i) {
        forget_wire();
        operator_clicks(mnu_debug_yes, 2000ms);
        EXPECT_THAT(frames(), ElementsAre(Write(153, 1), Write(20, 1)));
    }
}

TEST_F(DebugPair, MarkIsMovedWithTheSecondWrite) {
    start_quietly();
    follow({&mnu_debug_yes});
    operator_clicks(mnu_debug_yes, 2000ms);
    EXPECT_THAT(changes, ElementsAre("900 mnu_debug_yes checked"));
}

TEST_F(DebugPair, FocusIsMovedAtTheEnd) {
    start_connected();
    follow({&Form1, &Slider_attenuazione});
    mark();
    operator_clicks(mnu_debug_no);
    inside_program([] { view::set_focus(Form1); });
    EXPECT_EQ(ms_until([] { return focused(Text2); }), 1100);
    EXPECT_THAT(changes, testing::UnorderedElementsAre("0 Form1 hourglass",
                                                       "0 Slider_attenuazione without tab stop",
                                                       "1100 Form1 normal pointer",
                                                       "1100 Slider_attenuazione with tab stop"));
}

TEST_F(DebugPair, LeavesThePollingStopped) {
    start_connected();
    operator_clicks(mnu_debug_no, 1100ms);
    EXPECT_THAT(frames_in(10'000), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
}

} // namespace
} // namespace zol::tests
