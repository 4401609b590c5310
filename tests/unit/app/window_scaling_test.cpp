// The windows were drawn for one screen; what refits them to another, on controls of any
// properties.
#include "app/window_scaling.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace zol::tests {
namespace {

using app::Property;

std::vector<Property> written; // by whatever control, in the order of the writes

// A control of any properties, which may refuse a height or small type.
struct Control {
    std::map<Property, double> properties;
    bool refuses_height = false;
    double greatest_height = 1e6;
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
                        written.push_back(p);
                        if (p == Property::height && refuses_height) return;
                        if (p == Property::height) value = std::min(value, greatest_height);
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
    void SetUp() override {
        app::scale_factors = {};
        written.clear();
    }

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
    // A menu bar too, and a larger screen before: nothing of either may be applied.
    app::scale_factors = {2, 3};
    for (const double frame : {405, 690}) {
        app::ScalableWindow it{tag, frame, window.seen(), {button.seen()}};
        app::scale_window(it, 10125, 9000);
    }
    EXPECT_EQ(tag, "");
    EXPECT_TRUE(written.empty());
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, 3);
}

TEST_F(WindowScaling, AScreenOfTheSameHeightButWiderIsAnotherScreen) {
    app::ScalableWindow it{tag, 405, window.seen(), {}};
    app::scale_window(it, 20250, 9000);
    EXPECT_EQ(tag, "ResizeON");
    EXPECT_EQ(window.properties[Property::width], 10000);
    EXPECT_EQ(window.properties[Property::height], 4000);
}

TEST_F(WindowScaling, AScreenOfTheSameWidthButHigherIsAnotherScreen) {
    app::ScalableWindow it{tag, 405, window.seen(), {}};
    app::scale_window(it, 10125, 705 + 8295 * 2);
    EXPECT_EQ(tag, "ResizeON");
    EXPECT_EQ(window.properties[Property::width], 5000);
    EXPECT_EQ(window.properties[Property::height], 8000);
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

TEST_F(WindowScaling, OnlyAFrameOfExactlyATitleBarHasNoMenu) {
    for (const double frame : {404, 406}) {
        tag.clear();
        app::ScalableWindow it{tag, frame, window.seen(), {}};
        app::scale_window(it, 20250, 990 + 8010 * 2);
        EXPECT_EQ(app::scale_factors.height, 2) << frame;
    }
}

TEST_F(WindowScaling, WhatTheScreenOffersIsRoundedToWholeTwips) {
    app::ScalableWindow it{tag, 405, window.seen(), {}};
    app::scale_window(it, 20250.4, 705 + 8295 * 2 + 0.4);
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, 2);
}

TEST_F(WindowScaling, TheWindowTakesItsWidthThenItsTopThenItsLeftThenItsHeight) {
    app::ScalableWindow it{tag, 405, window.seen(), {}};
    app::scale_window(it, 20250, 705 + 8295 * 3);
    EXPECT_EQ(written,
              (std::vector{Property::width, Property::top, Property::left, Property::height}));
    EXPECT_EQ(window.properties, (std::map<Property, double>{{Property::left, 200},
                                                             {Property::top, 600},
                                                             {Property::width, 10000},
                                                             {Property::height, 12000}}));
}

TEST_F(WindowScaling, TheControlsComeAfterTheWindowAndInTheOrderOfItsDefinition) {
    Control first{{{Property::x1, 1}}}, second{{{Property::y1, 1}}}, frame{{{Property::width, 1}}};
    first.type_name = second.type_name = "Line";
    app::ScalableWindow it{tag, 405, frame.seen(), {second.seen(), first.seen()}};
    app::scale_window(it, 20250, 20000);
    EXPECT_EQ(written, (std::vector{Property::width, Property::y1, Property::x1}));
}

TEST_F(WindowScaling, OnALargerScreenPlacesAndTypeGrow) {
    button.properties[Property::border_width] = 1;
    scale(button, 2, 3);
    EXPECT_EQ(button.properties, (std::map<Property, double>{{Property::left, 120},
                                                             {Property::top, 240},
                                                             {Property::width, 2000},
                                                             {Property::height, 1200},
                                                             {Property::border_width, 2},
                                                             {Property::font_size, 30},
                                                             {Property::font_bold, 1}}));
}

TEST_F(WindowScaling, OnALargerScreenTheTypeComesAfterTheSize) {
    window.properties.clear();
    scale(button, 2, 2);
    EXPECT_EQ(written, (std::vector{Property::left, Property::top, Property::width,
                                    Property::height, Property::font_size}));
}

