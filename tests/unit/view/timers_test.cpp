// The one pump: timers, waits and virtual time, without the timers of the program.
#include "view/timers.h"

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using view::Timer;

Timer fast(form1::Form1, "test_fast", 100);
Timer slow(form1::Form1, "test_slow", 250);
Timer waiting(form1::Form1, "test_waiting", 0);

class Timers : public LogicTest {
  protected:
    Timers() {
        waiting.tick = [] { waiting.off(); };
        fast.tick = [this] { fast_ms.push_back(now_ms()); };
        slow.tick = [this] { slow_ms.push_back(now_ms()); };
        time.start([] {
            for (;;)
                view::pump();
        });
    }
    ~Timers() override {
        time.finish();
        fast.tick = slow.tick = waiting.tick = nullptr;
    }
    void switch_on(Timer& timer) {
        inside_program([&timer] { timer.on(); });
    }
    // Begins a wait inside the program, and notes when it has ended.
    void wait(Timer& timer, int ms, std::int64_t& ended_ms) {
        inside_program([this, &timer, ms, &ended_ms] {
            view::wait_on(timer, ms);
            ended_ms = now_ms();
        });
    }
    std::vector<std::int64_t> fast_ms, slow_ms;
    std::int64_t outer = -1, inner = -1; // when the waits have ended
};

TEST_F(Timers, TickAfterEachIntervalFromBeingSwitchedOn) {
    run_for(30);
    switch_on(fast);
    run_for(399);
    EXPECT_THAT(fast_ms, ElementsAre(130, 230, 330));
    run_for(1);
    EXPECT_EQ(fast_ms.back(), 430);
    inside_program([] { fast.off(); });
    run_for(1000);
    EXPECT_EQ(fast_ms.size(), 4U);
}

TEST_F(Timers, SwitchedOnTwiceCountsFromTheFirstTime) {
    switch_on(fast);
    run_for(60);
    switch_on(fast);
    run_for(40);
    EXPECT_THAT(fast_ms, ElementsAre(100));
}

TEST_F(Timers, NewIntervalCountsFromItsAssignment) {
    switch_on(fast);
    run_for(60);
    inside_program([] { fast.set_interval(80); });
    run_for(79);
    EXPECT_THAT(fast_ms, ElementsAre());
    run_for(1);
    EXPECT_THAT(fast_ms, ElementsAre(140));
}

TEST_F(Timers, IntervalOfZeroIsNeverDue) {
    inside_program([] { fast.set_interval(0); });
    switch_on(fast);
    run_for(100000);
    EXPECT_TRUE(fast.is_on());
    EXPECT_THAT(fast_ms, ElementsAre());
}

TEST_F(Timers, IntervalOfOneIsTheShortest) {
    inside_program([] { fast.set_interval(1); });
    switch_on(fast);
    run_for(3);
    EXPECT_THAT(fast_ms, ElementsAre(1, 2, 3));
}

TEST_F(Timers, TheOneDueFirstTicksFirst) {
    std::vector<std::string> order;
    fast.tick = [&order] { order.push_back("fast"); };
    slow.tick = [&order] { order.push_back("slow"); };
    inside_program([] { slow.set_interval(99); });
    switch_on(fast);
    switch_on(slow);
    run_for(100);
    EXPECT_THAT(order, ElementsAre("slow", "fast"));
}

TEST_F(Timers, OnlyOtherTimersTickDuringATick) {
    int inside = 0, deepest = 0;
    fast.tick = [&] {
        deepest = std::max(deepest, ++inside);
        view::wait_on(waiting, 1000);
        --inside;
    };
    switch_on(fast);
    switch_on(slow);
    run_for(1100);
    EXPECT_EQ(deepest, 1);
    EXPECT_THAT(slow_ms, ElementsAre(250, 500, 750, 1000));
}

TEST_F(Timers, TicksDoNotPileUpDuringALongHandler) {
    std::vector<std::int64_t> started;
    fast.tick = [&] {
        started.push_back(now_ms());
        if (started.size() == 1) view::wait_on(waiting, 1000);
    };
    switch_on(fast);
    run_for(1500);
    // A missed tick comes at once, and the next ones count from there.
    EXPECT_THAT(started, ElementsAre(100, 1100, 1200, 1300, 1400, 1500));
}

TEST_F(Timers, RestartedTimerCountsFromTheEndOfItsTick) {
    std::vector<std::int64_t> started;
    fast.tick = [&] {
        fast.off();
        started.push_back(now_ms());
        view::wait_on(waiting, 300);
        fast.on();
    };
    switch_on(fast);
    run_for(1000);
    EXPECT_THAT(started, ElementsAre(100, 500, 900));
}

