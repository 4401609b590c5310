// The choice of the tank's sender: what the unit gets, and what the panel shows afterwards.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;

class TankPresets : public LogicTest {
  protected:
    // A tank that has nothing in common with any preset.
    void open_odd_tank() {
        for (const auto& [number, value] : {std::pair{32, 10}, {33, 20}, {34, 30}, {35, 40}})
            set_parameter(number, value);
        open_settings();
    }
};

struct Sender {
    int empty_mv, full_mv;
    int t1, t2, t3, t4; // as the unit gets them: the upper two are one above the preset
    std::vector<std::string> border_mv;
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

    void choose() {
        open_odd_tank();
        operator_chooses(Combo_tank_level, GetParam());
    }
    static std::vector<double> sliders() {
        std::vector<double> values;
        for (int row = 0; row < 5; ++row)
            values.push_back(view::value(Slider1[row]));
        return values;
    }
    static std::string percent(int value) { return std::to_string(value) + "%"; }
};

// The nudge of the sliders sends the thresholds, then the whole tank is sent.
TEST_P(EachTankPreset, IsSent) {
    choose();
    run_for(5000);
    const auto [empty, full, t1, t2, t3, t4, border] = sender;
    EXPECT_THAT(timed(),
                ElementsAre(At(200, Write(32, t1)), At(600, Write(33, t2)), At(1000, Write(34, t3)),
                            At(1400, Write(35, t4)), At(1800, Write(130, GetParam())),
                            At(2100, Write(30, empty)), At(2400, Write(31, full)),
                            At(2700, Write(32, t1)), At(3000, Write(33, t2)),
                            At(3200, Write(34, t3)), At(3500, Write(35, t4))));
    for (const Timed& each : timed())
        EXPECT_EQ(unit->parameter(each.frame.number), each.frame.value);
    EXPECT_EQ(app::state.tank_type, GetParam());
    EXPECT_EQ(link::mirrors.tank_sensor_par, GetParam());
    EXPECT_EQ(link::mirrors.tank_threshold_3, t3);
}

TEST_P(EachTankPreset, LeavesTheLowerSlidersOneAboveTheirLabels) {
    choose();
    EXPECT_EQ(view::value(Slider1[2]), sender.t3 - 1);
    EXPECT_EQ(view::value(Slider1[3]), sender.t4 - 1);
    EXPECT_EQ(view::value(Slider1[4]), sender.t4 + 1) << "placed one above the fourth, then raised";
    run_for(5000);
    EXPECT_THAT(sliders(),
                ElementsAre(sender.t1 + 1, sender.t2 + 1, sender.t3, sender.t4, sender.t4));
    const std::tuple<int, view::Widget*, view::Widget*> rows[] = {
        {sender.t1, &Label_led0, &Label8},
        {sender.t2, &Label_led1, &Label9},
        {sender.t3, &Label_led2, &Label10},
        {sender.t4, &Label_led3, &Label11}};
    for (const auto& [threshold, upper_bound, next_lower_bound] : rows) {
        EXPECT_EQ(text(*upper_bound), percent(threshold));
        EXPECT_EQ(text(*next_lower_bound), percent(threshold + 1));
    }
}

TEST_P(EachTankPreset, ShowsItsVoltages) {
    choose();
    run_for(5000);
    for (const view::Widget* empty : {&Text_min_tank, &lbl_205})
        EXPECT_EQ(text(*empty), std::to_string(sender.empty_mv));
    for (const view::Widget* full : {&Text_max_tank, &lbl_200})
        EXPECT_EQ(text(*full), std::to_string(sender.full_mv));
    EXPECT_EQ((std::vector{text(lbl_204), text(lbl_203), text(lbl_202), text(lbl_201)}),
              sender.border_mv);
}

INSTANTIATE_TEST_SUITE_P(Senders, EachTankPreset, testing::Range(0, 6));

// The label of 3 percent does not change, so its voltage stays that of the sender before.
TEST_F(TankPresets, UnchangedLabelKeepsItsVoltage) {
    open_settings(); // 3900 to 4200 mV
    ASSERT_EQ(text(Label_led0) + " " + text(lbl_204), "3% 3909");
    operator_chooses(Combo_tank_level, 2); // 150 to 400 mV
    run_for(5000);
    EXPECT_EQ(text(Label_led0) + " " + text(lbl_204), "3% 3909");
    EXPECT_EQ(text(Label_led1) + " " + text(lbl_203), "30% 225");
    EXPECT_EQ(text(lbl_205), "150");
}

// A row that has been handled gives the pointer of the window back.
TEST_F(TankPresets, ListKeepsItsHourglassToTheEnd) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, 0);
    EXPECT_TRUE(busy(Combo_tank_level));
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(ms_until([] { return !busy(Form1); }), 400);
    EXPECT_EQ(ms_until([] { return !busy(Combo_tank_level); }), 3800);
    EXPECT_FALSE(busy(Form1));
}

TEST_F(TankPresets, FillingSendsNothing) {
    open_odd_tank();
    app::state.ui_loading = true;
    operator_chooses(Combo_tank_level, 4, 5000ms);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(app::state.tank_type, 0);
    EXPECT_EQ(text(Text_min_tank), "3900");
    EXPECT_FALSE(busy(Combo_tank_level));
}

// The list has six entries; this one is added by the test.
TEST_F(TankPresets, SeventhEntrySendsTheValuesAsTheyAre) {
    open_odd_tank();
    inside_program([] {
        auto items = Combo_tank_level.look.items;
        items.push_back("a seventh");
        view::set_items(Combo_tank_level, items);
    });
    operator_chooses(Combo_tank_level, 6, 5000ms);
    EXPECT_THAT(writes(), testing::IsSupersetOf({Write(130, 6), Write(30, 3900), Write(31, 4200),
                                                 Write(32, 10), Write(33, 20), Write(34, 31),
                                                 Write(35, 41)}));
    EXPECT_EQ(app::state.tank_type, 6);
}

TEST_F(TankPresets, PulledCableLeavesItsTimes) {
    open_odd_tank();
    operator_chooses(Combo_tank_level, 5, 1000ms);
    port->unplugged = true;
    EXPECT_EQ(ms_until([] { return !busy(Combo_tank_level); }), 3800);
    EXPECT_FALSE(busy(Form1));
    EXPECT_EQ(writes().size(), 3u) << "nothing after the third threshold";
    EXPECT_EQ(link::mirrors.tank_threshold_4, 80);
    port->unplugged = false;
    mark();
    operator_drags(Slider1[0], 2, 1000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(32, 2)));
}

// --- The box of free values

TEST_F(TankPresets, BoxOfFreeValuesWritesItsTypeOnly) {
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

TEST_F(TankPresets, ClearedBoxGivesType0WhateverTheListShows) {
    set_parameter(130, 3);
    open_odd_tank();
    operator_clicks(Check1, 1000ms);
    mark();
    operator_clicks(Check1, 1000ms);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(130, 0))));
    EXPECT_EQ(app::state.tank_type, 0);
    EXPECT_EQ(Combo_tank_level.look.list_index, 3);
    EXPECT_EQ(unit->parameter(130), 0);
}

TEST_F(TankPresets, BoxTickedByTheReadingWritesToo) {
    set_parameter(130, 99);
    start_program();
    run_for(15000);
    EXPECT_THAT(writes(), testing::Contains(Write(130, 99)).Times(1));
    EXPECT_TRUE(view::selected(Check1));
    EXPECT_EQ(Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(app::state.tank_type, 99);
}

} // namespace
} // namespace zol::tests
