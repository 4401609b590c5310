// The lambda panel on a unit that never answers the request for live data.
#include "tests/support/no_live_data.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::tests {
namespace {

struct LambdaWithoutLiveData : NoLiveDataBench, testing::WithParamInterface<int> {
    void open_panel() {
        start_connected();
        run_for(5000 + GetParam());
        operator_clicks(form1::Command_lambda);
        run_for(2000);
        forget_wire();
    }
};

TEST_P(LambdaWithoutLiveData, PanelReadsTenTimesASecond) {
    open_panel();
    run_for(1000);
    EXPECT_EQ(std::ranges::count(frames(), Send(3)), 10);
    EXPECT_LE(std::ranges::count(frames(), Send(16)), 1);
}

TEST_P(LambdaWithoutLiveData, PanelShowsTheUnitsState) {
    open_panel();
    view::set_text(form1::Label_stato, "before");
    run_for(500);
    EXPECT_NE(view::text(form1::Label_stato), "before");
}

TEST_P(LambdaWithoutLiveData, LiveDataAreAskedForAfterThePanel) {
    open_panel();
    operator_clicks(form1::Command_engine);
    run_for(1000);
    EXPECT_THAT(frames(), testing::Contains(Send(16)));
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, LambdaWithoutLiveData, testing::Range(0, 400, 30));

} // namespace
} // namespace zol::tests
