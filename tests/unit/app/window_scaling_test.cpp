// How a window that was drawn for one screen is scaled to another, on controls of any properties.
#include "app/window_scaling.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace zol::tests {
namespace {

using app::Property;
using enum app::Property;
using Properties = std::map<Property, double>;

std::vector<Property> written; // of all controls, in the order of the writes

// A control of any properties, which may refuse a height or small type.
struct Control {
    Properties properties;
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
                        if (p == height && refuses_height) return;
                        if (p == height) value = std::min(value, greatest_height);
                        if (p == font_size) value = std::max(value, smallest_font);
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

    // Scales the window, with this frame height and these controls, to a screen of this size in
    // twips. A frame of 405 twips is a title bar without a menu.
    void scale_to(double width, double height, double frame = 405,
                  const std::vector<app::Resizable>& controls = {}) {
        app::ScalableWindow scalable{tag, frame, window.seen(), controls};
        app::scale_window(scalable, width, height);
    }
    // Scales a control of a window without a menu by these factors.
    void scale(Control& control, double width_factor, double height_factor) {
        scale_to(10125 * width_factor, 705 + 8295 * height_factor, 405, {control.seen()});
    }

    std::string tag;
    Control window{{{left, 100}, {top, 200}, {width, 5000}, {height, 4000}}};
    const Properties drawn_button{{left, 60},    {top, 80},       {width, 1000},
                                  {height, 400}, {font_size, 10}, {font_bold, 1}};
    Control button{drawn_button};
};

TEST_F(WindowScaling, OwnScreenLeavesTheWindowAlone) {
    // Also with a menu bar, and after a larger screen: the factors of that one are not applied.
    app::scale_factors = {2, 3};
    for (const double frame : {405, 690}) {
        scale_to(10125, 9000, frame, {button.seen()});
    }
    EXPECT_EQ(tag, "");
    EXPECT_TRUE(written.empty());
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, 3);
}

TEST_F(WindowScaling, ScreenThatDiffersInOneSizeIsAnotherScreen) {
    scale_to(20250, 9000);
    EXPECT_EQ(tag, "ResizeON");
    EXPECT_EQ(window.properties[width], 10000);
    EXPECT_EQ(window.properties[height], 4000);
    tag.clear();
    scale_to(10125, 705 + 8295 * 2);
    EXPECT_EQ(tag, "ResizeON");
    EXPECT_EQ(window.properties[width], 10000);
    EXPECT_EQ(window.properties[height], 8000);
}

TEST_F(WindowScaling, WindowWithoutAMenuUsesTheHeightBelowItsTitle) {
    scale(button, 2, 1.5);
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, std::nearbyint(8295 * 1.5) / 8295);
    EXPECT_EQ(window.properties[width], 10000);
    EXPECT_NEAR(window.properties[height], 6000, 1);
}

TEST_F(WindowScaling, EveryFrameButATitleBarHasAMenu) {
    for (const double frame : {690, 404, 406}) {
        tag.clear();
        scale_to(20250, 990 + 8010 * 2, frame);
        EXPECT_EQ(app::scale_factors.width, 2) << frame;
        EXPECT_EQ(app::scale_factors.height, 2) << frame;
    }
}

TEST_F(WindowScaling, SizeOfTheScreenIsRoundedToTwips) {
    scale_to(20250.4, 705 + 8295 * 2 + 0.4);
    EXPECT_EQ(app::scale_factors.width, 2);
    EXPECT_EQ(app::scale_factors.height, 2);
}

TEST_F(WindowScaling, WindowIsPlacedInAFixedOrder) {
    scale_to(20250, 705 + 8295 * 3);
    EXPECT_EQ(written, (std::vector{width, top, left, height}));
    EXPECT_EQ(window.properties,
              (Properties{{left, 200}, {top, 600}, {width, 10000}, {height, 12000}}));
}

TEST_F(WindowScaling, ControlsFollowInTheOrderOfDefinition) {
    Control first{{{x1, 1}}}, second{{{y1, 1}}}, frame{{{width, 1}}};
    first.type_name = second.type_name = "Line";
    app::ScalableWindow it{tag, 405, frame.seen(), {second.seen(), first.seen()}};
    app::scale_window(it, 20250, 20000);
    EXPECT_EQ(written, (std::vector{width, y1, x1}));
}

TEST_F(WindowScaling, LargerScreenEnlargesPlaceAndType) {
    button.properties[border_width] = 1;
    scale(button, 2, 3);
    EXPECT_EQ(button.properties, (Properties{{left, 120},
                                             {top, 240},
                                             {width, 2000},
                                             {height, 1200},
                                             {border_width, 2},
                                             {font_size, 30},
                                             {font_bold, 1}}));
}

TEST_F(WindowScaling, LargerScreenSetsTheTypeAfterTheSize) {
    window.properties.clear();
    scale(button, 2, 2);
    EXPECT_EQ(written, (std::vector{left, top, width, height, font_size}));
}

TEST_F(WindowScaling, SmallerScreenSetsTheTypeBeforeTheSize) {
    window.properties.clear();
    scale(button, 0.8, 0.8);
    EXPECT_EQ(written, (std::vector{left, top, font_size, width, height}));
}

