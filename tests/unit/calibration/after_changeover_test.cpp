// The filling mark, which the changeover window leaves set: which controls of the main window it
// blocks, and what clears it.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

class AfterChangeover : public LogicTest {
  protected:
    AfterChangeover() : LogicTest({.family = 4, .version = 7, .revision = 71}) {}

    void leave_by_exit() {
        open_changeover();
        close_changeover();
    }
    std::vector<Frame> writes_of(const std::function<void()>& act) {
        mark();
        act();
        run_for(3000);
        return writes();
    }
    std::vector<Frame> writes_of_a_tank_slider(double value) {
        return writes_of([&] { operator_drags(form1::Slider1[0], value); });
    }
};

TEST_F(AfterChangeover, MarkBlocksTheControlsThatTestIt) {
    leave_by_exit();
    EXPECT_THAT(writes_of_a_tank_slider(10), IsEmpty());
    EXPECT_THAT(writes_of([this] { operator_clicks(form1::Option_press_no); }), IsEmpty());
    run_for(60'000);
    EXPECT_THAT(writes_of_a_tank_slider(11), IsEmpty());
}

TEST_F(AfterChangeover, OtherControlsWrite) {
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

TEST_F(AfterChangeover, SettingsButtonClearsTheMark) {
    leave_by_exit();
    operator_clicks(form1::Command_impostazioni, 1000ms);
    EXPECT_THAT(writes_of_a_tank_slider(10), ElementsAre(Write(32, 10)));
}

TEST_F(AfterChangeover, EngineButtonClearsTheMark) {
    leave_by_exit();
    operator_clicks(form1::Command_engine, 1000ms);
    EXPECT_FALSE(app::state.ui_loading);
}

TEST_F(AfterChangeover, CloseButtonClearsTheMark) {
    open_changeover();
    operator_closes(form3::Form3);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(1000);
    EXPECT_THAT(writes_of_a_tank_slider(10), ElementsAre(Write(32, 10)));
}

TEST_F(AfterChangeover, CloseButtonKeepsTheMarkAfterTheDialog) {
    start_by_dialog();
    operator_clicks(form1::Command_impostazioni, 1000ms);
    reopen_changeover();
    operator_closes(form3::Form3, 60'000ms);
    EXPECT_THAT(writes_of_a_tank_slider(10), IsEmpty());
}

} // namespace
} // namespace zol::tests
