// What the screen is notified of: which part of which widget has changed, once, and nothing if
// nothing changed.
#include "tests/unit/view/plain_windows.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Aspect;

class ChangesOnScreen : public PlainWindows {
  protected:
    ChangesOnScreen() {
        inside_program([] { view::load(form1::Form1); });
        screen.on_changed = [this](view::Widget& widget, Aspect aspect) {
            changes.emplace_back(&widget, aspect);
        };
    }
    ~ChangesOnScreen() override { screen.on_changed = {}; }

    // Runs the work twice: the second time it changes nothing, so that the screen is not notified.
    std::vector<Aspect> of(view::Widget& widget, const std::function<void()>& work) {
        changes.clear();
        work();
        work();
        std::vector<Aspect> aspects;
        for (const auto& [changed, aspect] : changes)
            if (changed == &widget) aspects.push_back(aspect);
        return aspects;
    }
    std::vector<std::pair<view::Widget*, Aspect>> changes;
};

TEST_F(ChangesOnScreen, NameThePartThatAnAssignmentChanges) {
    using namespace view;
    Widget &label = form1::Label_ktar, &slider = form1::Slider1[0], &window = form1::Form1;
    Widget &field = form1::Text_min_tank, &item = form1::com1;
    const std::tuple<Widget*, std::function<void()>, Aspect> assignments[] = {
        {&label, [&] { set_text(label, "1300"); }, Aspect::text},
        {&label, [&] { set_tip(label, "tip"); }, Aspect::tip},
        {&label, [&] { set_back(label, 7); }, Aspect::colours},
        {&label, [&] { set_fore(label, 7); }, Aspect::colours},
        {&label, [&] { set_visible(label, false); }, Aspect::visible},
        {&label, [&] { set_enabled(label, false); }, Aspect::enabled},
        {&label, [&] { set_pointer(label, Pointer::hourglass); }, Aspect::pointer},
        {&label,
         [&] {
             set_place(label, {1, 2, 3, 4});
         },
         Aspect::place},
        {&item, [&] { set_checked(item, true); }, Aspect::checked},
        {&field, [&] { set_tab_stop(field, false); }, Aspect::tab_stop},
        {&field, [&] { set_edit_marker(field, true); }, Aspect::edit_marker},
        {&slider, [&] { set_selection_length(slider, 9); }, Aspect::range},
        {&slider, [&] { set_value_and_run_handler(slider, 12); }, Aspect::value},
        {&slider, [&] { place_value(slider, 13); }, Aspect::value},
        {&window, [&] { set_window_state(window, WindowState::maximised); }, Aspect::window_state}};
    for (const auto& [widget, work, aspect] : assignments)
        EXPECT_THAT(of(*widget, work), ElementsAre(aspect)) << static_cast<int>(aspect);
    EXPECT_THAT(of(label, [&] { set_font(label, 31, true); }), testing::Each(Aspect::font));
    EXPECT_THAT(of(slider, [&] { set_range(slider, 20, 30); }),
                ElementsAre(Aspect::range, Aspect::range, Aspect::value));
}

TEST_F(ChangesOnScreen, NameTheFontForSizeOrWeightAlone) {
    view::Widget& label = form1::Label39;
    const bool bold = label.look.font_bold;
    const double points = label.look.font_size;
    EXPECT_THAT(of(label, [&] { view::set_font(label, points + 1, bold); }),
                ElementsAre(Aspect::font));
    EXPECT_THAT(of(label, [&] { view::set_font(label, points + 1, !bold); }),
                ElementsAre(Aspect::font));
}

TEST_F(ChangesOnScreen, NameBothOptionsWhenOneReplacesTheOther) {
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

TEST_F(ChangesOnScreen, NameTheItemsOfAList) {
    view::Widget& list = form1::Combo_tank_level;
    changes.clear();
    view::set_items(list, {"one", "two"});
    EXPECT_THAT(changes, ElementsAre(std::pair(&list, Aspect::items)));
    EXPECT_EQ(list.look.list_index, -1);
    EXPECT_THAT(of(list, [&] { view::set_list_index(list, 1); }), ElementsAre(Aspect::value));
    EXPECT_FALSE(view::set_list_index(list, 2));
    EXPECT_FALSE(view::set_list_index(list, -2));
    EXPECT_EQ(list.look.list_index, 1);
    EXPECT_TRUE(view::set_list_index(list, -1));
}

TEST_F(ChangesOnScreen, NameEachStrokeOfADrawing) {
    view::Widget& surface = form1::Picture1;
    changes.clear();
    view::draw_line(surface, 1, 2, 3, 4, 5);
    view::fill_rectangle(surface, 1, 2, 3, 4, 5);
    view::clear_drawing(surface);
    const auto one = std::pair(&surface, Aspect::drawing);
    EXPECT_THAT(changes, ElementsAre(one, one, one));
    EXPECT_THAT(surface.look.strokes, IsEmpty());
}

TEST_F(ChangesOnScreen, AreNotNotifiedForAnUnloadedWindow) {
    inside_program([] { view::unload(form1::Form1); });
    changes.clear();
    view::set_text(form1::Label_ktar, "9");
    view::set_items(form1::Combo_tank_level, {"one"});
    view::draw_line(form1::Picture1, 1, 2, 3, 4, 5);
    view::clear_drawing(form1::Picture1);
    EXPECT_THAT(changes, IsEmpty());
}

} // namespace
} // namespace zol::tests
