// A day of polling on virtual time.
#include "tests/bench/rows.h"
#include "tests/support/logic_fixture.h"

#include <chrono>
#include <malloc.h>

namespace zol::tests {
namespace {

class Day : public LogicTest {
  public:
    void TestBody() override {
        start_connected();
        const double first_ms = poll_one_hour();
        const double kib_after_first_hour = used_kib();
        double last_ms = 0;
        const auto start = std::chrono::steady_clock::now();
        for (int hour = 2; hour <= 24; ++hour)
            last_ms = poll_one_hour();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        bench::print_row("24 hours of polling on virtual time", taken.count() * 24 / 23, "s",
                         "at most 10");
        bench::print_row("virtual hours of polling a second", 23 / taken.count(), "h/s", "-");
        // In processor time, which other programs hardly change.
        bench::print_row("time per cycle in the 24th hour, over the first", last_ms / first_ms, "x",
                         "no growth");
        bench::print_row("memory grown from the first hour to the 24th",
                         used_kib() - kib_after_first_hour, "KiB", "none");
    }

  private:
    // Returns the processor time. Each hour has the same number of cycles.
    double poll_one_hour() {
        const double before = bench::processor_ms();
        run_for(3600 * 1000);
        forget_wire();
        return bench::processor_ms() - before;
    }
    static double used_kib() { return static_cast<double>(mallinfo2().uordblks) / 1024; }
};

} // namespace
} // namespace zol::tests

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    zol::tests::Day().TestBody();
}
