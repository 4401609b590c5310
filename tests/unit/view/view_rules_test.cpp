// What an assignment by the program does to a widget, and when a window is activated.
#include "tests/unit/view/plain_windows.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Rules : public PlainWindows {
  protected:
    Rules() {
        inside_program([] { view::show(form1::Form1); });
    }
};

TEST_F(Rules, SliderRejectsAValueOutsideItsRange) {
    form1::Slider_ktar.on.change = notes("change");
    EXPECT_TRUE(view::set_value_and_run_handler(form1::Slider_ktar, 1001));
    EXPECT_TRUE(view::set_value_and_run_handler(form1::Slider_ktar, 1800));
    events.clear();
    for (const double outside : {1000.0, 1800.5, 1801.0, -1.0}) {
        EXPECT_FALSE(view::set_value_and_run_handler(form1::Slider_ktar, outside));
        EXPECT_FALSE(view::place_value(form1::Slider_ktar, outside));
    }
    EXPECT_EQ(view::value(form1::Slider_ktar), 1800);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Rules, MarkedSlidersRunTheirHandlerOnAChange) {
    view::Widget* const marked[] = {&form1::Slider_ktar, &form1::Slider_power,
                                    &form1::Slider_attenuazione, &form1::Slider3};
    for (view::Widget* slider : marked) {
        slider->on.change = notes(slider->name);
        events.clear();
        const double other = slider->look.value + 1;
        EXPECT_TRUE(view::set_value_and_run_handler(*slider, other));
        EXPECT_TRUE(view::set_value_and_run_handler(*slider, other));
        EXPECT_THAT(events, ElementsAre(slider->name));
        EXPECT_TRUE(view::place_value(*slider, other - 1));
        EXPECT_EQ(events.size(), 1U);
    }
    events.clear();
    form1::Slider1[2].on.change = notes("tank");
    EXPECT_TRUE(view::set_value_and_run_handler(form1::Slider1[2], 12));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_TRUE(form3::Slider2.changes_on_assignment);
}

TEST_F(Rules, RangeLimitsTheValue) {
    view::set_range(form1::Slider3, 0, 20);
    EXPECT_TRUE(view::set_value_and_run_handler(form1::Slider3, 15));
    view::set_range(form1::Slider3, 0, 10);
    EXPECT_EQ(view::value(form1::Slider3), 10);
}

TEST_F(Rules, OptionThatIsSwitchedOnRunsItsClick) {
    form1::Option_gpl.on.click = notes("gpl");
    form1::Option_metano.on.click = notes("metano");
    view::select_and_run_handler(form1::Option_gpl);
    view::select_and_run_handler(form1::Option_gpl); // on already
    view::select_and_run_handler(form1::Option_metano);
    EXPECT_THAT(events, ElementsAre("gpl", "metano"));
    EXPECT_FALSE(view::selected(form1::Option_gpl));
    view::select_and_run_handler(form1::Option_metano, false); // off is no click
    EXPECT_EQ(events.size(), 2U);
    view::place_selected(form1::Option_gpl);
    EXPECT_TRUE(view::selected(form1::Option_gpl));
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(Rules, OptionsOfAnotherFrameStayOn) {
    view::select_and_run_handler(form1::Option_press_yes);
    view::select_and_run_handler(form1::Option_gpl);
    view::select_and_run_handler(form1::lambda_dir);
    EXPECT_TRUE(view::selected(form1::Option_press_yes));
    EXPECT_TRUE(view::selected(form1::Option_gpl));
}

TEST_F(Rules, OptionThatIsSwitchedOffRunsNothing) {
    view::select_and_run_handler(form1::Option_gpl);
    form1::Option_gpl.on.click = notes("gpl");
    view::select_and_run_handler(form1::Option_gpl, false);
    EXPECT_FALSE(view::selected(form1::Option_gpl));
    EXPECT_FALSE(view::selected(form1::Option_metano));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Rules, CheckBoxRunsItsClickForAnyChange) {
    form1::Check1.on.click = notes("check");
    view::select_and_run_handler(form1::Check1);
    view::select_and_run_handler(form1::Check1);
    view::select_and_run_handler(form1::Check1, false);
    EXPECT_THAT(events, ElementsAre("check", "check"));
}

TEST_F(Rules, ListSelectedByTheProgramRunsNothing) {
    form1::Combo_tank_level.on.click = form1::Combo_tank_level.on.change = notes("list");
    view::set_items(form1::Combo_tank_level, {"a", "b"});
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_TRUE(view::set_list_index(form1::Combo_tank_level, 1));
    EXPECT_FALSE(view::set_list_index(form1::Combo_tank_level, 2));
    EXPECT_FALSE(view::set_list_index(form1::Combo_tank_level, -2));
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, 1);
    view::set_items(form1::Combo_tank_level, {"c"});
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Rules, LabelRunsItsChangeOnlyForAnotherText) {
    form1::Label_led0.on.change = notes("label");
    form1::Text_min_tank.on.change = notes("text box");
    view::set_text(form1::Label_led0, "5%");
    view::set_text(form1::Label_led0, "5%");
    view::set_text(form1::Text_min_tank, "5");
    EXPECT_THAT(events, ElementsAre("label"));
}

