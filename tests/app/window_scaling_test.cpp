// The windows were drawn for one screen; they fit the one they find.
#include "app/window_scaling.h"

#include "tests/support/bench.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <cmath>
#include <map>

namespace zol::tests {
namespace {

using app::Property;

// A control of any properties, which may refuse a height or small type.
struct Control {
    std::map<Property, double> properties;
    bool refuses_height = false;
    double smallest_font = 0;
    std::string font_name = "MS";
    std::string type_name{};
    double picture_x = 0, picture_y = 0;

    app::Resizable seen() {
        return {.type_name = type_name,
                .get = [this](Property p) -> std::optional<double> {
                    const auto it = properties.find(p);
                    if (it == properties.end()) return std::nullopt;
                    return it->second;
                },
                .set =
                    [this](Property p, double value) {
                        if (!properties.contains(p)) return;
                        if (p == Property::height && refuses_height) return;
                        if (p == Property::font_size) value = std::max(value, smallest_font);
                        properties[p] = value;
                    },
                .set_font_name =
                    [this](const std::string& name) {
                        font_name = name;
                        smallest_font = 0;
                    },
                .stretch_picture = [this](double x, double y) { picture_x = x, picture_y = y; }};
    }
};

class WindowScaling : public testing::Test {
  protected:
    void SetUp() override { app::scale_factors = {}; }

    // A window with a title bar and no menu, on a screen that makes these factors.
    void scale(Control& control, double width_factor, double height_factor) {
        app::ScalableWindow it{tag, 405, window.seen(), {control.seen()}};
        app::scale_window(it, 10125 * width_factor, 705 + 8295 * height_factor);
    }

    std::string tag;
    Control window{{{Property::left, 100},
                    {Property::top, 200},
                    {Property::width, 5000},
                    {Property::height, 4000}}};
    Control button{{{Property::left, 60},
                    {Property::top, 80},
                    {Property::width, 1000},
                    {Property::height, 400},
                    {Property::font_size, 10},
                    {Property::font_bold, 1}}};
};

TEST_F(WindowScaling, TheScreenItWasDrawnForLeavesWindowAndTagUntouched) {
    app::ScalableWindow it{tag, 405, window.seen(), {button.seen()}};
    app::scale_window(it, 10125, 9000);
    EXPECT_EQ(tag, "");
    EXPECT_EQ(window.properties[Property::width], 5000);
    EXPECT_EQ(app::scale_factors.width, 1);
}

TEST_F(WindowScaling, AWindowWithoutAMenuUsesTheHeightBelowItsTitleBar) {
    scale(button, 2, 1.5);
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, std::nearbyint(8295 * 1.5) / 8295);
    EXPECT_EQ(window.properties[Property::width], 10000);
    EXPECT_NEAR(window.properties[Property::height], 6000, 1);
}

TEST_F(WindowScaling, AMenuBarTakesMoreOfTheScreen) {
    app::ScalableWindow it{tag, 690, window.seen(), {}};
    app::scale_window(it, 20250, 990 + 8010 * 2);
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, 2);
}

TEST_F(WindowScaling, OnALargerScreenPlacesAndTypeGrow) {
    scale(button, 2, 2);
    EXPECT_EQ(button.properties[Property::left], 120);
    EXPECT_EQ(button.properties[Property::top], 160);
    EXPECT_EQ(button.properties[Property::width], 2000);
    EXPECT_EQ(button.properties[Property::height], 800);
    EXPECT_EQ(button.properties[Property::font_size], 20);
}

TEST_F(WindowScaling, OnASmallerScreenPlacesAndTypeShrink) {
    scale(button, 0.6, 0.75);
    EXPECT_NEAR(button.properties[Property::left], 36, 0.01);
    EXPECT_NEAR(button.properties[Property::top], 60, 0.01);
    EXPECT_NEAR(button.properties[Property::width], 600, 0.01);
    EXPECT_NEAR(button.properties[Property::height], 300, 0.05);
    EXPECT_NEAR(button.properties[Property::font_size], 7.5, 0.01);
    EXPECT_EQ(button.properties[Property::font_bold], 1);
}

TEST_F(WindowScaling, AListThatRefusesItsHeightGetsTheTypeThatMakesIt) {
    button.refuses_height = true;
    scale(button, 2, 2);
    EXPECT_EQ(button.properties[Property::height], 400);
    EXPECT_EQ(button.properties[Property::font_size], (800 - 84) / 28.0);
}

TEST_F(WindowScaling, ASecondCallChangesNothingButKeepsTheFactors) {
    scale(button, 2, 2);
    scale(button, 3, 3);
    EXPECT_EQ(button.properties[Property::left], 120);
    EXPECT_EQ(app::scale_factors.width, 2);
}

TEST_F(WindowScaling, AWidthFactorOfExactlyOneTakesTheShrinkingRoad) {
    button.refuses_height = true; // would be noticed on the other one
    scale(button, 1, 2);
    EXPECT_EQ(button.properties[Property::font_size], 20);
}

TEST_F(WindowScaling, TypeThatCannotShrinkGivesWayToAnotherFont) {
    button.smallest_font = 10;
    scale(button, 0.8, 0.8);
    EXPECT_EQ(button.font_name, "Arial");
    EXPECT_NEAR(button.properties[Property::font_size], 8, 0.001);
}

TEST_F(WindowScaling, TypeNeverGoesBelowFourAndAHalfPoints) {
    scale(button, 0.4, 0.4);
    EXPECT_EQ(button.properties[Property::font_size], 4.5);
    EXPECT_EQ(button.properties[Property::font_bold], 0);
    EXPECT_EQ(button.font_name, "MS");
}

TEST_F(WindowScaling, AControlWithNoHeightGetsThroughBothRoads) {
    Control timer{{{Property::left, 30}}};
    scale(timer, 2, 2);
    EXPECT_EQ(timer.properties, (std::map<Property, double>{{Property::left, 60}}));
    tag.clear();
    scale(timer, 0.4, 0.4); // a whole number of twips
    EXPECT_EQ(timer.properties, (std::map<Property, double>{{Property::left, 24}}));
}

TEST_F(WindowScaling, ALineMovesItsEndsAndABorderGrowsWithTheWidth) {
    Control line{{{Property::x1, 10},
                  {Property::y1, 20},
                  {Property::x2, 30},
                  {Property::y2, 40},
                  {Property::border_width, 1}}};
    line.type_name = "Line";
    scale(line, 2, 3);
    EXPECT_EQ(line.properties[Property::x1], 20);
    EXPECT_NEAR(line.properties[Property::y1], 60, 0.01);
    EXPECT_EQ(line.properties[Property::x2], 60);
    EXPECT_NEAR(line.properties[Property::y2], 120, 0.01);
    EXPECT_EQ(line.properties[Property::border_width], 2);
}

TEST_F(WindowScaling, APictureIsStretchedFromItsOwnUnits) {
    Control picture;
    picture.type_name = "PictureBox";
    scale(picture, 2, 2);
    EXPECT_NEAR(picture.picture_x, 2 * 0.572, 1e-9);
    EXPECT_NEAR(picture.picture_y, 2 * 0.572, 1e-9);
}

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
}

TEST_F(ScaledWindows, AListKeepsTheHeightThatItsTypeMakes) {
    screen.screen = {1366 * 15, 768 * 15};
    start_connected();
    const auto& list = form1::Combo_tank_level.look;
    EXPECT_NEAR(list.place.height, list.font_size * 28 + 84, 0.01);
    EXPECT_NEAR(list.place.height,
                form1::Combo_tank_level.design.place.height * (768 * 15 - 990) / 8010, 60);
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
