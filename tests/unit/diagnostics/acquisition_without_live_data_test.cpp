// The acquisition window on a unit that never answers the request for live data.
#include "tests/support/no_live_data.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::tests {
namespace {

struct AcquisitionWithoutLiveData : NoLiveDataBench, testing::WithParamInterface<int> {
    int shown() { return std::stoi(view::text(acquisizione::Label1)); }
};

TEST_P(AcquisitionWithoutLiveData, WindowFollowsTheEngine) {
    start_connected();
    run_for(5000 + GetParam());
    operator_clicks(form1::Command5);
    run_for(3000);
    EXPECT_GT(shown(), 2000);
    unit->engine().throttle_set = 80;
    run_for(5000);
    EXPECT_GT(shown(), 6000);
}

TEST_P(AcquisitionWithoutLiveData, LiveDataAreAskedForRarely) {
    start_connected();
    run_for(5000 + GetParam());
    operator_clicks(form1::Command5);
    run_for(3000);
    forget_wire();
    run_for(4000);
    EXPECT_GE(std::ranges::count(frames(), Send(3)), 7);
    EXPECT_LE(std::ranges::count(frames(), Send(16)), 8);
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, AcquisitionWithoutLiveData, testing::Range(0, 400, 30));

} // namespace
} // namespace zol::tests
