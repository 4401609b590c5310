// A kill at any moment leaves the settings whole: as they were, or as they were to become.
#include "app/settings_file.h"
#include "tests/support/bench.h"

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

class Killed : public Bench {};

TEST_F(Killed, AWriterThatIsKilledLeavesTheOldFileOrTheNewOne) {
    // Long enough that a write in place would be caught halfway.
    const std::string tail = "\n[Rest]\nX=" + std::string(200'000, 'x') + "\n";
    const auto content = [&](int n) {
        return "[General]\nCOLORETESTO=" + std::to_string(n) + tail;
    };
    std::mt19937 random(20260101);
    int changed = 0;
    constexpr int rounds = 60;
    for (int round = 0; round < rounds; ++round) {
        write_file("setting.ini", content(0));
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            for (int n = 1;; n = n % 9 + 1) {
                app::write_text_colour(std::to_string(n));
            }
        // Half of the kills wait for the first write, however slow the machine is.
        for (int i = 0; round % 2 && i < 100'000 && app::read_text_colour() == "0"; ++i)
            ::usleep(100);
        ::usleep(std::uniform_int_distribution<useconds_t>(0, 20'000)(random));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string left = read_text("setting.ini");
        const std::string colour = app::read_text_colour();
        ASSERT_EQ(colour.size(), 1u);
        ASSERT_TRUE(left == content(colour.front() - '0')) << "neither old nor new";
        if (colour != "0") ++changed;
    }
    EXPECT_GE(changed, rounds / 2);
    app::write_text_colour("5");
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        EXPECT_FALSE(entry.path().filename().string().starts_with("setting.ini."))
            << "the next write takes up what a kill has left";
}

} // namespace
} // namespace zol::tests
