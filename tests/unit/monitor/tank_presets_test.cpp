// The choice of the tank's sender: what the unit gets, and what the panel shows afterwards.
#include "monitor/tank_level.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class TankPresets : public LogicTest {
  protected:
    // A tank that has nothing in common with any preset.
    void open_odd_tank() {
        for (const auto& [number, value] : {std::pair{32, 10}, {33, 20}, {34, 30}, {35, 40}})
            unit->set_parameter(number, static_cast<std::uint16_t>(value));
        open_settings();
    }
};

struct Sender {
    int empty_mv, full_mv;
    int t1, t2, t3, t4; // as the unit gets them: the upper two one above the preset
    const char* border_mv[4];
};

const Sender senders[] = {
    {3900, 4200, 3, 15, 36, 71, {"3909", "3945", "4008", "4113"}},
    {3900, 4200, 3, 30, 51, 76, {"3909", "3990", "4053", "4128"}},
    {150, 400, 3, 30, 51, 76, {"158", "225", "278", "340"}},
    {1948, 3964, 48, 66, 87, 96, {"2916", "3279", "3702", "3883"}},
    {4000, 2700, 9, 15, 22, 46, {"3883", "3805", "3714", "3402"}},
    {4000, 600, 6, 14, 50, 80, {"3796", "3524", "2300", "1280"}},
};

class EachTankPreset : public TankPresets, public testing::WithParamInterface<int> {
  protected:
    const Sender& sender = senders[GetParam()];
};

TEST_P(EachTankPreset, GoesToTheUnitByWayOfTheSlidersAndThenWhole) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, GetParam());
    run_for(5000);
    EXPECT_THAT(timed(),
                ElementsAre(At(200, Write(32, sender.t1)), At(600, Write(33, sender.t2)),
                            At(1000, Write(34, sender.t3)), At(1400, Write(35, sender.t4)),
                            At(1800, Write(130, GetParam())), At(2100, Write(30, sender.empty_mv)),
                            At(2400, Write(31, sender.full_mv)), At(2700, Write(32, sender.t1)),
                            At(3000, Write(33, sender.t2)), At(3200, Write(34, sender.t3)),
                            At(3500, Write(35, sender.t4))));
    EXPECT_EQ(unit->parameter(130), GetParam());
    EXPECT_EQ(unit->parameter(30), sender.empty_mv);
    EXPECT_EQ(unit->parameter(31), sender.full_mv);
    EXPECT_EQ(unit->parameter(35), sender.t4);
    EXPECT_EQ(app::state.tank_type, GetParam());
    EXPECT_EQ(link::mirrors.tank_sensor_par, GetParam());
    EXPECT_EQ(link::mirrors.tank_threshold_3, sender.t3);
}

TEST_P(EachTankPreset, LeavesTheSlidersOneAboveTheLowerLabels) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, GetParam());
    EXPECT_EQ(view::value(Slider1[2]), sender.t3 - 1);
    EXPECT_EQ(view::value(Slider1[3]), sender.t4 - 1);
    EXPECT_EQ(view::value(Slider1[4]), sender.t4 + 1); // placed one above the fourth, and raised
    run_for(5000);
    const auto percent = [](int value) { return std::to_string(value) + "%"; };
    EXPECT_EQ(view::value(Slider1[0]), sender.t1 + 1);
    EXPECT_EQ(view::value(Slider1[1]), sender.t2 + 1);
    EXPECT_EQ(view::value(Slider1[2]), sender.t3);
    EXPECT_EQ(view::value(Slider1[3]), sender.t4);
    EXPECT_EQ(view::value(Slider1[4]), sender.t4);
    EXPECT_EQ(text(Label_led0), percent(sender.t1));
    EXPECT_EQ(text(Label8), percent(sender.t1 + 1));
    EXPECT_EQ(text(Label_led1), percent(sender.t2));
    EXPECT_EQ(text(Label9), percent(sender.t2 + 1));
    EXPECT_EQ(text(Label_led2), percent(sender.t3));
    EXPECT_EQ(text(Label10), percent(sender.t3 + 1));
    EXPECT_EQ(text(Label_led3), percent(sender.t4));
    EXPECT_EQ(text(Label11), percent(sender.t4 + 1));
}

TEST_P(EachTankPreset, ShowsItsVoltagesOnTheScale) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, GetParam());
    run_for(5000);
    EXPECT_EQ(text(Text_min_tank), std::to_string(sender.empty_mv));
    EXPECT_EQ(text(lbl_205), std::to_string(sender.empty_mv));
    EXPECT_EQ(text(Text_max_tank), std::to_string(sender.full_mv));
    EXPECT_EQ(text(lbl_200), std::to_string(sender.full_mv));
    EXPECT_EQ(text(lbl_204), sender.border_mv[0]);
    EXPECT_EQ(text(lbl_203), sender.border_mv[1]);
    EXPECT_EQ(text(lbl_202), sender.border_mv[2]);
    EXPECT_EQ(text(lbl_201), sender.border_mv[3]);
}

