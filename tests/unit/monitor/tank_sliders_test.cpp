// The thresholds between the rows of the tank gauge: which value each slider takes, what it writes,
// and the three ways of filling the panel.
#include "app/numbers.h"
#include "monitor/tank_level.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;

class TankSliders : public LogicTest {
  protected:
    // The unit's factory values: 3, 25, 50 and 75 percent.
    void drag(int row, double value) {
        mark();
        operator_drags(Slider1[row], value);
        at_once = at(row);
        run_for(1000);
    }
    static double at(int row) { return view::value(Slider1[row]); }
    static std::vector<double> all() { return {at(0), at(1), at(2), at(3), at(4)}; }
    void place(int row, double value) {
        inside_program([=] { view::place_value(Slider1[row], value); });
    }
    // The upper bound of a row, the lower bound of the next one, and the voltage between them.
    static std::string row_labels(std::size_t row) {
        const std::tuple<view::Widget*, view::Widget*, view::Widget*> labels[] = {
            {&Label_led0, &Label8, &lbl_204},
            {&Label_led1, &Label9, &lbl_203},
            {&Label_led2, &Label10, &lbl_202},
            {&Label_led3, &Label11, &lbl_201}};
        const auto& [upper, lower, mv] = labels[row];
        return text(*upper) + " " + text(*lower) + " " + text(*mv);
    }
    double at_once = 0; // the value after the drag, before time goes on
};

struct Drag {
    int row;
    double to, lands_on;
    std::optional<Frame> sent;
    const char* labels; // of the row, afterwards
};
void PrintTo(const Drag& it, std::ostream* out) { *out << "row " << it.row << " to " << it.to; }

class TankDrag : public TankSliders, public testing::WithParamInterface<Drag> {};

TEST_P(TankDrag, LandsOnItsValue) {
    const Drag& tested = GetParam();
    open_settings();
    drag(tested.row, tested.to);
    EXPECT_EQ(at_once, tested.lands_on);
    EXPECT_EQ(timed(), tested.sent ? std::vector{At(0, *tested.sent)} : std::vector<Timed>{});
    EXPECT_EQ(row_labels(static_cast<std::size_t>(std::min(tested.row, 3))), tested.labels);
    if (tested.sent) {
        EXPECT_EQ(unit->parameter(tested.sent->number), tested.sent->value);
    }
    EXPECT_FALSE(busy(Form1));
}

// A row between its neighbours is written.
INSTANTIATE_TEST_SUITE_P(BetweenNeighbours, TankDrag,
                         testing::Values(Drag{0, 24, 24, Write(32, 24), "24% 25% 3972"},
                                         Drag{1, 30, 30, Write(33, 30), "30% 31% 3990"},
                                         Drag{3, 90, 90, Write(35, 90), "90% 91% 4170"}));

// The lower three spring back and write nothing.
constexpr const char *labels_0 = "3% 4% 3909", *labels_1 = "24% 25% 3972",
                     *labels_2 = "49% 50% 4050", *labels_3 = "74% 75% 4125";
INSTANTIATE_TEST_SUITE_P(
    PushedUp, TankDrag,
    testing::Values(Drag{0, 25, 24, {}, labels_0}, Drag{0, 26, 24, {}, labels_0},
                    Drag{0, 100, 24, {}, labels_0}, Drag{1, 50, 49, {}, labels_1},
                    Drag{1, 51, 49, {}, labels_1}, Drag{1, 99, 49, {}, labels_1},
                    Drag{2, 75, 74, {}, labels_2}, Drag{2, 76, 74, {}, labels_2},
                    Drag{2, 100, 74, {}, labels_2}));

// The middle rows and the fourth are lifted above their neighbour and written; their labels stay.
INSTANTIATE_TEST_SUITE_P(PushedDown, TankDrag,
                         testing::Values(Drag{1, 3, 4, Write(33, 4), labels_1},
                                         Drag{2, 0, 26, Write(34, 26), labels_2},
                                         Drag{3, 50, 51, Write(35, 51), labels_3},
                                         Drag{3, 49, 51, Write(35, 51), labels_3},
                                         Drag{3, 0, 51, Write(35, 51), labels_3}));

// The top row writes nothing. It moves the fourth row up and does not go below it. The voltage is
// that of the fourth slider before it was moved.
INSTANTIATE_TEST_SUITE_P(TopRow, TankDrag,
                         testing::Values(Drag{4, 90, 90, {}, "90% 90% 4125"},
                                         Drag{4, 60, 75, {}, labels_3}));

TEST_F(TankSliders, RowIsWrittenWithAnHourglass) {
    open_settings();
    follow({&Form1});
    drag(0, 24);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "200 Form1 normal pointer"));
}

TEST_F(TankSliders, WriteSetsTheMirror) {
    open_settings();
    drag(0, 100);
    EXPECT_EQ(link::mirrors.tank_threshold_1, 3) << "not without a write";
    drag(0, 23);
    drag(1, 3);
    drag(2, 0);
    drag(3, 90);
    EXPECT_EQ(link::mirrors.tank_threshold_1, 23);
    EXPECT_EQ(link::mirrors.tank_threshold_2, 24) << "lifted above 23";
    EXPECT_EQ(link::mirrors.tank_threshold_3, 25);
    EXPECT_EQ(link::mirrors.tank_threshold_4, 90);
}

TEST_F(TankSliders, FourthRowMovesTheTopRowAfterItsWrite) {
    open_settings();
    operator_drags(Slider1[3], 90);
    EXPECT_EQ(ms_until([] { return at(4) == 90; }), 200);
    drag(3, 0);
    EXPECT_EQ(at(4), 51);
}

