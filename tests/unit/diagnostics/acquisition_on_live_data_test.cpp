// The acquisition window on a unit with live data, opened at any moment of a pass of the polling.
// The pass asks for two telegrams in turn, and the window reads the same buffer.
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class AcquisitionOnLiveData : public LogicTest, public testing::WithParamInterface<int> {
  protected:
    AcquisitionOnLiveData()
        : LogicTest({.family = 2, .version = 7, .revision = 71, .warm = true}) {}

    void open_window() {
        start_connected();
        run_for(5000 + GetParam());
        operator_clicks(form1::Command5, 3000ms);
    }
    int shown() { return std::stoi(text(acquisizione::Label1)); }
    void expect_window_follows_engine() {
        EXPECT_GT(shown(), 2000);
        unit->engine().throttle_set = 80;
        run_for(5000);
        EXPECT_GT(shown(), 6000);
        unit->engine().throttle_set = 0;
        run_for(5000);
        EXPECT_LT(shown(), 5000);
    }
};

TEST_P(AcquisitionOnLiveData, WindowFollowsTheEngine) {
    open_window();
    expect_window_follows_engine();
}

// A whole pass takes less than a second.
INSTANTIATE_TEST_SUITE_P(AtAnyMoment, AcquisitionOnLiveData, testing::Range(0, 1000, 50));

// The unit never replies to the request for live data.
class AcquisitionWithoutLiveData : public AcquisitionOnLiveData {
  protected:
    AcquisitionWithoutLiveData() { port->lost_command = 16; }
};

TEST_P(AcquisitionWithoutLiveData, WindowFollowsTheEngine) {
    open_window();
    expect_window_follows_engine();
}

TEST_P(AcquisitionWithoutLiveData, LiveDataAreAskedForRarely) {
    open_window();
    const auto asked = frames_in(4000);
    EXPECT_GE(std::ranges::count(asked, Send(3)), 7);
    EXPECT_LE(std::ranges::count(asked, Send(16)), 8);
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, AcquisitionWithoutLiveData, testing::Range(0, 400, 30));

// The watchdog has restarted the polling, and the unit gives no live data for three seconds. A pass
// that began inside the window's own wait must not hold up the window for good.
class AcquisitionAfterSilence : public AcquisitionOnLiveData {
  protected:
    void open_window_before_the_silence() {
        start_by_dialog();
        run_for(5000);
        operator_clicks(form1::Command5);
        run_for(3000 + GetParam());
        port->lost_command = 16;
        run_for(3000);
        port->lost_command.reset();
    }
};

TEST_P(AcquisitionAfterSilence, WindowFollowsTheEngineAgain) {
    open_window_before_the_silence();
    run_for(5000);
    view::set_text(acquisizione::Label1, "old");
    run_for(5000);
    EXPECT_NE(text(acquisizione::Label1), "old");
}

TEST_P(AcquisitionAfterSilence, SaveEnds) {
    open_window_before_the_silence();
    operator_clicks(acquisizione::Command_salva, 20'000ms);
    EXPECT_FALSE(acquisizione::acquisizione.loaded);
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, AcquisitionAfterSilence, testing::Range(0, 500, 50));

} // namespace
} // namespace zol::tests
