// The power adjustment dialog, through the routine that shows it.
#include "calibration/power_dialog.h"
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form_power.h"

namespace zol::tests {
namespace {

using namespace form1;
using namespace form_power;
using app::state;
using link::mirrors;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class PowerDialog : public WarmCar {
  protected:
    void open_dialog() {
        start_during_a_poll();
        inside_program([] { calibration::show_power_dialog(); });
        run_for(1000);
        mark();
    }
    double high_gain_of(double low, view::Widget& option) {
        mirrors.ktar_low = low;
        operator_clicks(option);
        return mirrors.ktar_high;
    }
};

TEST_F(PowerDialog, HasTheWordWhileItIsOpen) {
    open_dialog();
    EXPECT_TRUE(Form_power.shown);
    EXPECT_FALSE(view::enabled(Form1));
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(polls_in(2000));
    EXPECT_EQ(view::text(Option_5), "+5%");
    EXPECT_EQ(view::text(Option_15), "+15%");
    EXPECT_EQ(view::text(Option_25), "+25%");
    EXPECT_EQ(view::text(Option_meno_5), "- 5%");
    EXPECT_EQ(view::text(Option_meno_15), "- 15%");
    EXPECT_EQ(view::text(Option_meno_25), "- 25%");
    EXPECT_EQ(view::text(form_power::cmd_ok), "OK");
    EXPECT_EQ(view::text(form_power::cmd_cancel), "CANCEL");
}

TEST_F(PowerDialog, EachOptionTakesItsPercentageOfTheLowerGain) {
    open_dialog();
    EXPECT_EQ(high_gain_of(1400, Option_5), 1470);
    EXPECT_EQ(high_gain_of(1400, Option_15), 1610);
    EXPECT_EQ(high_gain_of(1400, Option_25), 1750);
    EXPECT_EQ(high_gain_of(1400, Option_meno_5), 1330);
    EXPECT_EQ(high_gain_of(1400, Option_meno_15), 1190);
    EXPECT_EQ(high_gain_of(1400, Option_meno_25), 1050);
    EXPECT_THAT(timed_commands(), IsEmpty()) << "an option writes nothing";
}

TEST_F(PowerDialog, DownwardsIsRaisedTo1001AndUpwardsHasNoLimit) {
    open_dialog();
    EXPECT_EQ(high_gain_of(1200, Option_meno_25), 1001);
    EXPECT_EQ(high_gain_of(1600, Option_25), 2000);
    EXPECT_EQ(high_gain_of(100, Option_5), 105) << "the floor is for the way down only";
}

TEST_F(PowerDialog, OkWritesTheGainAsTheNumberAndStaysOpen) {
    open_dialog();
    follow({&Form_power, &Form1});
    high_gain_of(1200, Option_15);
    inside_program([] { monitor::start_polling(); });
    mark();
    operator_clicks(form_power::cmd_ok);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(2000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(1380, 4))));
    EXPECT_THAT(changes, ElementsAre("0 Form_power hourglass", "700 Form_power normal pointer"));
    EXPECT_TRUE(Form_power.shown);
    EXPECT_EQ(unit->parameter(4), 1001) << "the unit has no parameter 1380";
    EXPECT_FALSE(state.poll_enabled);
}

TEST_F(PowerDialog, AFractionOfAGainIsRoundedOnTheWireOnly) {
    open_dialog();
    EXPECT_EQ(high_gain_of(1250, Option_5), 1312.5);
    operator_clicks(form_power::cmd_ok);
    run_for(1000);
    EXPECT_THAT(writes(), ElementsAre(Write(1312, 4)));
}

TEST_F(PowerDialog, CancelGivesTheMainWindowAndThePollingBack) {
    open_dialog();
    // A run in which the main window reads nothing anew, as behind the connection dialog.
    inside_program([] {
        state.no_reread = true;
        state.ui_loading = true;
        view::set_pointer(Form1, Pointer::hourglass);
    });
    operator_clicks(form_power::cmd_cancel);
    EXPECT_TRUE(view::enabled(Form1));
    EXPECT_TRUE(Form_power.shown);
    run_for(399);
    EXPECT_TRUE(Form_power.loaded);
    run_for(1);
    EXPECT_FALSE(Form_power.loaded);
    run_for(399);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_TRUE(state.ui_loading);
    run_for(1);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_FALSE(state.ui_loading);
    EXPECT_EQ(Form1.look.pointer, Pointer::hourglass);
    run_for(400);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(view::focus(), &Text2);
    EXPECT_TRUE(polls_in(1000));
    EXPECT_THAT(writes(), IsEmpty());
}

// On a closed port no poll comes between.
TEST_F(PowerDialog, ThePointerComesBackAThirdWaitBehindThePolling) {
    open_dialog();
    inside_program([this] {
        port->close();
        state.no_reread = true;
        view::set_pointer(Form1, Pointer::hourglass);
    });
    operator_clicks(form_power::cmd_cancel);
    run_for(400 + 400 + 399);
    EXPECT_EQ(Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

TEST_F(PowerDialog, ClosedByItsFrameItDoesNotLeaveTheMainWindowLocked) {
    open_dialog();
    inside_program([] { state.no_reread = true; });
    operator_closes(Form_power);
    EXPECT_FALSE(Form_power.loaded);
    EXPECT_TRUE(view::enabled(Form1));
    EXPECT_TRUE(state.poll_enabled);
}

TEST_F(PowerDialog, OpensAgainWithNoOptionChosen) {
    open_dialog();
    operator_clicks(Option_25);
    operator_clicks(form_power::cmd_cancel);
    run_for(10'000);
    inside_program([] { calibration::show_power_dialog(); });
    EXPECT_FALSE(view::selected(Option_25));
    EXPECT_FALSE(view::enabled(Form1));
}

TEST_F(PowerDialog, ACablePulledUnderOkGivesThePointerBack) {
    open_dialog();
    port->unplugged = true;
    operator_clicks(form_power::cmd_ok);
    run_for(700);
    EXPECT_EQ(Form_power.look.pointer, Pointer::normal);
    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace zol::tests
