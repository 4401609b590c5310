// A day of polling on virtual time.
#include "tests/bench/rows.h"
#include "tests/support/bench.h"

#include <chrono>
#include <malloc.h>

namespace zol::tests {
namespace {

class Day : public Bench {
  public:
    void TestBody() override {
        start_connected();
        poll_one_hour();
        const double kib_after_first_hour = used_kib();
        const auto start = std::chrono::steady_clock::now();
        for (int hour = 2; hour <= 24; ++hour)
            poll_one_hour();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        bench::print_row("24 hours of polling on virtual time", taken.count() * 24 / 23, "s",
                         "at most 10");
        bench::print_row("memory grown from the first hour to the 24th",
                         used_kib() - kib_after_first_hour, "KiB", "none");
    }

  private:
    void poll_one_hour() {
        run_for(3600 * 1000);
        forget_wire();
    }
    static double used_kib() { return static_cast<double>(mallinfo2().uordblks) / 1024; }
};

} // namespace
} // namespace zol::tests

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    zol::tests::Day().TestBody();
}