TEST_F(WindowScaling, SmallerScreenShrinksPlaceAndType) {
    scale(button, 0.6, 0.75);
    EXPECT_NEAR(button.properties[left], 36, 0.01);
    EXPECT_NEAR(button.properties[top], 60, 0.01);
    EXPECT_NEAR(button.properties[width], 600, 0.01);
    EXPECT_NEAR(button.properties[height], 300, 0.05);
    EXPECT_NEAR(button.properties[font_size], 7.5, 0.01);
    EXPECT_EQ(button.properties[font_bold], 1);
}

TEST_F(WindowScaling, ListThatRefusesItsHeightGetsOtherType) {
    button.refuses_height = true;
    scale(button, 2, 2);
    EXPECT_EQ(button.properties[height], 400);
    EXPECT_EQ(button.properties[font_size], (800 - 84) / 28.0);
}

TEST_F(WindowScaling, ListLowByATenthAtMostKeepsItsType) { // 800 is wanted
    for (const auto& [greatest, points] : {std::pair{725.0, 20.0}, {715.0, (800 - 84) / 28.0}}) {
        tag.clear();
        button.properties = drawn_button;
        button.greatest_height = greatest;
        scale(button, 2, 2);
        EXPECT_EQ(button.properties[font_size], points) << greatest;
    }
}

TEST_F(WindowScaling, SecondCallChangesNothing) {
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

TEST_F(WindowScaling, WidthFactorOfOneShrinks) {
    button.refuses_height = true; // which only enlarging would notice
    scale(button, 1, 2);
    EXPECT_EQ(button.properties[width], 1000);
    EXPECT_EQ(button.properties[font_size], 20);
}

// Bold type of `drawn` points on a control that refuses type below `smallest` points.
struct Type {
    const char* name;
    double width_factor, height_factor, drawn, smallest;
    double points;
    bool bold;
    const char* font;
};

class ScaledType : public WindowScaling, public testing::WithParamInterface<Type> {};

TEST_P(ScaledType, HasItsSize) {
    const Type& row = GetParam();
    button.properties[font_size] = row.drawn;
    button.smallest_font = row.smallest;
    scale(button, row.width_factor, row.height_factor);
    EXPECT_NEAR(button.properties[font_size], row.points, 0.001);
    EXPECT_EQ(button.properties[font_bold], row.bold ? 1 : 0);
    EXPECT_EQ(button.font_name, row.font);
}

INSTANTIATE_TEST_SUITE_P(
    , ScaledType,
    testing::Values(
        Type{"WidthFactorOfOneHasTheSmallestType", 1, 0.4, 10, 0, 4.5, false, "MS"},
        Type{"TypeThatCannotShrinkGetsAnotherFont", 0.8, 0.8, 10, 8.9, 8, true, "Arial"},
        Type{"TypeWithinATenthKeepsItsFont", 0.8, 0.8, 10, 8.7, 8.7, true, "MS"},
        Type{"TypeHasFourAndAHalfPointsAtLeast", 0.4, 0.4, 10, 0, 4.5, false, "MS"},
        Type{"TypeOfExactlyFourAndAHalfPointsStaysBold", 0.6, 1, 4.5, 0, 4.5, true, "MS"},
        Type{"WiderScreenAllowsSmallerType", 2, 0.2, 10, 0, 2, true, "MS"}),
    [](const auto& row) { return row.param.name; });

TEST_F(WindowScaling, ControlWithTypeButNoHeightIsScaled) {
    const Properties drawn{{left, 50}, {width, 100}, {font_size, 10}};
    Control item{drawn};
    scale(item, 2, 3);
    EXPECT_EQ(item.properties, (Properties{{left, 100}, {width, 200}, {font_size, 30}}));
    tag.clear();
    item.properties = drawn;
    scale(item, 0.8, 0.6);
    EXPECT_EQ(item.properties, (Properties{{left, 40}, {width, 80}, {font_size, 6}}));
}

TEST_F(WindowScaling, ControlWithoutHeightIsScaled) {
    Control timer{{{left, 30}}};
    scale(timer, 2, 2);
    EXPECT_EQ(timer.properties, (Properties{{left, 60}}));
    tag.clear();
    scale(timer, 0.4, 0.4); // a whole number of twips
    EXPECT_EQ(timer.properties, (Properties{{left, 24}}));
}

TEST_F(WindowScaling, LineMovesItsEnds) {
    Control line{{{x1, 10}, {y1, 20}, {x2, 30}, {y2, 40}, {border_width, 1}}};
    line.type_name = "Line";
    scale(line, 2, 3);
    EXPECT_EQ(line.properties[x1], 20);
    EXPECT_NEAR(line.properties[y1], 60, 0.01);
    EXPECT_EQ(line.properties[x2], 60);
    EXPECT_NEAR(line.properties[y2], 120, 0.01);
    EXPECT_EQ(line.properties[border_width], 2);
}

TEST_F(WindowScaling, OtherControlKeepsItsEnds) {
    Control other{{{x1, 10}, {y2, 40}}};
    scale(other, 2, 3);
    EXPECT_EQ(other.properties, (Properties{{x1, 10}, {y2, 40}}));
}

TEST_F(WindowScaling, PictureIsStretchedFromItsOwnUnits) {
    Control picture;
    picture.type_name = "PictureBox";
    scale(picture, 2, 3);
    EXPECT_NEAR(picture.picture_x, 2 * 0.572, 1e-9);
    EXPECT_NEAR(picture.picture_y, 3 * 0.572, 1e-9);
}

TEST_F(WindowScaling, OtherControlIsNotStretched) {
    scale(button, 2, 3);
    EXPECT_EQ(button.picture_x, 0);
}

} // namespace
} // namespace zol::tests
