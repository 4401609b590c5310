// What the screen is told of a change: which part of which widget, once, and nothing if nothing
// changed.
#include "tests/support/bench.h"
#include "view/timers.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Aspect;

class ScreenHears : public Bench {
  protected:
    ScreenHears() {
        for (view::Widget* w : {&form1::Form1, &form1::Check1})
            w->on = {}; // the next bench ties the program's own anew
        time.start([] {
            for (;;)
                view::pump();
        });
        inside_program([] { view::load(form1::Form1); });
        screen.on_changed = [this](view::Widget& widget, Aspect aspect) {
            heard.emplace_back(&widget, aspect);
        };
    }
    ~ScreenHears() override { screen.on_changed = {}; }

    // The work is done twice: the second time it changes nothing, and is not heard.
    std::vector<Aspect> of(view::Widget& widget, const std::function<void()>& work) {
        heard.clear();
        work();
        work();
        std::vector<Aspect> aspects;
        for (const auto& [changed, aspect] : heard)
            if (changed == &widget) aspects.push_back(aspect);
        return aspects;
    }
    std::vector<std::pair<view::Widget*, Aspect>> heard;
};

TEST_F(ScreenHears, OfEachAssignmentThePartThatItChanges) {
    view::Widget &label = form1::Label_ktar, &slider = form1::Slider1[0];
    view::Widget &field = form1::Text_min_tank, &item = form1::com1;
    EXPECT_THAT(of(label, [&] { view::set_text(label, "1300"); }), ElementsAre(Aspect::text));
    EXPECT_THAT(of(label, [&] { view::set_tip(label, "tip"); }), ElementsAre(Aspect::tip));
    EXPECT_THAT(of(label, [&] { view::set_back(label, 7); }), ElementsAre(Aspect::colours));
    EXPECT_THAT(of(label, [&] { view::set_fore(label, 7); }), ElementsAre(Aspect::colours));
    EXPECT_THAT(of(label, [&] { view::set_visible(label, false); }), ElementsAre(Aspect::visible));
    EXPECT_THAT(of(label, [&] { view::set_enabled(label, false); }), ElementsAre(Aspect::enabled));
    EXPECT_THAT(of(label, [&] { view::set_pointer(label, view::Pointer::hourglass); }),
                ElementsAre(Aspect::pointer));
    EXPECT_THAT(of(label,
                   [&] {
                       view::set_place(label, {1, 2, 3, 4});
                   }),
                ElementsAre(Aspect::place));
    EXPECT_THAT(of(label, [&] { view::set_font(label, 31, true); }), testing::Each(Aspect::font));
    EXPECT_THAT(of(item, [&] { view::set_checked(item, true); }), ElementsAre(Aspect::checked));
    EXPECT_THAT(of(field, [&] { view::set_tab_stop(field, false); }),
                ElementsAre(Aspect::tab_stop));
    EXPECT_THAT(of(field, [&] { view::set_edit_marker(field, true); }),
                ElementsAre(Aspect::edit_marker));
    EXPECT_THAT(of(slider, [&] { view::set_selection_length(slider, 9); }),
                ElementsAre(Aspect::range));
    EXPECT_THAT(of(slider, [&] { view::set_value_and_run_handler(slider, 12); }),
                ElementsAre(Aspect::value));
    EXPECT_THAT(of(slider, [&] { view::place_value(slider, 13); }), ElementsAre(Aspect::value));
    EXPECT_THAT(of(slider, [&] { view::set_range(slider, 20, 30); }),
                ElementsAre(Aspect::range, Aspect::range, Aspect::value));
    view::Widget& window = form1::Form1;
    EXPECT_THAT(of(window, [&] { view::set_window_state(window, view::WindowState::maximised); }),
                ElementsAre(Aspect::window_state));
}

TEST_F(ScreenHears, OfAFontThatGrowsAndOfOneThatTurnsBoldAlone) {
    view::Widget& label = form1::Label39;
    const bool bold = label.look.font_bold;
    const double points = label.look.font_size;
    EXPECT_THAT(of(label, [&] { view::set_font(label, points + 1, bold); }),
                ElementsAre(Aspect::font));
    EXPECT_THAT(of(label, [&] { view::set_font(label, points + 1, !bold); }),
                ElementsAre(Aspect::font));
}

TEST_F(ScreenHears, OfBothOptionsWhenOneTakesThePlaceOfTheOther) {
    view::place_selected(form1::Option_gpl);
    view::Widget& other = form1::Option_metano;
    EXPECT_THAT(of(form1::Option_gpl, [&] { view::place_selected(other); }),
                ElementsAre(Aspect::value));
    view::place_selected(form1::Option_gpl);
    EXPECT_THAT(of(other, [&] { view::place_selected(other); }), ElementsAre(Aspect::value));
    EXPECT_EQ(other.look.value, 1);
    EXPECT_EQ(form1::Option_gpl.look.value, 0);
    EXPECT_THAT(of(form1::Check1, [] { view::select_and_run_handler(form1::Check1); }),
                ElementsAre(Aspect::value));
}

TEST_F(ScreenHears, OfAListOfItemsAndOfTheOneThatIsChosen) {
    view::Widget& list = form1::Combo_tank_level;
    heard.clear();
    view::set_items(list, {"one", "two"});
    EXPECT_THAT(heard, ElementsAre(std::pair(&list, Aspect::items)));
    EXPECT_EQ(list.look.list_index, -1);
    EXPECT_THAT(of(list, [&] { view::set_list_index(list, 1); }), ElementsAre(Aspect::value));
    EXPECT_FALSE(view::set_list_index(list, 2));
    EXPECT_FALSE(view::set_list_index(list, -2));
    EXPECT_EQ(list.look.list_index, 1);
    EXPECT_TRUE(view::set_list_index(list, -1));
}

TEST_F(ScreenHears, OfEveryStrokeAndOfTheClearing) {
    view::Widget& surface = form1::Picture1;
    heard.clear();
    view::draw_line(surface, 1, 2, 3, 4, 5);
    view::fill_rectangle(surface, 1, 2, 3, 4, 5);
    view::clear_drawing(surface);
    const auto one = std::pair(&surface, Aspect::drawing);
    EXPECT_THAT(heard, ElementsAre(one, one, one));
    EXPECT_THAT(surface.look.strokes, IsEmpty());
}

TEST_F(ScreenHears, NothingOfAWindowThatIsNotLoaded) {
    inside_program([] { view::unload(form1::Form1); });
    heard.clear();
    view::set_text(form1::Label_ktar, "9");
    view::set_items(form1::Combo_tank_level, {"one"});
    view::draw_line(form1::Picture1, 1, 2, 3, 4, 5);
    view::clear_drawing(form1::Picture1);
    EXPECT_THAT(heard, IsEmpty());
}

} // namespace
} // namespace zol::tests
