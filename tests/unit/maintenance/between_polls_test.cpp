// Begun in the 50 ms between two polls, a sequence lets no further one in before its first frame.
#include "maintenance/factory_reset.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;

class BetweenPolls : public Bench {
  protected:
    BetweenPolls() : Bench({.family = 2}) {}
    void start_between_polls() {
        start_connected();
        while (!form1::Timer_stato_sistema.is_on())
            run_for(1);
        forget_wire();
    }
};

TEST_F(BetweenPolls, TheUnitsOwnResetGoesOutAlone) {
    start_between_polls();
    inside_program(maintenance::send_reset_only);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Send(5)));
}

TEST_F(BetweenPolls, TheTimeOnGasIsWrittenAlone) {
    start_between_polls();
    operator_clicks(form1::mnu_reset_time_ongas);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(27, 0), Write(28, 0)));
}

} // namespace
} // namespace zol::tests
