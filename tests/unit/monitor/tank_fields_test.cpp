// The two end voltages of the tank's sender: each sends the thresholds too, raised by a nudge of
// the sliders. That the fields are marked, locked and freed again is in entry_fields_test.cpp.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;

class TankFields : public LogicTest {};

TEST_F(TankFields, FullVoltageNudgesTheThresholdsDownward) {
    open_settings();
    operator_enters(Text_max_tank, "4150");
    EXPECT_EQ(text(lbl_200), "4150");
    run_for(2000);
    EXPECT_THAT(timed(),
                ElementsAre(At(0, Write(31, 4150)), At(400, Write(32, 3)), At(800, Write(33, 25)),
                            At(1200, Write(34, 51)), At(1600, Write(35, 76))));
    EXPECT_EQ(view::value(Slider1[0]), 4);
    EXPECT_EQ(view::value(Slider1[1]), 26);
    EXPECT_EQ(view::value(Slider1[4]), 76);
    EXPECT_EQ(text(lbl_202), "4028"); // of 51 % between 3900 and 4150: 4027.5
}

TEST_F(TankFields, EmptyVoltageNudgesTheThresholdsUpward) {
    open_settings();
    operator_enters(Text_min_tank, "3800");
    EXPECT_EQ(text(lbl_205), "3800");
    run_for(2000);
    EXPECT_THAT(timed(),
                ElementsAre(At(0, Write(30, 3800)), At(400, Write(32, 4)), At(800, Write(33, 26)),
                            At(1200, Write(34, 51)), At(1600, Write(35, 76))));
}

// The top row is raised after the fourth one and moves that too, so the fourth rises by two.
TEST_F(TankFields, EachFurtherEmptyVoltageRaisesTheThresholds) {
    open_settings();
    for (int i = 1; i <= 3; ++i) {
        mark();
        operator_enters(Text_min_tank, "3900", 3000ms);
        EXPECT_THAT(writes(), ElementsAre(Write(30, 3900), Write(32, 3 + i), Write(33, 25 + i),
                                          Write(34, 50 + i), Write(35, 74 + 2 * i)));
    }
    EXPECT_EQ(view::value(Slider1[3]), 81);
    EXPECT_EQ(view::value(Slider1[4]), 81);
}

TEST_F(TankFields, ThresholdAt100IsNotRaised) {
    open_settings();
    inside_program([] {
        view::place_value(Slider1[3], 100);
        view::place_value(Slider1[4], 100);
    });
    operator_enters(Text_min_tank, "3900", 3000ms);
    EXPECT_EQ(writes().back(), Write(35, 100));
    EXPECT_EQ(view::value(Slider1[4]), 100);
}

} // namespace
} // namespace zol::tests
