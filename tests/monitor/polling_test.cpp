// The polling loop: what goes out, when, and what the window shows of what comes back.
#include "app/numbers.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;

class Polling : public Bench {};

TEST_F(Polling, AUnitThatAnswersIsAskedEvery350Milliseconds) {
    start_connected();
    run_for(1050);
    ASSERT_THAT(frames(), ElementsAre(Send(3), Send(3), Send(3)));
    EXPECT_EQ(port->sent[1].at_ms - port->sent[0].at_ms, 350);
    EXPECT_EQ(port->sent[2].at_ms - port->sent[1].at_ms, 350);
    EXPECT_GT(app::val(view::text(form1::Label_rpm)), 0);
}

} // namespace
} // namespace zol::tests
