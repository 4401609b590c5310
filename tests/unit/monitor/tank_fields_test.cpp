// The two end voltages of the tank's sender, entered by hand.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using testing::ElementsAre;
using view::Pointer;

class TankFields : public LogicTest {};

TEST_F(TankFields, AClickMarksAndClearsTheField) {
    open_settings();
    operator_clicks(Text_max_tank);
    EXPECT_EQ(text(Text_max_tank), "");
    EXPECT_EQ(Text_max_tank.look.back, 8421631);
    EXPECT_TRUE(Text_max_tank.look.edit_marker);
    operator_types(Text_max_tank, "5000");
    operator_presses(Form1, 'A');
    run_for(1000);
    EXPECT_THAT(frames(), testing::IsEmpty());
    EXPECT_EQ(Text_max_tank.look.back, 8421631);
}

TEST_F(TankFields, AFullVoltageGoesOutFollowedByTheThresholdsNudgedDownward) {
    open_settings();
    operator_enters(Text_max_tank, "4150");
    EXPECT_FALSE(view::enabled(Text_max_tank));
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(Text_max_tank.look.back, 16777215);
    EXPECT_FALSE(Text_max_tank.look.edit_marker);
    EXPECT_EQ(text(lbl_200), "4150");
    run_for(1999);
    EXPECT_FALSE(view::enabled(Text_max_tank));
    run_for(1);
    EXPECT_TRUE(view::enabled(Text_max_tank));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_THAT(timed(),
                ElementsAre(At(0, Write(31, 4150)), At(400, Write(32, 3)), At(800, Write(33, 25)),
                            At(1200, Write(34, 51)), At(1600, Write(35, 76))));
    EXPECT_EQ(view::value(Slider1[0]), 4);
    EXPECT_EQ(view::value(Slider1[1]), 26);
    EXPECT_EQ(view::value(Slider1[4]), 76);
    EXPECT_EQ(link::mirrors.tank_max_mv, 4150);
    EXPECT_EQ(text(lbl_202), "4028"); // of 51 % between 3900 and 4150: 4027.5
}

TEST_F(TankFields, AnEmptyVoltageGoesOutFollowedByTheThresholdsNudgedUpward) {
    open_settings();
    operator_enters(Text_min_tank, "3800");
    EXPECT_FALSE(view::enabled(Text_min_tank));
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(Text_min_tank.look.back, 16777215);
    EXPECT_EQ(text(lbl_205), "3800");
    run_for(1999);
    EXPECT_FALSE(view::enabled(Text_min_tank));
    run_for(1);
    EXPECT_TRUE(view::enabled(Text_min_tank));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_THAT(timed(),
                ElementsAre(At(0, Write(30, 3800)), At(400, Write(32, 4)), At(800, Write(33, 26)),
                            At(1200, Write(34, 51)), At(1600, Write(35, 76))));
    EXPECT_EQ(unit->parameter(30), 3800);
}

// The top row is raised behind the fourth one and takes that along: it climbs by two.
TEST_F(TankFields, EachFurtherEmptyVoltageLetsTheThresholdsCreepUpward) {
    open_settings();
    for (int i = 1; i <= 3; ++i) {
        mark();
        operator_enters(Text_min_tank, "3900");
        run_for(3000);
        EXPECT_THAT(writes(), ElementsAre(Write(30, 3900), Write(32, 3 + i), Write(33, 25 + i),
                                          Write(34, 50 + i), Write(35, 74 + 2 * i)));
    }
    EXPECT_EQ(view::value(Slider1[3]), 81);
    EXPECT_EQ(view::value(Slider1[4]), 81);
}

TEST_F(TankFields, AThresholdAtTheTopCreepsNoFurther) {
    open_settings();
    inside_program([] {
        view::place_value(Slider1[3], 100);
        view::place_value(Slider1[4], 100);
    });
    operator_enters(Text_min_tank, "3900");
    run_for(3000);
    EXPECT_EQ(writes().back(), Write(35, 100));
    EXPECT_EQ(view::value(Slider1[4]), 100);
}

TEST_F(TankFields, ACablePulledInTheMiddleFreesTheFieldAtTheSameTime) {
    for (view::Widget* field : {&Text_max_tank, &Text_min_tank}) {
        if (field == &Text_max_tank) open_settings();
        mark();
        port->unplugged = false;
        operator_enters(*field, "4000");
        run_for(500);
        port->unplugged = true;
        run_for(1499);
        EXPECT_FALSE(view::enabled(*field));
        run_for(1);
        EXPECT_TRUE(view::enabled(*field));
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
        EXPECT_TRUE(focused(cmd_focus));
        EXPECT_EQ(writes().size(), 2u);
        operator_clicks(*field);
        EXPECT_EQ(text(*field), "");
    }
}

} // namespace
} // namespace zol::tests
