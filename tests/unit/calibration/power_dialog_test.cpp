// The power adjustment dialog, through the routine that shows it. Nothing in the program calls it.
#include "calibration/power_dialog.h"
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form_power.h"

namespace zol::tests {
namespace {

using namespace form_power;
using app::state;
using form1::Form1;
using link::mirrors;

class PowerDialog : public WarmCar {
  protected:
    void open_dialog() {
        start_during_a_poll();
        inside_program([] { calibration::show_power_dialog(); });
        run_for(1000);
        mark();
    }
    // As after the connection dialog: the main window does not read the unit again.
    void open_dialog_without_reread() {
        open_dialog();
        inside_program([] {
            state.no_reread = true;
            state.ui_loading = true;
            view::set_pointer(Form1, view::Pointer::hourglass);
        });
    }
    double power_gain_of(double gain, view::Widget& option) {
        mirrors.ktar_low = gain;
        operator_clicks(option);
        return mirrors.ktar_high;
    }
};

TEST_F(PowerDialog, DisablesTheMainWindow) {
    open_dialog();
    EXPECT_TRUE(Form_power.shown);
    EXPECT_FALSE(view::enabled(Form1));
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(polls_in(2000));
}

TEST_F(PowerDialog, HasItsCaptions) {
    open_dialog();
    const std::pair<view::Widget*, const char*> captions[] = {
        {&Option_5, "+5%"},       {&Option_15, "+15%"},       {&Option_25, "+25%"},
        {&Option_meno_5, "- 5%"}, {&Option_meno_15, "- 15%"}, {&Option_meno_25, "- 25%"},
        {&cmd_ok, "OK"},          {&cmd_cancel, "CANCEL"}};
    for (const auto& [control, caption] : captions)
        EXPECT_EQ(text(*control), caption);
}

// Downwards it is at least 1001, upwards it has no limit.
TEST_F(PowerDialog, OptionTakesItsPercentageOfTheGain) {
    open_dialog();
    const std::tuple<view::Widget*, double, double> gains[] = {
        {&Option_5, 1400, 1470},       {&Option_15, 1400, 1610},      {&Option_25, 1400, 1750},
        {&Option_meno_5, 1400, 1330},  {&Option_meno_15, 1400, 1190}, {&Option_meno_25, 1400, 1050},
        {&Option_meno_25, 1200, 1001}, {&Option_25, 1600, 2000},      {&Option_5, 100, 105}};
    for (const auto& [option, gain, power_gain] : gains)
        EXPECT_EQ(power_gain_of(gain, *option), power_gain) << option->name << " " << gain;
    EXPECT_THAT(timed_commands(), IsEmpty()) << "an option writes nothing";
}

TEST_F(PowerDialog, OkWritesTheGainAsTheNumber) {
    open_dialog();
    follow({&Form_power, &Form1});
    power_gain_of(1200, Option_15);
    inside_program([] { monitor::start_polling(); });
    mark();
    operator_clicks(cmd_ok);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(2000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(1380, 4))));
    EXPECT_THAT(changes, ElementsAre("0 Form_power hourglass", "700 Form_power normal pointer"));
    EXPECT_TRUE(Form_power.shown);
    EXPECT_EQ(unit->parameter(4), 1001) << "the unit has no parameter 1380";
    EXPECT_FALSE(state.poll_enabled);
}

TEST_F(PowerDialog, FractionOfAGainIsRoundedOnTheWireOnly) {
    open_dialog();
    EXPECT_EQ(power_gain_of(1250, Option_5), 1312.5);
    operator_clicks(cmd_ok, 1000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(1312, 4)));
}

TEST_F(PowerDialog, CancelGoesBackToTheMainWindow) {
    open_dialog_without_reread();
    operator_clicks(cmd_cancel);
    EXPECT_TRUE(view::enabled(Form1));
    EXPECT_TRUE(Form_power.shown);
    EXPECT_EQ(ms_until([] { return !Form_power.loaded; }), 400);
    EXPECT_EQ(ms_until([] { return state.poll_enabled || !state.ui_loading; }), 800);
    EXPECT_TRUE(state.poll_enabled);
    EXPECT_FALSE(state.ui_loading);
    EXPECT_TRUE(busy(Form1));
    run_for(400);
    EXPECT_FALSE(busy(Form1));
    EXPECT_TRUE(focused(form1::Text2));
    EXPECT_TRUE(polls_in(1000));
    EXPECT_THAT(writes(), IsEmpty());
}

// On a closed port no poll delays it.
TEST_F(PowerDialog, PointerComesBackAThirdWaitAfterThePolling) {
    open_dialog_without_reread();
    inside_program([this] { port->close(); });
    operator_clicks(cmd_cancel);
    EXPECT_EQ(ms_until([] { return !busy(Form1); }), 400 + 400 + 400);
}

TEST_F(PowerDialog, CloseButtonEnablesTheMainWindow) {
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
    operator_clicks(cmd_cancel, 10'000ms);
    inside_program([] { calibration::show_power_dialog(); });
    EXPECT_FALSE(view::selected(Option_25));
    EXPECT_FALSE(view::enabled(Form1));
}

TEST_F(PowerDialog, PulledCableLeavesTheTimesOfOk) {
    open_dialog();
    port->unplugged = true;
    operator_clicks(cmd_ok);
    EXPECT_EQ(ms_until([] { return !busy(Form_power); }), 700);
    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace zol::tests
