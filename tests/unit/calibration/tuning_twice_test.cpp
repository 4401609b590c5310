// Ctrl+T pressed again in the middle of a run: the second runs inside the first one's waits.
#include "tests/unit/calibration/tuning_bench.h"

namespace zol::tests {
namespace {

TEST_F(TuningBench, ASecondRunThatEndsClearsTheMarkOfTheFirstWhichMeasuresOn) {
    start_without_polling();
    start_tuning();
    run_for(5000);
    start_tuning();
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    screen.answer_message("AUTO READY TO GO!!!", view::Answer::ok);
    for (int s = 0; s < 120 && screen.message_boxes.size() < 3; ++s)
        run_for(1000);
    ASSERT_EQ(screen.message_boxes.size(), 3u);
    run_for(3000);
    EXPECT_EQ(app::state.tuning_mode, 0);
    for (int s = 0; s < 120 && screen.message_boxes.size() < 4; ++s)
        run_for(1000);
    run_for(5000);
    EXPECT_EQ(app::state.tuning_mode, 0);
}

} // namespace
} // namespace zol::tests