TEST_F(TankSliders, TopRowMovesTheFourthWithoutAWrite) {
    open_settings();
    drag(4, 90);
    EXPECT_EQ(at(3), 90);
    EXPECT_EQ(link::mirrors.tank_threshold_4, 75);
    drag(3, 89);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(35, 89))));
    drag(4, 60);
    EXPECT_EQ(at(3), 89);
}

TEST_F(TankSliders, SliderWithoutRoomToSpringToStays) {
    open_settings();
    place(2, 100);
    drag(3, 60);
    EXPECT_EQ(at_once, 60);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(35, 60))));
    place(1, 0);
    drag(0, 8);
    EXPECT_EQ(at_once, 8);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(TankSliders, FillingWritesNothing) {
    open_settings();
    app::state.ui_loading = true;
    for (int row = 0; row < 5; ++row) {
        drag(row, 1 + row);
        EXPECT_THAT(frames(), IsEmpty());
        EXPECT_FALSE(busy(Form1));
    }
    EXPECT_THAT(all(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(row_labels(0), labels_0);
}

TEST_F(TankSliders, PulledCableLeavesItsTimes) {
    open_settings();
    operator_drags(Slider1[0], 5);
    port->unplugged = true;
    EXPECT_EQ(ms_until([] { return !busy(Form1); }), 200);
    drag(1, 30);
    EXPECT_EQ(link::mirrors.tank_threshold_2, 30);
    EXPECT_EQ(row_labels(1), "30% 31% 3990");
    EXPECT_FALSE(busy(Form1));
    EXPECT_THAT(frames(), IsEmpty());
}

// --- Filling

// The border of the second row is that of the slider, not of the label.
TEST_F(TankSliders, ActivationPutsTheSecondSliderOneBelow) {
    start_connected();
    EXPECT_THAT(all(), ElementsAre(3, 24, 50, 75, 75));
    EXPECT_EQ(row_labels(0), labels_0);
    EXPECT_EQ(row_labels(1), labels_1);
    EXPECT_EQ(row_labels(2), labels_2);
    EXPECT_EQ(row_labels(3), labels_3);
    EXPECT_EQ(text(lbl_205) + text(Text_min_tank), "39003900");
    EXPECT_EQ(text(lbl_200) + text(Text_max_tank), "42004200");
}

TEST_F(TankSliders, DialogPutsTheSecondSliderOnItsThreshold) {
    start_by_dialog();
    EXPECT_THAT(all(), ElementsAre(3, 25, 50, 75, 75));
    EXPECT_EQ(row_labels(1), "24% 25% 3975");
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TankSliders, SettingsButtonPlacesTheFourThresholds) {
    start_connected();
    place(4, 80);
    link::mirrors.tank_threshold_1 = 7;
    link::mirrors.tank_threshold_4 = 77;
    link::mirrors.tank_min_mv = 100;
    operator_clicks(Command_impostazioni, 1000ms);
    EXPECT_THAT(all(), ElementsAre(7, 25, 50, 77, 80));
    EXPECT_EQ(row_labels(0), labels_0);
    EXPECT_EQ(row_labels(3), labels_3);
    EXPECT_EQ(text(lbl_205) + text(Text_min_tank), "100100");
}

TEST_F(TankSliders, PanelShowsTheLiveReadingOfTheSender) {
    start_connected();
    run_for(2000);
    EXPECT_GT(app::val(text(Label_level_attuale)), 0);
    EXPECT_EQ(text(Label_level_attuale), text(label_liv2));
}

// --- The scale in millivolts

class MillivoltScale : public LogicTest {};

// Rounded to even. What is no number counts as 0; what no 16-bit number holds is shown as 0.
TEST_F(MillivoltScale, IsLinearBetweenTheTwoFields) {
    const std::string endless(10000, '9');
    const std::tuple<std::string, std::string, double, int> points[] = {
        {"150", "400", 0, 150},
        {"150", "400", 50, 275},
        {"150", "400", 100, 400},
        {"4000", "600", 0, 4000},
        {"4000", "600", 50, 2300},
        {"4000", "600", 100, 600},
        {"0", "250", 1, 2},
        {"0", "250", 3, 8},
        {"0", "-250", 1, -2},
        {"", "abc", 50, 0},
        {"12x", " 2 0 0 ", 50, 106},
        {"0", "32767", 100, 32767},
        {"0", "32768", 100, 0},
        {"-32768", "0", 0, -32768},
        {"-32769", "0", 0, 0},
        {"-" + endless, endless, 50, 0},
        {"-" + endless, endless, 0, 0}};
    for (const auto& [empty, full, percent, mv] : points) {
        view::set_text(Text_min_tank, empty);
        view::set_text(Text_max_tank, full);
        EXPECT_EQ(monitor::percent_to_mv(percent), mv)
            << empty.substr(0, 9) << " to " << full.substr(0, 9) << ", " << percent << " %";
    }
}

TEST_F(MillivoltScale, ChangesWithTheUpperBoundsOnly) {
    open_settings();
    inside_program([] {
        view::set_text(Text_min_tank, "0");
        view::set_text(Text_max_tank, "100");
        view::set_text(Label_led0, text(Label_led0));
        view::set_text(Label8, "?");
    });
    EXPECT_EQ(text(lbl_204), "3909");
    inside_program([] { view::set_text(Label_led0, "?"); });
    EXPECT_EQ(text(lbl_204), "3");
    EXPECT_EQ(text(lbl_203), "3972");
}

} // namespace
} // namespace zol::tests
