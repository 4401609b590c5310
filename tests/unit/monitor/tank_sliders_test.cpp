// The thresholds between the rows of the tank gauge: what is accepted, what springs back, and the
// three ways of filling the panel.
#include "app/numbers.h"
#include "monitor/tank_level.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class TankSliders : public LogicTest {
  protected:
    // The unit's factory values: 3, 25, 50 and 75 percent.
    void drag(int row, double value) {
        mark();
        operator_drags(Slider1[row], value);
        at_once = view::value(Slider1[row]);
        run_for(1000);
    }
    static double at(int row) { return view::value(Slider1[row]); }
    static std::vector<double> all() { return {at(0), at(1), at(2), at(3), at(4)}; }
    double at_once = 0; // where the slider stood before time went on
};

TEST_F(TankSliders, TheBottomRowBelowTheNextIsWrittenUnderAnHourglass) {
    open_settings();
    operator_drags(Slider1[0], 24);
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(text(Label_led0), "24%");
    run_for(199);
    EXPECT_TRUE(busy(Form1));
    run_for(1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(32, 24))));
    EXPECT_EQ(text(Label_led0), "24%");
    EXPECT_EQ(text(Label8), "25%");
    EXPECT_EQ(text(lbl_204), "3972");
    EXPECT_EQ(link::mirrors.tank_threshold_1, 24);
}

TEST_F(TankSliders, TheBottomRowAtOrPastTheNextSpringsBackOneBelowIt) {
    open_settings();
    for (const double past : {25, 26, 100}) {
        drag(0, past);
        EXPECT_EQ(at_once, 24);
        EXPECT_THAT(frames(), IsEmpty());
        EXPECT_EQ(text(Label_led0), "3%");
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
        EXPECT_EQ(link::mirrors.tank_threshold_1, 3);
        inside_program([] { view::place_value(Slider1[0], 3); });
    }
}

TEST_F(TankSliders, TheSecondRowBetweenItsNeighboursIsWritten) {
    open_settings();
    drag(1, 30);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(33, 30))));
    EXPECT_EQ(text(Label_led1), "30%");
    EXPECT_EQ(text(Label9), "31%");
    EXPECT_EQ(text(lbl_203), "3990");
}

TEST_F(TankSliders, TheSecondAndThirdRowPushedUpSpringBackUnwritten) {
    open_settings();
    for (const double past : {50, 51, 99}) {
        drag(1, past);
        EXPECT_EQ(at_once, 49);
        EXPECT_THAT(frames(), IsEmpty());
        inside_program([] { view::place_value(Slider1[1], 25); });
    }
    for (const double past : {75, 76, 100}) {
        drag(2, past);
        EXPECT_EQ(at_once, 74);
        EXPECT_THAT(frames(), IsEmpty());
        inside_program([] { view::place_value(Slider1[2], 50); });
    }
    EXPECT_EQ(link::mirrors.tank_threshold_2, 25);
    EXPECT_EQ(link::mirrors.tank_threshold_3, 50);
}

TEST_F(TankSliders, TheSecondAndThirdRowPushedDownAreLiftedAndWrittenWhileTheLabelsStay) {
    open_settings();
    drag(1, 3);
    EXPECT_EQ(at_once, 4);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(33, 4))));
    EXPECT_EQ(text(Label_led1), "24%"); // as the reading left it
    EXPECT_EQ(text(Label9), "25%");
    EXPECT_EQ(link::mirrors.tank_threshold_2, 4);
    drag(2, 0);
    EXPECT_EQ(at_once, 5);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(34, 5))));
    EXPECT_EQ(text(Label_led2), "49%");
    EXPECT_EQ(text(Label10), "50%");
    EXPECT_EQ(link::mirrors.tank_threshold_3, 5);
}

TEST_F(TankSliders, TheFourthRowTakesTheTopOneAlongWhenItsWriteIsThrough) {
    open_settings();
    operator_drags(Slider1[3], 90);
    run_for(199);
    EXPECT_EQ(at(4), 75);
    run_for(1);
    EXPECT_EQ(at(4), 90);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(35, 90))));
    EXPECT_EQ(text(Label_led3), "90%");
    EXPECT_EQ(text(Label11), "91%");
    EXPECT_EQ(text(lbl_201), "4170");
}

TEST_F(TankSliders, TheFourthRowAtOrBelowTheThirdIsMovedAboveItAndStillWritten) {
    open_settings();
    for (const double below : {50, 49, 0}) {
        drag(3, below);
        EXPECT_EQ(at_once, 51);
        EXPECT_THAT(timed(), ElementsAre(At(0, Write(35, 51))));
        EXPECT_EQ(text(Label_led3), "74%");
        EXPECT_EQ(at(4), 51);
        inside_program([] { view::place_value(Slider1[3], 75); });
    }
}

TEST_F(TankSliders, TheTopRowDragsTheFourthAlongAndTellsTheUnitNothing) {
    open_settings();
    drag(4, 90);
    EXPECT_EQ(at(3), 90);
    EXPECT_EQ(text(Label_led3), "90%");
    EXPECT_EQ(text(Label11), "90%");
    EXPECT_EQ(text(lbl_201), "4125"); // of the fourth slider before it was dragged along
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(link::mirrors.tank_threshold_4, 75);
    drag(3, 89);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(35, 89))));
}

