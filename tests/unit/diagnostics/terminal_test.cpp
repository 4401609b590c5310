// The hand-over of the line, and the debug pair.
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class Terminal : public LogicTest {
  protected:
    void start_with_service_buttons() {
        start_connected();
        operator_double_clicks(form1::Label18);
        inside_program(monitor::stop_polling);
        run_for(1000);
        inside_program(monitor::start_polling);
        run_for(20);
        inside_program(monitor::stop_polling);
        run_for(100);
        forget_wire();
    }
    void start_quietly() {
        start_connected();
        inside_program(monitor::stop_polling);
        run_for(1000);
        forget_wire();
    }
};

struct HandOver {
    const char* name;
    view::Widget* button;
    int command;
    sim::ControlUnit::Mode mode;
};

class TerminalHandOver : public Terminal, public testing::WithParamInterface<HandOver> {};

TEST_P(TerminalHandOver, SendsItsCommandAndLetsGoOfThePort) {
    start_with_service_buttons();
    const auto clicked = now_ms();
    operator_clicks(*GetParam().button);
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    run_for(1599);
    EXPECT_TRUE(port->is_open());
    run_for(1);
    EXPECT_FALSE(port->is_open());
    EXPECT_THAT(frames(), ElementsAre(Send(GetParam().command)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 800);
    EXPECT_EQ(unit->mode(), GetParam().mode);
}

TEST_P(TerminalHandOver, TwiceSendsNothingTheSecondTime) {
    start_with_service_buttons();
    operator_clicks(*GetParam().button);
    run_for(2000);
    forget_wire();
    operator_clicks(*GetParam().button);
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

// Neither the engine button nor the way back from another window asks the unit anything.
TEST_P(TerminalHandOver, LeavesTheLineQuietForTheRestOfTheRun) {
    start_with_service_buttons();
    operator_clicks(*GetParam().button);
    run_for(2000);
    forget_wire();
    operator_clicks(form1::Command_engine);
    run_for(5000);
    operator_clicks(form1::barra1);
    run_for(1000);
    operator_clicks(form2::cmd_exit);
    run_for(10'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    EXPECT_TRUE(app::state.no_reread);
}

TEST_P(TerminalHandOver, DuringThePollingTheTelegramUnderWayEndsFirst) {
    start_connected();
    operator_double_clicks(form1::Label18);
    forget_wire();
    operator_clicks(*GetParam().button);
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre(Send(GetParam().command)));
}

INSTANTIATE_TEST_SUITE_P(To, TerminalHandOver,
                         testing::Values(HandOver{"Terminal", &form1::Command_hyperterminal, 20,
                                                  sim::ControlUnit::Mode::terminal},
                                         HandOver{"Download", &form1::Command_scarico, 21,
                                                  sim::ControlUnit::Mode::download}),
                         [](const auto& to) { return std::string(to.param.name); });

class DebugPair : public Terminal {};

TEST_F(DebugPair, YesWritesBothSwitches) {
    start_quietly();
    const auto clicked = now_ms();
    operator_clicks(form1::mnu_debug_yes);
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre(Write(153, 1), Write(20, 1)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 400);
    EXPECT_THAT(gaps_between_writes(), ElementsAre(300 + 200));
    EXPECT_EQ(unit->parameter(153), 1);
    EXPECT_EQ(unit->parameter(20), 1);
    EXPECT_EQ(link::mirrors.debug_flag, 1);
    EXPECT_TRUE(view::checked(form1::mnu_debug_yes));
    EXPECT_FALSE(view::checked(form1::mnu_debug_no));
}

TEST_F(DebugPair, NoWritesBothSwitchesBack) {
    start_quietly();
    operator_clicks(form1::mnu_debug_yes);
    run_for(2000);
    forget_wire();
    operator_clicks(form1::mnu_debug_no);
    run_for(2000);
    EXPECT_THAT(frames(), ElementsAre(Write(153, 0), Write(20, 0)));
    EXPECT_EQ(link::mirrors.debug_flag, 0);
    EXPECT_FALSE(view::checked(form1::mnu_debug_yes));
    EXPECT_TRUE(view::checked(form1::mnu_debug_no));
}

TEST_F(DebugPair, TheItemAlreadyMarkedSendsBothAllTheSame) {
    start_quietly();
    for (int i = 0; i < 2; ++i) {
        forget_wire();
        operator_clicks(form1::mnu_debug_yes);
        run_for(2000);
        EXPECT_THAT(frames(), ElementsAre(Write(153, 1), Write(20, 1)));
    }
}

TEST_F(DebugPair, MovesItsMarkBetweenTheTwoWrites) {
    start_quietly();
    operator_clicks(form1::mnu_debug_yes);
    run_for(899);
    EXPECT_FALSE(view::checked(form1::mnu_debug_yes));
    EXPECT_THAT(frames(), ElementsAre(Write(153, 1)));
    run_for(1);
    EXPECT_TRUE(view::checked(form1::mnu_debug_yes));
    EXPECT_THAT(frames(), ElementsAre(Write(153, 1), Write(20, 1)));
}

TEST_F(DebugPair, HourglassAndFocusComeBackAndThePollingDoesNot) {
    start_connected();
    operator_clicks(form1::mnu_debug_no);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    EXPECT_FALSE(form1::Slider_attenuazione.look.tab_stop);
    inside_program([] { view::set_focus(form1::Form1); });
    run_for(1099);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(form1::Slider_attenuazione.look.tab_stop);
    EXPECT_EQ(view::focus(), &form1::Text2);
    forget_wire();
    run_for(10'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
}

} // namespace
} // namespace zol::tests
