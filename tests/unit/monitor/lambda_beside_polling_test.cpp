// A unit with a diagnosis link is asked two telegrams in turn; the lambda panel may open at any
// moment of that.
#include "tests/support/bench.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

struct LambdaPanelOnEobdUnit : Bench, testing::WithParamInterface<int> {
    LambdaPanelOnEobdUnit() : Bench({.family = 2, .version = 7, .revision = 71, .warm = true}) {}
};

TEST_P(LambdaPanelOnEobdUnit, OnlyThePanelsOwnRequestsGoOutAFewSecondsAfterItsOpening) {
    start_connected();
    run_for(5000 + GetParam());
    operator_clicks(form1::Command_lambda);
    run_for(3000);
    forget_wire();
    run_for(1000);
    EXPECT_THAT(frames(), testing::Each(Send(3)));
    EXPECT_THAT(frames(), testing::SizeIs(10)); // every 100 ms
}

// A whole pass takes less than this.
INSTANTIATE_TEST_SUITE_P(AtAnyMomentOfThePolling, LambdaPanelOnEobdUnit,
                         testing::Range(0, 1000, 50));

} // namespace
} // namespace zol::tests
