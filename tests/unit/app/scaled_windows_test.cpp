// The windows of the program, scaled to the screen that they find.
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

class ScaledWindows : public LogicTest {
  protected:
    void start_on(int width_pixels, int height_pixels) {
        screen.screen = {width_pixels * 15.0, height_pixels * 15.0};
        start_connected();
    }
    // The height of its text, as the scaling estimates it.
    static void expect_height_of_type(const view::Look& list) {
        EXPECT_NEAR(list.place.height, list.font_size * 28 + 84, 0.01);
    }
};

TEST_F(ScaledWindows, MainWindowFillsItsScreen) {
    start_on(1366, 768);
    const auto& form = form1::Form1;
    EXPECT_EQ(form.look.tag, "ResizeON");
    EXPECT_NEAR(form.look.place.width, form.design.place.width * 1366 / 675, 1);
    EXPECT_NEAR(form1::Label_rpm.look.font_size,
                form1::Label_rpm.design.font_size * (768 * 15 - 990) / 8010, 0.01);
}

TEST_F(ScaledWindows, ControlsWithoutTypeKeepTheirs) {
    start_on(1366, 768);
    for (const view::Widget* w : form1::Form1.controls) {
        const bool typeless = w->kind == view::Kind::shape || w->kind == view::Kind::picture ||
                              w->kind == view::Kind::movie || w->kind == view::Kind::slider;
        EXPECT_EQ(w->look.font_size == w->design.font_size, typeless) << view::full_name(*w);
    }
}

TEST_F(ScaledWindows, ConnectionDialogFitsTheScreen) {
    screen.screen = {1366 * 15, 768 * 15};
    port->silent = true;
    start_program();
    run_for(2000);
    const auto& dialog = centralina_attiva::Centralina_Attiva;
    ASSERT_TRUE(dialog.shown);
    EXPECT_NEAR(dialog.look.place.width, dialog.design.place.width * 1366 / 675, 1);
    // It has no menu.
    EXPECT_NEAR(dialog.look.place.height, dialog.design.place.height * (768 * 15 - 705) / 8295, 1);
}

TEST_F(ScaledWindows, OwnScreenLeavesThemAsDrawn) {
    start_on(675, 600);
    EXPECT_EQ(form1::Form1.look.tag, "");
    EXPECT_EQ(form1::Form1.look.place, form1::Form1.design.place);
    for (const view::Widget* w : form1::Form1.controls)
        EXPECT_EQ(w->look.font_size, w->design.font_size) << view::full_name(*w);
}

TEST_F(ScaledWindows, HigherScreenEnlargesTheType) {
    start_on(675, 1024);
    EXPECT_EQ(form1::Form1.look.place.width, form1::Form1.design.place.width);
    EXPECT_NEAR(form1::Label_rpm.look.font_size,
                form1::Label_rpm.design.font_size * (1024 * 15 - 990) / 8010, 0.01);
}

TEST_F(ScaledWindows, ChangeoverWindowFitsTheScreen) {
    start_on(1366, 768);
    operator_clicks(form1::Command_impostazioni);
    run_for(2000);
    operator_clicks(form1::Command303);
    run_for(2000);
    for (const view::Widget* window : {&form3::Form3, &acquisizione::acquisizione}) {
        EXPECT_EQ(window->look.tag, "ResizeON") << window->name;
        EXPECT_NEAR(window->look.place.width, window->design.place.width * 1366 / 675, 1)
            << window->name;
        EXPECT_NEAR(window->look.place.height,
                    window->design.place.height * (768 * 15 - 705) / 8295, 1)
            << window->name;
    }
}

TEST_F(ScaledWindows, ListHasTheHeightOfItsType) {
    start_on(1366, 768);
    const auto& list = form1::Combo_tank_level.look;
    expect_height_of_type(list);
    EXPECT_NEAR(list.place.height,
                form1::Combo_tank_level.design.place.height * (768 * 15 - 990) / 8010, 60);
}

TEST_F(ScaledWindows, ListOnASmallScreenHasTheHeightOfItsType) {
    start_on(640, 480);
    const auto& list = form1::Combo_tank_level.look;
    EXPECT_NEAR(list.font_size, form1::Combo_tank_level.design.font_size * (480 * 15 - 990) / 8010,
                0.01);
    expect_height_of_type(list);
}

// Smaller type is not legible, and bold less so.
TEST_F(ScaledWindows, TinyScreenLimitsTheType) {
    start_on(320, 240);
    int were_bold = 0;
    for (const view::Widget* w : form1::Form1.controls) {
        if (w->kind != view::Kind::label) continue;
        const double scaled = w->design.font_size * (240 * 15 - 990) / 8010;
        if (scaled >= 4.5) continue;
        EXPECT_EQ(w->look.font_size, 4.5) << w->name;
        EXPECT_FALSE(w->look.font_bold) << w->name;
        were_bold += w->design.font_bold;
    }
    EXPECT_GT(were_bold, 0);
}

} // namespace
} // namespace zol::tests
