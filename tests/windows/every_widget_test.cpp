// Every widget of every window is on the screen under its own name and shows its data.
#include "tests/windows/window_fixture.h"

#include <QAction>
#include <QMenu>

namespace zol::view {
namespace {

// The parameter is a window.
class EveryWindow : public WindowFixture, public ::testing::WithParamInterface<Widget*> {
  protected:
    EveryWindow() : window(*GetParam()) { open(window); }
    Widget& window;
};

// The mirror check compares the toolkit's controls with the data; mirror_check_test.cpp shows that
// it finds each kind of difference. So these tests change the data and compare.

TEST_P(EveryWindow, ShowsItsDesign) {
    EXPECT_EQ(top(window).objectName().toStdString(), window.name);
    for (Widget* w : window.controls) {
        EXPECT_FALSE(face(*w).accessibleName().isEmpty()) << full_name(*w);
        if (w->parent != &window) {
            EXPECT_EQ(face(*w).parentWidget(), &face(*w->parent)) << full_name(*w);
        }
    }
    expect_mirrored();
}

TEST_P(EveryWindow, ShowsChangedTexts) {
    for (Widget* w : window.controls)
        set_text(*w, "12.6 ü");
    expect_mirrored();
}

TEST_P(EveryWindow, ShowsChangedColours) {
    for (Widget* w : window.controls) {
        set_back(*w, light_red);
        set_fore(*w, rgb(1, 2, 3));
    }
    expect_mirrored();
}

TEST_P(EveryWindow, ShowsChangedTipsOrPointers) {
    for (Widget* w : window.controls) {
        set_tip(*w, "199");
        set_pointer(*w, Pointer::hourglass);
        expect_mirrored();
        set_pointer(*w, Pointer::normal);
    }
}

TEST_P(EveryWindow, ShowsChangedStates) {
    const auto change_each = [this](const std::function<void(Widget&)>& change) {
        for (Widget* w : window.controls)
            change(*w);
        expect_mirrored();
    };
    change_each([](Widget& w) { set_visible(w, !w.look.visible); });
    change_each([](Widget& w) { set_enabled(w, !w.look.enabled); });
    change_each([](Widget& w) { set_visible(w, true); });
    change_each([](Widget& w) { set_enabled(w, w.index % 2 != 0); });
    change_each([](Widget& w) { set_tab_stop(w, !w.look.tab_stop); });
    change_each([](Widget& w) { set_edit_marker(w, w.kind == Kind::text_box); });
}

TEST_P(EveryWindow, HasItsMenuTree) {
    for (Widget* w : window.menus) {
        QAction& entry = action(*w);
        EXPECT_EQ(entry.isSeparator(), w->kind == Kind::separator) << w->name;
        EXPECT_EQ(entry.menu() != nullptr, w->kind == Kind::menu) << w->name;
        if (entry.menu()) {
            EXPECT_EQ(entry.menu()->objectName().toStdString(), w->name);
        }
        if (w->parent != &window) {
            EXPECT_TRUE(action(*w->parent).menu()->actions().contains(&entry)) << w->name;
        }
        if (w->kind != Kind::menu_item) continue;
        set_checked(*w, true);
        set_enabled(*w, false);
        set_text(*w, "A & B");
        EXPECT_EQ(entry.text(), "A && B") << w->name;
    }
    expect_mirrored();
}

TEST_P(EveryWindow, ShowsChangedValues) {
    for (Widget* w : window.controls) {
        if (w->kind == Kind::slider) {
            place_value(*w, w->look.max);
            expect_mirrored();
            set_selection_length(*w, 20);
        } else if (w->kind == Kind::combo_box) {
            for (int time = 0; time < 2; ++time) // the second list replaces the first
                set_items(*w, {"one", "two"});
            expect_mirrored();
            set_item_tips(*w, {"first", "second"});
            set_list_index(*w, 1);
        } else if (w->kind == Kind::progress_bar) {
            set_value_and_run_handler(*w, 35);
        } else {
            continue;
        }
        expect_mirrored();
        if (w->kind != Kind::combo_box) set_range(*w, 30, 60);
    }
}

TEST_P(EveryWindow, LoadingAgainRestoresTheDesign) {
    for (Widget* w : window.controls)
        set_text(*w, "changed");
    unload(window);
    open(window);
    for (const Widget* w : window.controls)
        EXPECT_EQ(w->look.text, w->design.text) << full_name(*w);
    expect_mirrored();
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, EveryWindow, ::testing::ValuesIn(all_windows()),
                         [](const auto& of) { return of.param->name; });

} // namespace
} // namespace zol::view
