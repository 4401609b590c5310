// What the main window writes after the changeover window: the filling mark is set when that window
// is left.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AfterChangeoverWindow : public LogicTest {
  protected:
    AfterChangeoverWindow() : LogicTest({.family = 4, .version = 7, .revision = 71}) {}

    void leave_by_exit() {
        open_changeover();
        close_changeover();
        mark();
    }
    std::vector<Frame> writes_of(const std::function<void()>& act) {
        forget_wire();
        act();
        run_for(3000);
        return writes();
    }
    std::vector<Frame> writes_of_a_tank_slider(double value) {
        return writes_of([&] { operator_drags(form1::Slider1[0], value); });
    }
};

TEST_F(AfterChangeoverWindow, ControlsThatTestTheMarkWriteNothing) {
    leave_by_exit();
    EXPECT_THAT(writes_of_a_tank_slider(10), IsEmpty());
    EXPECT_THAT(writes_of([this] { operator_clicks(form1::Option_press_no); }), IsEmpty());
    run_for(60'000);
    EXPECT_THAT(writes_of_a_tank_slider(11), IsEmpty());
}

TEST_F(AfterChangeoverWindow, ControlsThatIgnoreTheMarkWrite) {
    leave_by_exit();
    EXPECT_THAT(writes_of([this] { operator_clicks(form1::Check1); }), ElementsAre(Write(130, 99)));
    EXPECT_THAT(writes_of([this] { operator_enters(form1::Text_time_comm, "25"); }),
                ElementsAre(Write(110, 25)));
    EXPECT_THAT(writes_of([this] { operator_drags(form1::Slider3, 7); }),
                ElementsAre(Write(52, 7)));
    EXPECT_THAT(writes_of([this] { operator_clicks(form1::mnu_search); }),
                ElementsAre(Write(143, 1)));
    EXPECT_THAT(writes_of([this] { operator_clicks(form1::mnu_reset_time_ongas); }),
                ElementsAre(Write(27, 0), Write(28, 0)));
    EXPECT_TRUE(app::state.ui_loading) << "none of them clears it";
}

TEST_F(AfterChangeoverWindow, SettingsButtonClearsTheMark) {
    leave_by_exit();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    EXPECT_THAT(writes_of_a_tank_slider(10), ElementsAre(Write(32, 10)));
}

TEST_F(AfterChangeoverWindow, EngineButtonClearsTheMark) {
    leave_by_exit();
    operator_clicks(form1::Command_engine);
    run_for(1000);
    EXPECT_FALSE(app::state.ui_loading);
}

TEST_F(AfterChangeoverWindow, ClosingByTheFrameClearsTheMarkOnTheDirectPath) {
    open_changeover();
    operator_closes(form3::Form3);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(1000);
    EXPECT_THAT(writes_of_a_tank_slider(10), ElementsAre(Write(32, 10)));
}

TEST_F(AfterChangeoverWindow, ClosingByTheFrameKeepsTheMarkAfterTheDialog) {
    start_by_dialog();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    reopen_changeover();
    operator_closes(form3::Form3);
    run_for(60'000);
    EXPECT_THAT(writes_of_a_tank_slider(10), IsEmpty());
}

} // namespace
} // namespace zol::tests
