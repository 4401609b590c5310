// A day of use: the polling keeps its rhythm, and nothing grows.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

#include <chrono>
#include <iostream>
#include <malloc.h>

namespace zol::tests {
namespace {

class LongRun : public LogicTest {
  protected:
    // An hour of the program's time. The record of the wire is the test's own and would grow.
    void run_an_hour() {
        for (int minute = 0; minute < 60; ++minute) {
            forget_wire();
            run_for(60000);
        }
    }
    static std::size_t bytes_in_use() {
        const auto all = ::mallinfo2();
        return all.uordblks + all.hblkhd;
    }
    // Compares the last hour with the second one.
    void run_a_day(std::size_t least_frames_a_minute) {
        const auto start = std::chrono::steady_clock::now();
        run_an_hour();
        run_an_hour();
        const auto bytes = bytes_in_use();
        const auto strokes = form1::Picture1.look.strokes.size();
        const auto depth = view::wait_depth();
        for (int hour = 2; hour < 24; ++hour)
            run_an_hour();
        EXPECT_GE(port->sent.size(), least_frames_a_minute);
        EXPECT_LE(bytes_in_use(), bytes + 64 * 1024);
        // The width of the trace limits its strokes.
        EXPECT_LE(form1::Picture1.look.strokes.size(), strokes + 1000);
        EXPECT_LE(view::wait_depth(), depth + 1);
        EXPECT_EQ(now_ms() / 3600000, 24);
        const std::chrono::duration<double> host = std::chrono::steady_clock::now() - start;
        std::cout << "24 hours took " << host.count() << " s\n";
    }
};

TEST_F(LongRun, DayOfPollingGrowsNothing) {
    start_connected();
    run_a_day(60000 / 350 - 1);
}

TEST_F(LongRun, DayWithASilentUnitGrowsNothing) {
    start_connected();
    port->silent = true;
    run_a_day(60000 / 300 - 1);
}

} // namespace
} // namespace zol::tests