TEST_F(WindowScaling, OnASmallerScreenTheTypeComesBeforeTheSize) {
    window.properties.clear();
    scale(button, 0.8, 0.8);
    EXPECT_EQ(written, (std::vector{Property::left, Property::top, Property::font_size,
                                    Property::width, Property::height}));
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

TEST_F(WindowScaling, AListShortOfItsHeightByATenthAtMostKeepsItsType) {
    button.greatest_height = 725; // wanted: 800
    scale(button, 2, 2);
    EXPECT_EQ(button.properties[Property::font_size], 20);
}

TEST_F(WindowScaling, AListShortOfItsHeightByMoreThanATenthDoesNot) {
    button.greatest_height = 715;
    scale(button, 2, 2);
    EXPECT_EQ(button.properties[Property::font_size], (800 - 84) / 28.0);
}

TEST_F(WindowScaling, ASecondCallChangesNothingButKeepsTheFactors) {
    scale(button, 2, 3);
    const auto after_the_first = button.properties;
    const auto window_after_the_first = window.properties;
    written.clear();
    scale(button, 4, 5);
    EXPECT_TRUE(written.empty());
    EXPECT_EQ(button.properties, after_the_first);
    EXPECT_EQ(window.properties, window_after_the_first);
    EXPECT_EQ(tag, "ResizeON");
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, 3);
}

TEST_F(WindowScaling, AWidthFactorOfExactlyOneTakesTheShrinkingRoad) {
    button.refuses_height = true; // would be noticed on the other one
    scale(button, 1, 2);
    EXPECT_EQ(button.properties[Property::width], 1000);
    EXPECT_EQ(button.properties[Property::font_size], 20);
}

TEST_F(WindowScaling, AWidthFactorOfExactlyOneKnowsTheSmallestTypeToo) {
    scale(button, 1, 0.4);
    EXPECT_EQ(button.properties[Property::font_size], 4.5);
}

TEST_F(WindowScaling, TypeThatCannotShrinkGivesWayToAnotherFont) {
    button.smallest_font = 8.9; // wanted: 8
    scale(button, 0.8, 0.8);
    EXPECT_EQ(button.font_name, "Arial");
    EXPECT_NEAR(button.properties[Property::font_size], 8, 0.001);
}

TEST_F(WindowScaling, TypeThatShrinksToWithinATenthKeepsItsFont) {
    button.smallest_font = 8.7;
    scale(button, 0.8, 0.8);
    EXPECT_EQ(button.font_name, "MS");
    EXPECT_EQ(button.properties[Property::font_size], 8.7);
}

TEST_F(WindowScaling, TypeNeverGoesBelowFourAndAHalfPoints) {
    scale(button, 0.4, 0.4);
    EXPECT_EQ(button.properties[Property::font_size], 4.5);
    EXPECT_EQ(button.properties[Property::font_bold], 0);
    EXPECT_EQ(button.font_name, "MS");
}

TEST_F(WindowScaling, TypeOfExactlyFourAndAHalfPointsMayBeBold) {
    button.properties[Property::font_size] = 4.5;
    scale(button, 0.6, 1);
    EXPECT_EQ(button.properties[Property::font_bold], 1);
}

TEST_F(WindowScaling, OnAWiderScreenTypeMayBeSmaller) {
    scale(button, 2, 0.2);
    EXPECT_EQ(button.properties[Property::font_size], 2);
    EXPECT_EQ(button.properties[Property::font_bold], 1);
}

TEST_F(WindowScaling, AControlWithTypeButNoHeightHasTheRestScaledOnBothRoads) {
    const std::map<Property, double> drawn{
        {Property::left, 50}, {Property::width, 100}, {Property::font_size, 10}};
    Control item{drawn};
    scale(item, 2, 3);
    EXPECT_EQ(item.properties,
              (std::map<Property, double>{
                  {Property::left, 100}, {Property::width, 200}, {Property::font_size, 30}}));
    tag.clear();
    item.properties = drawn;
    scale(item, 0.8, 0.6);
    EXPECT_EQ(item.properties,
              (std::map<Property, double>{
                  {Property::left, 40}, {Property::width, 80}, {Property::font_size, 6}}));
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

TEST_F(WindowScaling, WhatIsNoLineKeepsItsEnds) {
    Control other{{{Property::x1, 10}, {Property::y2, 40}}};
    scale(other, 2, 3);
    EXPECT_EQ(other.properties,
              (std::map<Property, double>{{Property::x1, 10}, {Property::y2, 40}}));
}

TEST_F(WindowScaling, APictureIsStretchedFromItsOwnUnits) {
    Control picture;
    picture.type_name = "PictureBox";
    scale(picture, 2, 3);
    EXPECT_NEAR(picture.picture_x, 2 * 0.572, 1e-9);
    EXPECT_NEAR(picture.picture_y, 3 * 0.572, 1e-9);
}

TEST_F(WindowScaling, OnlyAPictureIsStretched) {
    scale(button, 2, 3);
    EXPECT_EQ(button.picture_x, 0);
}

} // namespace
} // namespace zol::tests