TEST_F(Timers, WaitEndsAfterItsTime) {
    wait(waiting, 300, outer);
    run_for(299);
    EXPECT_EQ(outer, -1);
    run_for(1);
    EXPECT_EQ(outer, 300);
}

TEST_F(Timers, LongerNestedWaitMakesTheOuterOneEndLate) {
    wait(waiting, 300, outer);
    run_for(200);
    wait(waiting, 1000, inner);
    run_for(2000);
    EXPECT_EQ(inner, 1200);
    EXPECT_EQ(outer, 1200);
}

TEST_F(Timers, ShorterNestedWaitMakesTheOuterOneEndEarly) {
    wait(waiting, 1000, outer);
    run_for(100);
    inside_program([] { view::wait_on(waiting, 50); });
    run_for(2000);
    EXPECT_EQ(outer, 150);
}

TEST_F(Timers, WaitsOnDifferentTimersAreIndependent) {
    slow.tick = [] { slow.off(); };
    wait(waiting, 1000, outer);
    run_for(100);
    wait(slow, 200, inner);
    run_for(2000);
    EXPECT_EQ(inner, 300);
    EXPECT_EQ(outer, 1000);
}

TEST_F(Timers, SwitchingTheTimerOffEndsItsWait) {
    wait(waiting, 60000, outer);
    EXPECT_EQ(view::wait_depth(), 1);
    run_for(100);
    inside_program([] { waiting.off(); });
    EXPECT_EQ(outer, 100);
    EXPECT_EQ(view::wait_depth(), 0);
}

TEST_F(Timers, PostedWorkRunsBeforeTheTimers) {
    std::vector<std::string> order;
    fast.tick = [&order] { order.push_back("tick"); };
    switch_on(fast);
    run_for(99);
    inside_program([&order] {
        view::post([&order] { order.push_back("first"); });
        view::post([&order] { order.push_back("second"); });
    });
    run_for(1);
    EXPECT_THAT(order, ElementsAre("first", "second", "tick"));
}

TEST_F(Timers, UnloadingTheWindowEndsTheWaitsOnItsTimers) {
    bool ended = false;
    switch_on(fast);
    inside_program([&ended] {
        fast.set_interval(70);
        view::wait_on(waiting, 60000);
        ended = true;
    });
    inside_program([] { view::unload_timers(form1::Form1); });
    EXPECT_TRUE(ended);
    EXPECT_FALSE(fast.is_on());
    EXPECT_EQ(fast.interval_ms(), 100);
}

TEST_F(Timers, LoadingSwitchesOnThoseOfTheDesign) {
    inside_program([] { view::load_timers(form1::Form1); });
    EXPECT_TRUE(form1::Timer4.is_on());
    EXPECT_TRUE(form1::Timer5.is_on());
    for (const Timer* off :
         {&form1::Timer_stato_sistema, &form1::Timer_chiusura_stato, &form1::Timer1, &form1::Timer2,
          &form1::Timer3, &form1::Timer6, &form1::Timer_rpm, &fast})
        EXPECT_FALSE(off->is_on()) << off->name;
}

TEST_F(Timers, NextDueTimeIsThatOfTheFirstTimer) {
    EXPECT_EQ(view::next_due_us(), view::Platform::forever);
    switch_on(slow);
    switch_on(fast);
    EXPECT_EQ(view::next_due_us(), 100000);
}

TEST_F(Timers, SetEndComesDuringAnyNumberOfWaits) {
    bool was_told = false;
    inside_program([&] { view::end_program_within(500, [&] { was_told = true; }); });
    for (int depth = 0; depth < 3; ++depth)
        inside_program([] { view::wait_on(waiting, 60'000); });
    run_for(499);
    EXPECT_FALSE(time.ended());
    EXPECT_FALSE(was_told);
    run_for(1);
    EXPECT_TRUE(time.ended());
    EXPECT_TRUE(was_told);
}

TEST_F(Timers, EarlierOfTwoSetEndsHolds) {
    std::string ends;
    inside_program([&] {
        view::end_program_within(500, [&] { ends += "first "; });
        view::end_program_within(900, [&] { ends += "later "; });
        view::end_program_within(200, [&] { ends += "earlier "; });
    });
    run_for(200);
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(ends, "earlier ");
}

TEST_F(Timers, NextDueTimeIsTheSetEndIfNoTimerIsEarlier) {
    switch_on(slow);
    inside_program([] { view::end_program_within(200, [] {}); });
    EXPECT_EQ(view::next_due_us(), 200'000);
    switch_on(fast);
    EXPECT_EQ(view::next_due_us(), 100'000);
}

TEST_F(Timers, UseTheClockThatTheProgramWasGiven) { EXPECT_EQ(&view::platform(), &time); }

} // namespace
} // namespace zol::tests