TEST_F(TankSliders, TheTopRowBelowTheFourthSpringsBackOntoIt) {
    open_settings();
    drag(4, 60);
    EXPECT_EQ(at_once, 75);
    EXPECT_EQ(at(3), 75);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

TEST_F(TankSliders, ASliderWithoutRoomToSpringToStaysWhereItIs) {
    open_settings();
    inside_program([] { view::place_value(Slider1[2], 100); });
    drag(3, 60);
    EXPECT_EQ(at_once, 60);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(35, 60))));
    inside_program([] { view::place_value(Slider1[1], 0); });
    drag(0, 8);
    EXPECT_EQ(at_once, 8);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(TankSliders, NothingGoesOutWhileTheProgramFillsItsWindow) {
    open_settings();
    app::state.ui_loading = true;
    for (int row = 0; row < 5; ++row) {
        drag(row, 1 + row);
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    }
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_THAT(all(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(text(Label_led0), "3%");
}

TEST_F(TankSliders, ACablePulledDuringAWriteGivesPointerAndWindowBack) {
    open_settings();
    operator_drags(Slider1[0], 5);
    port->unplugged = true;
    run_for(200);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    drag(1, 30);
    EXPECT_EQ(link::mirrors.tank_threshold_2, 30);
    EXPECT_EQ(text(Label_led1), "30%");
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(TankSliders, AfterTheFirstReadingTheSecondSliderStandsOneBelowItsThreshold) {
    start_connected();
    EXPECT_THAT(all(), ElementsAre(3, 24, 50, 75, 75));
    EXPECT_EQ(text(Label_led0) + text(Label8), "3%4%");
    EXPECT_EQ(text(Label_led1) + text(Label9), "24%25%");
    EXPECT_EQ(text(Label_led2) + text(Label10), "49%50%");
    EXPECT_EQ(text(Label_led3) + text(Label11), "74%75%");
    EXPECT_EQ(text(lbl_204), "3909");
    EXPECT_EQ(text(lbl_203), "3972"); // of the slider, not of the label
    EXPECT_EQ(text(lbl_202), "4050");
    EXPECT_EQ(text(lbl_201), "4125");
    EXPECT_EQ(text(lbl_205) + text(Text_min_tank), "39003900");
    EXPECT_EQ(text(lbl_200) + text(Text_max_tank), "42004200");
}

TEST_F(TankSliders, AfterTheConnectionDialogTheSecondSliderStandsOnItsThreshold) {
    start_by_dialog();
    EXPECT_THAT(all(), ElementsAre(3, 25, 50, 75, 75));
    EXPECT_EQ(text(Label_led1) + text(Label9), "24%25%");
    EXPECT_EQ(text(lbl_203), "3975");
    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TankSliders, OpeningTheSettingsPlacesTheFourThresholdsAndLeavesTopRowAndLabels) {
    start_connected();
    inside_program([] { view::place_value(Slider1[4], 80); });
    link::mirrors.tank_threshold_1 = 7;
    link::mirrors.tank_threshold_4 = 77;
    link::mirrors.tank_min_mv = 100;
    operator_clicks(Command_impostazioni);
    run_for(1000);
    EXPECT_THAT(all(), ElementsAre(7, 25, 50, 77, 80));
    EXPECT_EQ(text(Label_led0) + text(Label8), "3%4%");
    EXPECT_EQ(text(Label_led3) + text(Label11), "74%75%");
    EXPECT_EQ(text(lbl_205) + text(Text_min_tank), "100100");
}

TEST_F(TankSliders, TheLiveReadingOfTheSenderStandsOnThePanel) {
    start_connected();
    run_for(2000);
    EXPECT_GT(app::val(text(Label_level_attuale)), 0);
    EXPECT_EQ(text(Label_level_attuale), text(label_liv2));
}

class MillivoltScale : public LogicTest {
  protected:
    int mv(const char* empty, const char* full, double percent) {
        view::set_text(Text_min_tank, empty);
        view::set_text(Text_max_tank, full);
        return monitor::percent_to_mv(percent);
    }
};

TEST_F(MillivoltScale, RisesOrFallsBetweenTheTwoFieldsAsTheyStand) {
    EXPECT_EQ(mv("150", "400", 0), 150);
    EXPECT_EQ(mv("150", "400", 50), 275);
    EXPECT_EQ(mv("150", "400", 100), 400);
    EXPECT_EQ(mv("4000", "600", 0), 4000);
    EXPECT_EQ(mv("4000", "600", 50), 2300);
    EXPECT_EQ(mv("4000", "600", 100), 600);
}

TEST_F(MillivoltScale, IsBroughtUpToDateByTheUpperBoundsOnlyAndOnlyWhenTheyChange) {
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

TEST_F(MillivoltScale, RoundsTiesToEven) {
    EXPECT_EQ(mv("0", "250", 1), 2);   // 2.5
    EXPECT_EQ(mv("0", "250", 3), 8);   // 7.5
    EXPECT_EQ(mv("0", "-250", 1), -2); // -2.5
}

TEST_F(MillivoltScale, ReadsWhatIsNoNumberAsZeroAndWhatIsTooLargeToShowAsZero) {
    EXPECT_EQ(mv("", "abc", 50), 0);
    EXPECT_EQ(mv("12x", " 2 0 0 ", 50), 106);
    EXPECT_EQ(mv("0", "32767", 100), 32767);
    EXPECT_EQ(mv("0", "32768", 100), 0);
    EXPECT_EQ(mv("-32768", "0", 0), -32768);
    EXPECT_EQ(mv("-32769", "0", 0), 0);
    const std::string endless(10000, '9');
    EXPECT_EQ(mv(("-" + endless).c_str(), endless.c_str(), 50), 0);
    EXPECT_EQ(mv(("-" + endless).c_str(), endless.c_str(), 0), 0);
}

} // namespace
} // namespace zol::tests