INSTANTIATE_TEST_SUITE_P(Senders, EachTankPreset, testing::Range(0, 6));

TEST_F(TankPresets, ALabelThatAPresetLeavesAsItWasKeepsTheVoltageOfTheSenderBefore) {
    open_settings(); // 3 percent of 3900 to 4200 mV
    ASSERT_EQ(text(Label_led0) + " " + text(lbl_204), "3% 3909");
    operator_chooses(Combo_tank_level, 2); // 3 percent too, of 150 to 400 mV
    run_for(5000);
    EXPECT_EQ(text(Label_led0) + " " + text(lbl_204), "3% 3909");
    EXPECT_EQ(text(Label_led1) + " " + text(lbl_203), "30% 225");
    EXPECT_EQ(text(lbl_205), "150");
}

TEST_F(TankPresets, TheListKeepsItsHourglassToTheEndAndTheWindowUntilTheFirstRowIsDone) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, 0);
    EXPECT_TRUE(busy(Form1));
    EXPECT_TRUE(busy(Combo_tank_level));
    run_for(399);
    EXPECT_TRUE(busy(Form1));
    run_for(1);
    EXPECT_FALSE(busy(Form1)); // a row that is done gives the pointer back
    run_for(3399);
    EXPECT_TRUE(busy(Combo_tank_level));
    run_for(1);
    EXPECT_EQ(Combo_tank_level.look.pointer, Pointer::normal);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

TEST_F(TankPresets, NothingGoesOutWhileTheProgramFillsItsWindow) {
    open_odd_tank();
    app::state.ui_loading = true;
    operator_chooses(Combo_tank_level, 4);
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(app::state.tank_type, 0);
    EXPECT_EQ(text(Text_min_tank), "3900");
    EXPECT_EQ(Combo_tank_level.look.pointer, Pointer::normal);
}

TEST_F(TankPresets, ASelectionAboveTheSixPresetsSendsTheValuesAsTheyStand) {
    open_odd_tank();
    inside_program([] {
        auto items = Combo_tank_level.look.items;
        items.push_back("a seventh");
        view::set_items(Combo_tank_level, items);
    });
    operator_chooses(Combo_tank_level, 6);
    run_for(5000);
    EXPECT_THAT(writes(), testing::IsSupersetOf({Write(130, 6), Write(30, 3900), Write(31, 4200),
                                                 Write(32, 10), Write(33, 20), Write(34, 31),
                                                 Write(35, 41)}));
    EXPECT_EQ(app::state.tank_type, 6);
}

TEST_F(TankPresets, ACablePulledHalfwayLetsTheSelectionRunToItsEnd) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, 5);
    run_for(1000);
    port->unplugged = true;
    run_for(2799);
    EXPECT_TRUE(busy(Combo_tank_level));
    run_for(1);
    EXPECT_FALSE(busy(Combo_tank_level));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(writes().size(), 3u); // nothing behind the third threshold
    EXPECT_EQ(link::mirrors.tank_threshold_4, 80);
    port->unplugged = false;
    mark();
    operator_drags(Slider1[0], 2);
    run_for(1000);
    EXPECT_THAT(writes(), ElementsAre(Write(32, 2)));
}

TEST_F(TankPresets, TheBoxOfFreeValuesWritesItsTypeAndChangesNothingElse) {
    open_odd_tank();
    operator_clicks(Check1);
    EXPECT_EQ(app::state.tank_type, 99);
    run_for(1000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(130, 99))));
    EXPECT_EQ(link::mirrors.tank_sensor_par, 99);
    EXPECT_EQ(text(Text_min_tank), "3900");
    EXPECT_TRUE(view::enabled(Combo_tank_level));
    EXPECT_TRUE(view::enabled(Text_min_tank));
    EXPECT_EQ(Combo_tank_level.look.list_index, 0);
}

TEST_F(TankPresets, TheBoxClearedGivesTypeZeroThoughTheListShowsAnother) {
    unit->set_parameter(130, 3);
    open_odd_tank();
    ASSERT_EQ(Combo_tank_level.look.list_index, 3);
    operator_clicks(Check1);
    run_for(1000);
    mark();
    operator_clicks(Check1);
    run_for(1000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(130, 0))));
    EXPECT_EQ(app::state.tank_type, 0);
    EXPECT_EQ(Combo_tank_level.look.list_index, 3);
    EXPECT_EQ(unit->parameter(130), 0);
}

TEST_F(TankPresets, TheBoxTickedByTheProgramWritesTooAndWaitsInTheMiddleOfTheReading) {
    unit->set_parameter(130, 99);
    start_program();
    run_for(15000);
    EXPECT_THAT(writes(), testing::Contains(Write(130, 99)).Times(1));
    EXPECT_TRUE(view::selected(Check1));
    EXPECT_EQ(Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(app::state.tank_type, 99);
}

} // namespace
} // namespace zol::tests
