// The end of the program comes 600 ms after the request, whatever runs, and no frame is sent from
// then on.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::IsEmpty;

class ProgramEnd : public LogicTest {
  protected:
    // 600 ms from now, with the port closed and no frame until then.
    void expect_end() {
        forget_wire();
        run_for(599);
        EXPECT_FALSE(time.ended());
        EXPECT_TRUE(port->is_open());
        run_for(1);
        EXPECT_TRUE(time.ended());
        EXPECT_FALSE(port->is_open());
        EXPECT_THAT(frames(), IsEmpty());
    }
};

TEST_F(ProgramEnd, ComesAfterTheExitButton) {
    start_connected();
    operator_clicks(form1::Command_exit);
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_TRUE(form1::Timer_chiusura_stato.is_on());
    EXPECT_FALSE(view::enabled(form1::Command_exit));
    EXPECT_EQ(form1::Command_exit.look.pointer, view::Pointer::hourglass);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    expect_end();
}

TEST_F(ProgramEnd, ComesAfterTheTitleBarIsUsed) {
    start_connected();
    operator_closes(form1::Form1);
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_TRUE(form1::Timer_rpm.is_on());
    expect_end();
}

// The read repeats its request until the unit replies, which this one never does.
TEST_F(ProgramEnd, EndlessReadDoesNotDelayIt) {
    start_connected();
    port->silent = true;
    operator_closes(form1::Form1);
    run_for(100);
    operator_clicks(form1::Command_diagnosi);
    operator_clicks(form1::cmd_richiesta_par_diagnosi);
    run_for(500);
    EXPECT_TRUE(time.ended());
}

TEST_F(ProgramEnd, BoxOpenedMeanwhileDoesNotDelayIt) {
    start_connected();
    screen.answer_message("Automatic Tuning System", view::Answer::no, 5000);
    operator_closes(form1::Form1);
    run_for(100);
    operator_presses(form1::Form1, 84, 2);
    run_for(499);
    EXPECT_FALSE(time.ended());
    run_for(1);
    EXPECT_TRUE(time.ended());
}

// At any moment of the polling: during its wait, or between two polls.
class EndAtAMoment : public ProgramEnd, public testing::WithParamInterface<int> {};

TEST_P(EndAtAMoment, SendsNothingOnTheActivationPath) {
    start_connected();
    run_for(GetParam());
    operator_closes(form1::Form1);
    expect_end();
}

TEST_P(EndAtAMoment, SendsNothingWithTheWatchdogRunning) {
    start_by_dialog();
    ASSERT_TRUE(form1::Timer6.is_on());
    run_for(GetParam());
    operator_closes(form1::Form1);
    expect_end();
}

INSTANTIATE_TEST_SUITE_P(OfThePolling, EndAtAMoment, testing::Range(0, 500, 20));

TEST_F(ProgramEnd, SendsNothingWithTheLambdaPanelOpen) {
    use_unit({.family = 4, .version = 7});
    start_connected();
    operator_clicks(form1::Command_lambda);
    run_for(2000);
    ASSERT_TRUE(form1::Timer3.is_on());
    operator_closes(form1::Form1);
    expect_end();
}

TEST_F(ProgramEnd, SilentUnitDoesNotDelayIt) {
    start_connected();
    port->silent = true;
    run_for(10000);
    operator_clicks(form1::Command_exit);
    expect_end();
}

TEST_F(ProgramEnd, PulledCableDoesNotDelayIt) {
    start_connected();
    port->unplugged = true;
    run_for(10000);
    operator_clicks(form1::Command_exit);
    expect_end();
}

TEST_F(ProgramEnd, StopsTheHandlerOfTheFirstRead) {
    start_program();
    run_for(2000); // in the wait after the version request
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    operator_closes(form1::Form1);
    expect_end();
    EXPECT_EQ(app::state.firmware_text, ""); // no line after the wait has run
}

TEST_F(ProgramEnd, StopsTheHandlersOfNestedWaits) {
    start_connected();
    int ran_on = 0;
    for (int depth = 0; depth < 20; ++depth) {
        inside_program([&ran_on] {
            view::wait_on(form1::Timer2, 60000);
            ++ran_on;
        });
        run_for(10);
    }
    EXPECT_GE(view::wait_depth(), 20);
    operator_clicks(form1::Command_exit);
    expect_end();
    EXPECT_EQ(ran_on, 0);
    EXPECT_EQ(view::wait_depth(), 0);
}

TEST_F(ProgramEnd, IsNotMovedByASecondClose) {
    start_connected();
    operator_closes(form1::Form1);
    run_for(300);
    operator_closes(form1::Form1);
    operator_clicks(form1::Command_exit);
    run_for(299);
    EXPECT_FALSE(time.ended());
    run_for(1);
    EXPECT_TRUE(time.ended());
}

TEST_F(ProgramEnd, LeavesAClosedPortClosed) {
    start_connected();
    inside_program([this] { port->close(); });
    const int closed = port->closed;
    operator_closes(form1::Form1);
    run_for(600);
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(port->closed, closed);
}

} // namespace
} // namespace zol::tests
