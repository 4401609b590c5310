// A unit with a diagnosis link is asked two telegrams in turn; the acquisition window may open at
// any moment of that.
#include "tests/support/bench.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

struct AcquisitionOnEobdUnit : Bench, testing::WithParamInterface<int> {
    AcquisitionOnEobdUnit() : Bench({.family = 2, .version = 7, .revision = 71, .warm = true}) {}
    int shown() { return std::stoi(view::text(acquisizione::Label1)); }
};

TEST_P(AcquisitionOnEobdUnit, TheWindowFollowsTheEngineWheneverItIsOpened) {
    start_connected();
    run_for(5000 + GetParam());
    operator_clicks(form1::Command5);
    run_for(3000);
    EXPECT_GT(shown(), 2000);
    unit->engine().throttle_set = 80;
    run_for(5000);
    EXPECT_GT(shown(), 6000);
    unit->engine().throttle_set = 0;
    run_for(5000);
    EXPECT_LT(shown(), 5000);
}

// A whole pass takes less than this.
INSTANTIATE_TEST_SUITE_P(AtAnyMomentOfThePolling, AcquisitionOnEobdUnit,
                         testing::Range(0, 1000, 50));

} // namespace
} // namespace zol::tests
