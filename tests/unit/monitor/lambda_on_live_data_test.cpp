// The lambda panel on a unit with live data, opened at any moment of a pass of the polling. The
// pass asks for two telegrams in turn, and the panel reads the same buffer.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class LambdaOnLiveData : public LogicTest, public testing::WithParamInterface<int> {
  protected:
    LambdaOnLiveData() : LogicTest({.family = 2, .version = 7, .revision = 71, .warm = true}) {}
    void open_panel() {
        start_connected();
        run_for(5000 + GetParam());
        operator_clicks(form1::Command_lambda, 3000ms);
    }
};

TEST_P(LambdaOnLiveData, OnlyThePanelAsksAfterAFewSeconds) {
    open_panel();
    EXPECT_EQ(frames_in(1000), std::vector(10, Send(3))) << "every 100 ms";
}

// A whole pass takes less than a second.
INSTANTIATE_TEST_SUITE_P(AtAnyMoment, LambdaOnLiveData, testing::Range(0, 1000, 50));

// The unit never replies to the request for live data.
class LambdaWithoutLiveData : public LambdaOnLiveData {
  protected:
    LambdaWithoutLiveData() { port->lost_command = 16; }
};

TEST_P(LambdaWithoutLiveData, PanelReadsTenTimesASecond) {
    open_panel();
    const auto asked = frames_in(1000);
    EXPECT_EQ(std::ranges::count(asked, Send(3)), 10);
    EXPECT_LE(std::ranges::count(asked, Send(16)), 1);
}

TEST_P(LambdaWithoutLiveData, PanelShowsTheUnitsState) {
    open_panel();
    view::set_text(form1::Label_stato, "before");
    run_for(500);
    EXPECT_NE(text(form1::Label_stato), "before");
}

TEST_P(LambdaWithoutLiveData, LiveDataAreAskedForAfterThePanel) {
    open_panel();
    operator_clicks(form1::Command_engine);
    EXPECT_THAT(frames_in(1000), testing::Contains(Send(16)));
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, LambdaWithoutLiveData, testing::Range(0, 400, 30));

} // namespace
} // namespace zol::tests
