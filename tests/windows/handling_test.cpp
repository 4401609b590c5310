// The real windows by keyboard, and their accessible names and descriptions.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "tests/windows/window_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form_power.h"
#include "view/windows/frm_splash.h"

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QMenu>

#include <algorithm>

#include <set>

namespace zol::view {
namespace {

class SevenWindows : public WindowFixture {
  protected:
    SevenWindows() { app::use_application_folder(ZOL_SOURCE_DIR); }

    static void set_language(const char* language) {
        app::state.current_language = language;
        app::apply_helper_texts();
    }
    static std::string accessible(QWidget& face, QAccessible::Text what) {
        return QAccessible::queryAccessibleInterface(&face)->text(what).toStdString();
    }
};

TEST_F(SevenWindows, EachControlIsDescribedInEachLanguage) {
    for (Widget* window : program_windows()) {
        open(*window);
        for (const char* language : {"it", "uk", "pl", "de", "fr"}) {
            set_language(language);
            for (Widget* w : window->controls) {
                const std::string where = std::string(language) + " " + full_name(*w);
                const std::string name = accessible(face(*w), QAccessible::Name);
                EXPECT_NE(name, "") << where;
                EXPECT_NE(name, full_name(*w)) << where << " has only its name in the code";
                if (w->kind == Kind::movie) continue; // it only has a name
                EXPECT_NE(accessible(face(*w), QAccessible::Description), "") << where;
                EXPECT_NE(face(*w).toolTip(), "") << where;
            }
            for (Widget* entry : window->menus) {
                if (entry->kind == Kind::separator) continue;
                EXPECT_EQ(action(*entry).toolTip().simplified().toStdString(),
                          QString::fromStdString(entry->help.text).simplified().toStdString())
                    << language << " " << entry->name;
                EXPECT_NE(action(*entry).toolTip(), "") << language << " " << entry->name;
            }
        }
        unload(*window);
    }
}

TEST_F(SevenWindows, AccessibleNameOfAValueHasItsUnit) {
    open(form1::Form1);
    set_language("uk");
    set_text(form1::Label_rpm, "850");
    EXPECT_EQ(accessible(face(form1::Label_rpm), QAccessible::Name), "Engine speed, rpm: 850");
    EXPECT_EQ(accessible(face(form1::lbl_rpm), QAccessible::Name), "RPM");
    EXPECT_EQ(accessible(face(form1::Slider_attenuazione), QAccessible::Name),
              "Attenuation, tenths");
    EXPECT_EQ(accessible(face(form1::Command_piu), QAccessible::Name), "Trace larger");
    EXPECT_EQ(accessible(face(form1::Command_exit), QAccessible::Name), "EXIT");
}

TEST_F(SevenWindows, OwnTipDoesNotReplaceTheDescription) {
    open(form1::Form1);
    set_language("uk");
    EXPECT_EQ(face(form1::Slider_ktar).toolTip(), "199");
    EXPECT_EQ(accessible(face(form1::Slider_ktar), QAccessible::Description),
              form1::Slider_ktar.help.text);
}

TEST_F(SevenWindows, ScreenReaderCanSelectAnOption) {
    form_power::Option_15.on.click = [] {};
    open(form_power::Form_power);
    QAccessibleInterface* option =
        QAccessible::queryAccessibleInterface(&face(form_power::Option_15));
    EXPECT_EQ(option->role(), QAccessible::RadioButton);
    EXPECT_FALSE(option->state().checked);
    option->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_TRUE(selected(form_power::Option_15));
    EXPECT_TRUE(option->state().checked);
    QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&face(form_power::cmd_ok));
    EXPECT_EQ(box->role(), QAccessible::PushButton);
}

TEST_F(SevenWindows, ScreenReaderCanOpenAList) {
    open(centralina_attiva::Centralina_Attiva);
    set_language("uk");
    Widget& ports = centralina_attiva::Combo1;
    set_items(ports, {"COM1", "COM2"});
    EXPECT_EQ(accessible(face(ports), QAccessible::Name), "Serial port");
    set_list_index(ports, 1);
    EXPECT_EQ(accessible(face(ports), QAccessible::Name), "Serial port: COM2");
    EXPECT_EQ(accessible(face(ports), QAccessible::Value), "COM2");
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&face(ports));
    EXPECT_EQ(list->role(), QAccessible::ComboBox);
    ASSERT_EQ(list->childCount(), 1);
    EXPECT_EQ(list->child(0)->childCount(), 2);
    EXPECT_EQ(list->indexOfChild(list->child(0)), 0);
    EXPECT_TRUE(list->state().collapsed);
    list->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    settle();
    EXPECT_TRUE(list->state().expanded);
    list->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    settle();
    EXPECT_TRUE(list->state().collapsed);
}

