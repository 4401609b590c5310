// Waits, timers and the end of the program on the real clock. The rules of nested waits are tested
// on virtual time, which runs the same scheduler.
#include "tests/windows/window_fixture.h"

#include <array>
#include <cstdio>

namespace zol::view {
namespace {

using namespace test_window;
using ::testing::AllOf;
using ::testing::Ge;
using ::testing::Lt;

class Waits : public WindowFixture {
  protected:
    Waits() { open(Sample); }
};

TEST_F(Waits, TimersTickDuringAWait) {
    int ticks = 0;
    Timer1.tick = [&] { ++ticks; };
    Timer1.on();
    wait_on(Timer2, 110);
    EXPECT_THAT(ticks, AllOf(Ge(1), Lt(6)));
}

TEST_F(Waits, ClickIsHandledDuringAWait) {
    int depth_at_click = -1;
    Command1.on.click = [&] { depth_at_click = wait_depth(); };
    QTest::mouseClick(&face(Command1), Qt::LeftButton);
    wait_on(Timer2, 30);
    EXPECT_EQ(depth_at_click, 1);
}

TEST_F(Waits, OverdueTimerDoesNotBlockInput) {
    int ticks = 0;
    bool clicked = false;
    Command1.on.click = [&] { clicked = true; };
    Timer1.set_interval(1);
    Timer1.tick = [&] {
        QTest::qSleep(3);
        // From now on it is overdue in each turn.
        if (++ticks == 3)
            QTimer::singleShot(0, &top(Sample),
                               [this] { QTest::mouseClick(&face(Command1), Qt::LeftButton); });
    };
    Timer1.on();
    run_until([&] { return clicked || ticks > 100; });
    EXPECT_TRUE(clicked);
}

// Prints how late waits end on this machine.
TEST_F(Waits, NoWaitEndsEarly) {
    constexpr std::array lengths_ms{5, 20, 50, 100};
    std::int64_t worst_us = 0, sum_us = 0;
    int count = 0;
    for (int round = 0; round < 5; ++round)
        for (int ms : lengths_ms) {
            const auto start = now_us();
            wait_on(Timer2, ms);
            const auto late_us = now_us() - start - ms * 1000;
            EXPECT_GE(late_us, 0) << "no wait ends early";
            worst_us = std::max(worst_us, late_us);
            sum_us += late_us;
            ++count;
        }
    std::printf("waits end %lld us late on average, %lld us at worst\n",
                static_cast<long long>(sum_us / count), static_cast<long long>(worst_us));
}

using EndOfProgramDeathTest = Waits;

TEST_F(EndOfProgramDeathTest, ProgramEndsInsideThreeNestedWaits) {
    Timer1.tick = [] {
        Timer1.off();
        wait_on(Timer2, 3000);
        std::fputs("ran on\n", stderr);
    };
    Timer3.tick = [] {
        Timer3.off();
        Command1.on.click = [] {
            std::fprintf(stderr, "depth %d\n", wait_depth());
            end_program();
        };
        post([] { operator_acts::click(Command1); });
        wait_on(Timer2, 3000);
        std::fputs("ran on\n", stderr);
    };
    EXPECT_EXIT(
        {
            Timer1.on();
            Timer3.on();
            wait_on(Timer2, 3000);
            std::fputs("ran on\n", stderr);
        },
        ::testing::ExitedWithCode(0), "^depth 3\n$");
}

TEST_F(EndOfProgramDeathTest, ProgramEndsWhileAMessageBoxIsOpen) {
    Timer1.tick = [] { end_program(); };
    EXPECT_EXIT(
        {
            Timer1.on();
            message_box({.text = "still there?", .title = ""});
            std::fputs("ran on\n", stderr);
        },
        ::testing::ExitedWithCode(0), "^$");
}

} // namespace
} // namespace zol::view
