// What the operator's acts do, and which controls they reach.
#include "tests/unit/view/plain_windows.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

namespace zol::tests {
namespace {

using namespace view::operator_acts;
using testing::ElementsAre;
using testing::IsEmpty;

class Acts : public PlainWindows {
  protected:
    Acts() {
        inside_program([] { view::show(form1::Form1); });
    }
};

TEST_F(Acts, HiddenOrDisabledControlIgnoresThem) {
    form1::Command_exit.on.click = notes("click");
    EXPECT_TRUE(click(form1::Command_exit));
    for (view::Widget* around : {&form1::Command_exit, &form1::Form1}) {
        view::set_enabled(*around, false);
        EXPECT_FALSE(click(form1::Command_exit));
        view::set_enabled(*around, true);
    }
    view::set_visible(form1::Command_exit, false);
    EXPECT_FALSE(click(form1::Command_exit));
    EXPECT_FALSE(click(form1::Text_min_tank)); // its panel is hidden
    EXPECT_FALSE(type(form1::Text_min_tank, "1"));
    EXPECT_FALSE(drag_to(form1::Slider1[0], 5));
    EXPECT_FALSE(choose(form1::Combo_tank_level, 0));
    EXPECT_FALSE(focus(form1::Text_min_tank));
    EXPECT_FALSE(click(form2::Form2)); // not shown
    EXPECT_FALSE(double_click(form2::Form2));
    EXPECT_FALSE(key(form2::Form2, 13, 0));
    EXPECT_FALSE(close(form2::Form2));
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(Acts, ItemOfADisabledMenuIgnoresThem) {
    form1::mnu_reset_check.on.click = notes("reset");
    EXPECT_FALSE(click(form1::mnu_reset_check)); // disabled in the design
    view::set_enabled(form1::mnu_check_car, true);
    EXPECT_TRUE(click(form1::mnu_reset_check));
    EXPECT_EQ(events.size(), 1U);
    form1::mnu_reset_check.on.click = nullptr;
}

TEST_F(Acts, DragRunsChangeOnceAtItsEnd) {
    form1::Slider_ktar.on.scroll = notes("scroll");
    form1::Slider_ktar.on.change = notes("change");
    const double before = view::value(form1::Slider_ktar);
    EXPECT_TRUE(drag_on(form1::Slider_ktar, 1300));
    EXPECT_TRUE(drag_on(form1::Slider_ktar, 1400));
    EXPECT_TRUE(drag_on(form1::Slider_ktar, 1400));
    EXPECT_THAT(events, ElementsAre("scroll", "scroll"));
    EXPECT_TRUE(end_drag(form1::Slider_ktar, before));
    EXPECT_THAT(events, ElementsAre("scroll", "scroll", "change"));
    EXPECT_EQ(view::focus(), &form1::Slider_ktar);
}

TEST_F(Acts, DragBackToItsStartChangesNothing) {
    form1::Slider_ktar.on.change = notes("change");
    const double before = view::value(form1::Slider_ktar);
    drag_on(form1::Slider_ktar, before + 10);
    drag_on(form1::Slider_ktar, before);
    end_drag(form1::Slider_ktar, before);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Acts, DragStopsAtTheEndsOfTheScale) {
    drag_to(form1::Slider_ktar, 5000);
    EXPECT_EQ(view::value(form1::Slider_ktar), 1800);
    drag_to(form1::Slider_ktar, 0);
    EXPECT_EQ(view::value(form1::Slider_ktar), 1001);
}

TEST_F(Acts, OptionThatIsOnIsClickedAgain) {
    view::set_visible(form1::Frame_impostazioni, true);
    form1::Option_gpl.on.click = notes("gpl");
    EXPECT_TRUE(click(form1::Option_gpl));
    EXPECT_TRUE(view::selected(form1::Option_gpl));
    EXPECT_TRUE(click(form1::Option_gpl));
    EXPECT_THAT(events, ElementsAre("gpl", "gpl"));
}

TEST_F(Acts, CheckBoxTogglesWithEachClick) {
    view::set_visible(form1::Frame_impostazioni, true);
    form1::Check1.on.click = notes("check");
    click(form1::Check1);
    EXPECT_TRUE(view::selected(form1::Check1));
    click(form1::Check1);
    EXPECT_FALSE(view::selected(form1::Check1));
    EXPECT_THAT(events, ElementsAre("check", "check"));
}

TEST_F(Acts, ListRunsItsClickAlsoForTheShownItem) {
    view::set_visible(form1::Frame_impostazioni, true);
    view::set_items(form1::Combo_tank_level, {"a", "b"});
    form1::Combo_tank_level.on.click = notes("list");
    EXPECT_TRUE(choose(form1::Combo_tank_level, 1));
    EXPECT_TRUE(choose(form1::Combo_tank_level, 1));
    EXPECT_FALSE(choose(form1::Combo_tank_level, 2));
    EXPECT_THAT(events, ElementsAre("list", "list"));
    EXPECT_EQ(view::focus(), &form1::Combo_tank_level);
}

TEST_F(Acts, KeyReachesTheWindowBeforeTheControl) {
    form1::Form1.on.key = [this](int code, int) {
        events.push_back("window " + std::to_string(code));
    };
    form1::Text2.on.key = [this](int code, int) {
        events.push_back("field " + std::to_string(code));
    };
    EXPECT_TRUE(key(form1::Form1, 65, 0));
    EXPECT_TRUE(focus(form1::Text2));
    EXPECT_TRUE(key(form1::Form1, enter, 0));
    EXPECT_THAT(events, ElementsAre("window 65", "window 13", "field 13"));
}

TEST_F(Acts, KeyDoesNotReachAFieldJustDisabled) {
    form1::Form1.on.key = [](int, int) { view::set_enabled(form1::Text2, false); };
    form1::Text2.on.key = [this](int, int) { events.push_back("field"); };
    focus(form1::Text2);
    key(form1::Form1, enter, 0);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Acts, OnlyAControlThatTakesInputGetsFocus) {
    using namespace form1;
    view::set_visible(Frame_impostazioni, true);
    for (view::Widget* w : {&Command303, &Option_gpl, &Check1, &Text_min_tank, &Combo_tank_level,
                            &Slider3, &Slider1[0]}) {
        EXPECT_TRUE(focus(*w)) << full_name(*w);
        EXPECT_EQ(view::focus(), w) << full_name(*w);
    }
    for (view::Widget* w : {&Label_rpm, &Frame_tank, &Shape1[0], &Picture1, &com1, &Form1}) {
        EXPECT_FALSE(focus(*w)) << full_name(*w);
        EXPECT_EQ(view::focus(), &Slider1[0]) << full_name(*w);
    }
}

TEST_F(Acts, LabelDoesNotTakeTheFocus) {
    EXPECT_TRUE(focus(form1::Text2));
    click(form1::Label_rpm);
    EXPECT_EQ(view::focus(), &form1::Text2);
    click(form1::Command_exit);
    EXPECT_EQ(view::focus(), &form1::Command_exit);
    EXPECT_FALSE(focus(form1::Label_rpm));
}

TEST_F(Acts, LabelWithAHandlerTakesTheFocus) {
    form1::Label_rpm.on.double_click = notes("double click");
    EXPECT_TRUE(focus(form1::Label_rpm));
    EXPECT_EQ(view::focus(), &form1::Label_rpm);
}

TEST_F(Acts, WindowIsClosedByItsTitleBar) {
    inside_program([] { view::show(form2::Form2); });
    EXPECT_TRUE(close(form2::Form2));
    EXPECT_FALSE(form2::Form2.loaded);
}

TEST_F(Acts, DisabledWindowIsNotClosed) {
    view::set_enabled(form1::Form1, false);
    EXPECT_FALSE(close(form1::Form1));
    EXPECT_TRUE(form1::Form1.loaded);
}

} // namespace
} // namespace zol::tests