TEST_F(Rules, ScreenIsNotifiedOfRealChangesOnly) {
    view::set_text(form1::Label_rpm, "850");
    const auto before = screen.changes;
    view::set_text(form1::Label_rpm, "850");
    view::set_visible(form1::Label_rpm, true);
    view::set_enabled(form1::Label_rpm, true);
    EXPECT_EQ(screen.changes, before);
    view::set_text(form1::Label_rpm, "851");
    EXPECT_EQ(screen.changes, before + 1);
}

TEST_F(Rules, HiddenOrDisabledControlGetsNoFocus) {
    form1::Text2.on.got_focus = notes("focus");
    view::set_focus(form1::Text2);
    EXPECT_EQ(view::focus(), &form1::Text2);
    view::set_focus(form1::Text2); // there already
    EXPECT_THAT(events, ElementsAre("focus"));
    view::set_focus(form1::Text_min_tank); // its panel is hidden
    EXPECT_EQ(view::focus(), &form1::Text2);
    view::load(form2::Form2);
    view::set_focus(form2::cmd_exit); // its window is not shown
    EXPECT_EQ(view::focus(), &form1::Text2);
    view::set_focus(form1::Form1);
    EXPECT_EQ(view::focus(), &form1::Form1);
    view::set_focus(form1::Text2);
    view::set_enabled(form1::Text2, false);
    EXPECT_NE(view::focus(), &form1::Text2);
}

TEST_F(Rules, WindowIsActivatedWhenAnotherCloses) {
    form1::Form1.on.activate = notes("main");
    form2::Form2.on.activate = notes("second");
    form1::Form1.on.deactivate = notes("main gives way");
    run_for(1);
    events.clear();
    inside_program([] { view::show(form2::Form2); });
    EXPECT_THAT(events, ElementsAre("main gives way", "second"));
    inside_program([] { view::show(form2::Form2); }); // in front already
    EXPECT_EQ(events.size(), 2U);
    inside_program([] { view::unload(form2::Form2); });
    EXPECT_EQ(events.back(), "main");
    EXPECT_EQ(events.size(), 3U);
}

TEST_F(Rules, ClosedWindowIsNotActivated) {
    form2::Form2.on.activate = notes("second");
    inside_program([] {
        view::show(form2::Form2);
        view::unload(form2::Form2);
    });
    run_for(100);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Rules, CoveredWindowIsNotActivated) {
    form1::Form1.on.activate = notes("main");
    form2::Form2.on.activate = notes("second");
    run_for(1);
    events.clear();
    inside_program([] {
        view::show(form2::Form2);
        view::show(form1::Form1);
    });
    EXPECT_THAT(events, ElementsAre("main"));
}

TEST_F(Rules, SeveralActivationsAreDeliveredOnce) {
    form1::Form1.on.activate = notes("main");
    inside_program([] {
        for (int i = 0; i < 3; ++i) {
            view::hide(form1::Form1);
            view::show(form1::Form1);
        }
    });
    EXPECT_THAT(events, ElementsAre("main"));
}

TEST_F(Rules, ReopenedWindowIsActivatedOnce) {
    form2::Form2.on.activate = notes("second");
    inside_program([] {
        view::show(form2::Form2);
        view::unload(form2::Form2);
        view::show(form2::Form2);
    });
    EXPECT_THAT(events, ElementsAre("second"));
}

TEST_F(Rules, BoxesActivateNothing) {
    run_for(1);
    form1::Form1.on.activate = notes("main");
    screen.answer_message("sure", view::Answer::yes, 1000);
    screen.answer_input("number", "12", 1000);
    screen.answer_colour(view::red, 1000);
    inside_program([] {
        EXPECT_EQ(view::message_box({"sure?", "", view::Buttons::yes_no}), view::Answer::yes);
        EXPECT_EQ(view::input_box("number", ""), "12");
        EXPECT_EQ(view::colour_box(view::black), view::red);
    });
    run_for(5000);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Rules, LoadingAfterUnloadingRestoresTheDesign) {
    form2::Form2.on.load = notes("load");
    form2::Form2.on.closing = [this] {
        events.push_back("closing");
        view::unload(form2::Form2); // no second time
    };
    form2::Form2.on.unload = notes("unload");
    inside_program([] { view::show(form2::Form2); });
    view::set_text(form2::Form2, "other");
    inside_program([] { view::unload(form2::Form2); });
    inside_program([] { view::unload(form2::Form2); });
    EXPECT_THAT(events, ElementsAre("load", "closing", "unload"));
    inside_program([] { view::load(form2::Form2); });
    EXPECT_EQ(view::text(form2::Form2), form2::Form2.design.text);
    EXPECT_FALSE(form2::Form2.shown);
}

TEST_F(Rules, ModalWindowBlocksItsCallerOnly) {
    bool came_back = false;
    int ticks = 0;
    form1::Timer4.tick = [&ticks] { ++ticks; };
    inside_program([&came_back] {
        view::show_modal(form2::Form2);
        came_back = true;
    });
    run_for(10000);
    EXPECT_FALSE(came_back);
    EXPECT_GE(ticks, 4);
    inside_program([] { view::unload(form2::Form2); });
    EXPECT_TRUE(came_back);
    form1::Timer4.tick = nullptr;
}

} // namespace
} // namespace zol::tests