TEST_F(SevenWindows, EachWindowHasTheWindowRole) {
    for (Widget* window : program_windows()) {
        open(*window);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&top(*window))->role(), QAccessible::Window)
            << window->name;
        unload(*window);
    }
}

TEST_F(SevenWindows, MenuListHasTheNameOfItsMenu) {
    open(form1::Form1);
    EXPECT_EQ(accessible(*action(form1::mnu_Lingua).menu(), QAccessible::Name), "LINGUA");
    set_text(form1::mnu_Lingua, "LANGUAGE");
    EXPECT_EQ(accessible(*action(form1::mnu_Lingua).menu(), QAccessible::Name), "LANGUAGE");
}

TEST_F(SevenWindows, LongTipIsBrokenIntoLines) {
    open(form1::Form1);
    set_language("de");
    for (Widget* w : form1::Form1.controls)
        for (const QString& line : face(*w).toolTip().split('\n'))
            EXPECT_LE(line.size(), 60) << full_name(*w);
}

TEST_F(SevenWindows, ListEntriesHaveTheirOwnTips) {
    open(centralina_attiva::Centralina_Attiva);
    set_items(centralina_attiva::Combo1, {"COM1", "COM2"});
    set_item_tips(centralina_attiva::Combo1, {"COM1: /dev/ttyUSB0", "COM2: /dev/ttyUSB1"});
    const auto& list = face<QComboBox>(centralina_attiva::Combo1);
    EXPECT_EQ(list.itemData(1, Qt::ToolTipRole).toString(), "COM2: /dev/ttyUSB1");
}

// The order of the controls that the Tab key reaches, once round from the window.
class TabKey : public SevenWindows {
  protected:
    static const Widget& child_under(const Widget& frame, const Widget& w) {
        const Widget* child = &w;
        while (child->parent != &frame)
            child = child->parent;
        return *child;
    }

    // In reading order of one frame, the second control may follow the first: it is neither above
    // the first nor to its left on the same line.
    static bool reads_on(const Widget& a, const Widget& b) {
        const Place &first = a.design.place, &second = b.design.place;
        const bool above = second.top + second.height <= first.top;
        const bool below = first.top + first.height <= second.top;
        const bool to_the_left = second.left + second.width <= first.left;
        return !above && (below || !to_the_left);
    }

    std::vector<Widget*> way_through(Widget& window) {
        set_focus(window);
        settle();
        std::vector<Widget*> way;
        for (std::size_t step = 0; step <= window.controls.size(); ++step) {
            QWidget* at = top(window).focusWidget();
            press(at ? *at : top(window), Qt::Key_Tab);
            Widget* reached =
                find_widget(window, top(window).focusWidget()->objectName().toStdString());
            if (!way.empty() && reached == way.front()) break;
            way.push_back(reached);
        }
        // The order is a ring. Begin after its last control.
        const auto comes_round = [&](Widget* a, Widget* b) {
            return !reads_on(child_under(window, *a), child_under(window, *b));
        };
        const auto last = std::adjacent_find(way.begin(), way.end(), comes_round);
        if (last != way.end()) std::rotate(way.begin(), last + 1, way.end());
        return way;
    }

