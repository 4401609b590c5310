// What the logbook adds to the time that bytes take between the tool and the adapter.
#include "tests/bench/rows.h"
#include "tests/unit/logbook/forwarding.h"

#include <algorithm>
#include <chrono>
#include <poll.h>

namespace zol::logbook {
namespace {

constexpr int frames = 2000;
constexpr int pause_us = 2000;

class Delay : public Forwarding {
  public:
    void TestBody() override {
        auto program = start();
        ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
        const int tool = ::open(com1.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        print("to the unit", measured_ms(tool, cable.far_end));
        print("to the tool", measured_ms(cable.far_end, tool));
        ::close(tool);
    }

  private:
    // The times from a write at one end until the other end can read it, in order of size.
    static std::vector<double> measured_ms(int from, int to) {
        std::vector<double> all;
        for (int i = 0; i < frames; ++i) {
            const auto began = std::chrono::steady_clock::now();
            EXPECT_EQ(::write(from, status_request.data(), status_request.size()), 5);
            for (std::size_t got = 0; got < status_request.size();) {
                pollfd ready{to, POLLIN, 0};
                std::uint8_t block[16];
                if (::poll(&ready, 1, 5000) != 1) return {1e9};
                got +=
                    static_cast<std::size_t>(std::max<ssize_t>(0, ::read(to, block, sizeof block)));
            }
            const std::chrono::duration<double, std::milli> taken =
                std::chrono::steady_clock::now() - began;
            all.push_back(taken.count());
            usleep(pause_us);
        }
        std::sort(all.begin(), all.end());
        return all;
    }
    static void print(const std::string& direction, const std::vector<double>& all) {
        bench::print_row("logbook, median delay " + direction, all[all.size() / 2], "ms",
                         "at most 1");
        bench::print_row("logbook, longest delay " + direction, all.back(), "ms", "at most 5");
    }
};

} // namespace
} // namespace zol::logbook

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    zol::logbook::Delay().TestBody();
}
