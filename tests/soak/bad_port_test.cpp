// The whole program with one line fault at a time.
#include "tests/support/bad_port.h"
#include "tests/support/logic_fixture.h"
#include "view/timers.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class BadPortTest : public LogicTest {
  protected:
    BadPortTest() {
        use_unit({.warm = true});
        bad = std::make_unique<BadPort>(*port, [this] { return time.now_us(); });
        link::use_serial_port(*bad);
        start_connected();
        screen.on_changed = [this](view::Widget& widget, view::Aspect) {
            telegrams += &widget == &form1::Shape2;
        };
    }
    ~BadPortTest() override { time.finish(); }

    // Telegrams shown in a minute with this fault.
    int telegrams_in_a_minute(const sim::BadLineOptions& options) {
        bad->set_options(options);
        telegrams = 0;
        run_for(60'000);
        return telegrams;
    }

    std::unique_ptr<BadPort> bad;
    int telegrams = 0;
};

constexpr int telegrams_when_clean = 60'000 / 350;

TEST_F(BadPortTest, CleanLineCarriesATelegramEach350Ms) {
    EXPECT_NEAR(telegrams_in_a_minute({}), telegrams_when_clean, 1);
    EXPECT_EQ(bad->damaged(), 0u);
}

TEST_F(BadPortTest, NoLineFaultStopsThePolling) {
    const sim::BadLineOptions faults[] = {
        {.seed = 1, .drop = 0.01},
        {.seed = 2, .doubled = 0.01},
        {.seed = 3, .insert = 0.01},
        {.seed = 4, .truncate = 0.01},
        {.seed = 5, .delay = 0.02, .delay_ms = 400},
        {.seed = 6, .unplug = 0.0005},
        {.seed = 7, .join = 0.01},
        {.seed = 8, .split = 0.01},
    };
    for (const auto& options : faults) {
        const auto damaged = bad->damaged();
        EXPECT_LT(telegrams_in_a_minute(options), telegrams_when_clean - 1) << describe(options);
        EXPECT_GT(bad->damaged(), damaged) << describe(options);
        run_for(10'000);
        telegrams_in_a_minute({}); // a pulled cable is back
        EXPECT_GE(telegrams_in_a_minute({}), telegrams_when_clean - 1) << describe(options);
    }
}

TEST_F(BadPortTest, ChangedBitDoesNotStopThePolling) {
    EXPECT_GT(telegrams_in_a_minute({.seed = 3, .flip = 0.005}), telegrams_when_clean / 2);
    EXPECT_GT(bad->damaged(), 0u);
}

TEST_F(BadPortTest, UselessBytesKeepTheLastTelegramShown) {
    EXPECT_LE(telegrams_in_a_minute({.silence = true}), 1);
    EXPECT_LE(telegrams_in_a_minute({.silence = true, .babble = true}), 1);
    EXPECT_LE(telegrams_in_a_minute({.silence = true, .echo = true}), 1);
    telegrams_in_a_minute({});
    EXPECT_NEAR(telegrams_in_a_minute({}), telegrams_when_clean, 1);
}

TEST_F(BadPortTest, PulledAdapterCannotBeOpened) {
    bad->set_options({.unplug = 1, .unplug_ms = 60'000});
    run_for(1000);
    ASSERT_FALSE(bad->plugged());
    EXPECT_FALSE(bad->write(link::Bytes{1}));
    EXPECT_EQ(bad->read_all(), std::nullopt);
    EXPECT_EQ(bad->open(), "No such file or directory");
    bad->set_options({});
    run_for(60'000);
    EXPECT_NEAR(telegrams_in_a_minute({}), telegrams_when_clean, 1);
}

TEST_F(BadPortTest, PortWithoutPermissionCannotBeReopened) {
    EXPECT_NEAR(telegrams_in_a_minute({.denied = true}), telegrams_when_clean, 1);
    bad->close();
    EXPECT_EQ(bad->open(), "Permission denied");
    bad->set_options({});
    EXPECT_EQ(bad->open(), std::nullopt);
}

TEST_F(BadPortTest, SameSeedGivesTheSameRun) {
    const auto run = [this](std::uint32_t seed) {
        bad->set_options({.seed = seed, .drop = 0.02, .flip = 0.02});
        const auto before = bad->damaged();
        for (int i = 0; i < 50; ++i)
            bad->write(link::Bytes(100, 7));
        return bad->damaged() - before;
    };
    inside_program([&] {
        const auto once = run(11);
        const auto other = run(12);
        EXPECT_EQ(run(11), once);
        EXPECT_NE(other, once);
    });
}

} // namespace
} // namespace zol::tests
