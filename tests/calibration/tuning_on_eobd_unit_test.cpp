// A unit with a diagnosis link: behind each telegram the polling loop reads its live data, and with
// them whatever else stands in the receive buffer that it shares with the tuning.
#include "calibration/automatic_tuning.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

struct TuningOnEobdUnit : Bench, testing::WithParamInterface<int> {
    TuningOnEobdUnit()
        : Bench({.family = GetParam(), .version = 7, .revision = 71, .warm = true}) {}
};

TEST_P(TuningOnEobdUnit, RunsToItsEndBesideThePolling) {
    start_connected();
    inside_program([] { form1::Timer6.on(); });
    run_for(5000);
    screen.answer_message("Automatic Tuning System", view::Answer::yes);
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    operator_presses(form1::Form1, 84, 2);
    run_for(600'000);
    EXPECT_EQ(view::text(form1::lbl_tuning), "-- FINISH --");
    EXPECT_FALSE(form1::lbl_tuning.look.visible);
    view::set_text(form1::Label13, "before");
    run_for(3000);
    EXPECT_NE(view::text(form1::Label13), "before") << "the live data are read again";
}

INSTANTIATE_TEST_SUITE_P(Families, TuningOnEobdUnit, testing::Values(2, 4));

} // namespace
} // namespace zol::tests
