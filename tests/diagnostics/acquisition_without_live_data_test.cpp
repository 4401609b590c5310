// The acquisition window on a unit that never answers the request for live data.
#include "tests/support/no_live_data.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

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

TEST_P(AcquisitionWithoutLiveData, OnlyItsOwnRequestsAreSent) {
    start_connected();
    run_for(5000 + GetParam());
    operator_clicks(form1::Command5);
    run_for(3000);
    forget_wire();
    run_for(4000);
    EXPECT_THAT(frames(), testing::Each(Send(3)));
    EXPECT_THAT(frames(), testing::SizeIs(testing::AllOf(testing::Ge(8), testing::Le(10))));
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, AcquisitionWithoutLiveData, testing::Range(0, 400, 30));

} // namespace
} // namespace zol::tests
