// What the controls of the engine panel and its menus have in common when they write.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;

struct Control {
    view::Widget& widget;
    std::optional<double> value; // for a slider
    int end_ms;                  // of the hourglass
};
std::string name_of(const testing::TestParamInfo<Control>& tested) {
    return tested.param.widget.name;
}
void PrintTo(const Control& it, std::ostream* out) { *out << it.widget.name; }

class EveryControl : public WarmCar, public testing::WithParamInterface<Control> {
  protected:
    void operate() {
        const auto& [widget, value, end_ms] = GetParam();
        if (value)
            operator_drags(widget, *value);
        else
            operator_clicks(widget);
    }
};

TEST_P(EveryControl, PulledCableLeavesItsTimes) {
    start_during_a_poll();
    port->unplugged = true;
    operate();
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(ms_until([] { return !busy(Form1); }), GetParam().end_ms);
    run_for(1000);
    EXPECT_THAT(writes(), testing::IsEmpty());
    for (view::Widget* each : {&Slider_attenuazione, &Command_rpm_piu, &Command_rpm_meno})
        EXPECT_TRUE(view::enabled(*each)) << each->name;
    for (view::Widget* each : {&Command_engine, &Command_impostazioni, &Command_rpm_piu})
        EXPECT_EQ(each->look.pointer, view::Pointer::custom) << each->name;
}

const Control stops_polling[] = {
    {Slider_attenuazione, 30, 600},
    {Command_rpm_piu, {}, 800},
    {Command_rpm_meno, {}, 700},
    {mnu_matrix_2_ohm, {}, 1900},
    {mnu_matrix_3_ohm, {}, 2200},
    {mnu_valtek, {}, 1900},
    {mnu_mivra, {}, 1900},
    {type_a, {}, 900},
    {type_b, {}, 900},
    {type_c, {}, 900},
};
const Control restarts_polling[] = {{Slider_ktar, 1250, 1400}, {Slider_power, 1400, 600}};

INSTANTIATE_TEST_SUITE_P(StopsPolling, EveryControl, testing::ValuesIn(stops_polling), name_of);
INSTANTIATE_TEST_SUITE_P(RestartsPolling, EveryControl, testing::ValuesIn(restarts_polling),
                         name_of);

class PollingAfterControl : public EveryControl {};

// Some switch the polling timer on again, but its first tick stops it: the polling is forbidden.
TEST_P(PollingAfterControl, IsRestartedByTheWatchdogOnly) {
    start_between_polls();
    operate();
    run_for(GetParam().end_ms);
    EXPECT_EQ(Timer_stato_sistema.is_on(), &GetParam().widget != &Slider_attenuazione);
    EXPECT_FALSE(app::state.poll_enabled);
    run_for(50);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(100));
}

INSTANTIATE_TEST_SUITE_P(Each, PollingAfterControl, testing::ValuesIn(stops_polling), name_of);

} // namespace
} // namespace zol::tests
