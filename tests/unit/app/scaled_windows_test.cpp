// The windows were drawn for one screen; they fit the one they find.
#include "tests/support/bench.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

class ScaledWindows : public Bench {};

TEST_F(ScaledWindows, TheMainWindowFillsTheScreenItFinds) {
    screen.screen = {1366 * 15, 768 * 15};
    start_connected();
    const auto& form = form1::Form1;
    EXPECT_EQ(form.look.tag, "ResizeON");
    EXPECT_NEAR(form.look.place.width, form.design.place.width * 1366 / 675, 1);
    EXPECT_NEAR(form1::Label_rpm.look.font_size,
                form1::Label_rpm.design.font_size * (768 * 15 - 990) / 8010, 0.01);
}

TEST_F(ScaledWindows, WhatShowsNoTypeHasNoneToScale) {
    screen.screen = {1366 * 15, 768 * 15};
    start_connected();
    for (const view::Widget* w : form1::Form1.controls) {
        const bool typeless = w->kind == view::Kind::shape || w->kind == view::Kind::picture ||
                              w->kind == view::Kind::movie || w->kind == view::Kind::slider;
        EXPECT_EQ(w->look.font_size == w->design.font_size, typeless) << view::full_name(*w);
    }
}

TEST_F(ScaledWindows, TheConnectionDialogFitsTheScreenToo) {
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

TEST_F(ScaledWindows, TheScreenTheyWereDrawnForLeavesThemAsDrawn) {
    screen.screen = {675 * 15, 600 * 15};
    start_connected();
    EXPECT_EQ(form1::Form1.look.tag, "");
    EXPECT_EQ(form1::Form1.look.place, form1::Form1.design.place);
    for (const view::Widget* w : form1::Form1.controls)
        EXPECT_EQ(w->look.font_size, w->design.font_size) << view::full_name(*w);
}

TEST_F(ScaledWindows, OnAHigherScreenOfTheSameWidthTypeGrowsWithTheHeight) {
    screen.screen = {675 * 15, 1024 * 15};
    start_connected();
    EXPECT_EQ(form1::Form1.look.place.width, form1::Form1.design.place.width);
    EXPECT_NEAR(form1::Label_rpm.look.font_size,
                form1::Label_rpm.design.font_size * (1024 * 15 - 990) / 8010, 0.01);
}

TEST_F(ScaledWindows, TheChangeoverWindowAndTheAcquisitionThatItLoadsFitTheScreen) {
    screen.screen = {1366 * 15, 768 * 15};
    start_connected();
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

TEST_F(ScaledWindows, AListKeepsTheHeightThatItsTypeMakes) {
    screen.screen = {1366 * 15, 768 * 15};
    start_connected();
    const auto& list = form1::Combo_tank_level.look;
    EXPECT_NEAR(list.place.height, list.font_size * 28 + 84, 0.01);
    EXPECT_NEAR(list.place.height,
                form1::Combo_tank_level.design.place.height * (768 * 15 - 990) / 8010, 60);
}

TEST_F(ScaledWindows, OnASmallerScreenAListHasTheHeightThatItsTypeMakesToo) {
    screen.screen = {640 * 15, 480 * 15};
    start_connected();
    const auto& list = form1::Combo_tank_level.look;
    EXPECT_NEAR(list.font_size, form1::Combo_tank_level.design.font_size * (480 * 15 - 990) / 8010,
                0.01);
    EXPECT_NEAR(list.place.height, list.font_size * 28 + 84, 0.01);
}

// Below four and a half points type is a grey line, and bold makes it a black one.
TEST_F(ScaledWindows, OnATinyScreenTypeStopsBeingSmallerAndIsNoLongerBold) {
    screen.screen = {320 * 15, 240 * 15};
    start_connected();
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