    static bool is_stop(const Widget& w) {
        return w.look.tab_stop && reachable(w) && w.look.enabled &&
               (w.kind == Kind::command_button || w.kind == Kind::option_button ||
                w.kind == Kind::check_box || w.kind == Kind::text_box ||
                w.kind == Kind::combo_box || w.kind == Kind::slider || w.on.click ||
                w.on.double_click);
    }

    static bool lies_in(const Widget& w, const Widget& frame) {
        for (const Widget* it = w.parent; it; it = it->parent)
            if (it == &frame) return true;
        return false;
    }

    void expect_reading_order(Widget& window) {
        const std::vector<Widget*> way = way_through(window);
        std::set<Widget*> reached(way.begin(), way.end()), stops;
        for (Widget* w : window.controls)
            if (is_stop(*w)) stops.insert(w);
        EXPECT_EQ(way.size(), reached.size()) << "a control is reached twice";
        for (Widget* w : stops)
            EXPECT_TRUE(reached.contains(w)) << full_name(*w) << " is not reached";
        for (std::size_t i = 1; i < way.size(); ++i) {
            const Widget* frame = way[i - 1]->parent;
            while (!lies_in(*way[i], *frame))
                frame = frame->parent;
            EXPECT_TRUE(reads_on(child_under(*frame, *way[i - 1]), child_under(*frame, *way[i])))
                << full_name(*way[i]) << " follows " << full_name(*way[i - 1]);
        }
    }

    static void answer_to_clicks() {
        for (Widget* label : {&form1::lbl_par_1, &form1::lbl_par_2, &form1::lbl_par_3,
                              &form1::lbl_par_4, &form1::lbl_par_5, &form1::lbl_par_6})
            label->on.click = [] {};
        form1::Label12.on.double_click = form1::Label18.on.double_click = [] {};
    }
};

TEST_F(TabKey, ReachesEachControlOfAPanelInReadingOrder) {
    answer_to_clicks();
    const std::vector<Widget*> panels = {&form1::frame_engine, &form1::Frame_impostazioni,
                                         &form1::Frame_Lambda, &form1::Frame_diagnosi};
    open(form1::Form1);
    for (Widget* shown : panels) {
        for (Widget* panel : panels)
            set_visible(*panel, panel == shown);
        for (Widget* w : {&form1::Frame2, &form1::Command1, &form1::Command2,
                          &form1::Command_hyperterminal, &form1::Command_scarico})
            set_visible(*w, true);
        SCOPED_TRACE(shown->name);
        expect_reading_order(form1::Form1);
    }
}

TEST_F(TabKey, ReachesEachControlOfAWindowInReadingOrder) {
    for (Widget* window : program_windows()) {
        if (window == &form1::Form1 || window == &frm_splash::frmSplash) continue;
        open(*window);
        if (window == &centralina_attiva::Centralina_Attiva)
            set_enabled(centralina_attiva::Command_ok, true);
        SCOPED_TRACE(window->name);
        expect_reading_order(*window);
        unload(*window);
    }
}

TEST_F(TabKey, ContinuesFromTheLastControlUsed) {
    open(form1::Form1);
    press(top(form1::Form1), Qt::Key_Tab);
    while (focus() != &form1::Command_rpm_meno)
        press(face(const_cast<Widget&>(*focus())), Qt::Key_Tab);
    set_focus(form1::Text2);
    press(face(form1::Text2), Qt::Key_Tab);
    EXPECT_EQ(focus(), &form1::Command_rpm_piu);
    set_focus(form1::Form1);
    press(top(form1::Form1), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), &form1::Command_rpm_piu) << "Shift+Tab returns to it";
    set_focus(form1::cmd_focus);
    set_visible(form1::frame_engine, false);
    press(face(form1::cmd_focus), Qt::Key_Tab);
    EXPECT_TRUE(reachable(*focus())) << "hidden controls are skipped";
    EXPECT_NE(focus(), &form1::cmd_focus);
}

} // namespace
} // namespace zol::view
