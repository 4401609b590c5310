// What keys do to the focused control.
#include "tests/windows/window_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace zol::view {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeysOnControls : public WindowFixture {
  protected:
    std::vector<std::string> done;
    void note(Widget& w) {
        w.on.click = [this, &w] { done.push_back(full_name(w)); };
    }
};

TEST_F(KeysOnControls, SpaceOrEnterPressesAButton) {
    open(form2::Form2);
    note(form2::cmd_exit);
    set_focus(form2::cmd_exit);
    press(face(form2::cmd_exit), Qt::Key_Space);
    press(face(form2::cmd_exit), Qt::Key_Return);
    EXPECT_THAT(done, ElementsAre("cmd_exit", "cmd_exit"));
}

TEST_F(KeysOnControls, ArrowsSelectOnlyWithinAGroup) {
    open(form3::Form3);
    for (Widget* w : {&form3::opt_norm, &form3::opt_perm, &form3::opt_acc})
        note(*w);
    set_focus(form3::opt_norm);
    press(face(form3::opt_norm), Qt::Key_Down);
    EXPECT_EQ(focus(), &form3::opt_perm);
    press(face(form3::opt_perm), Qt::Key_Right);
    press(face(form3::opt_acc), Qt::Key_Down);
    press(face(form3::opt_acc), Qt::Key_Up);
    set_enabled(form3::opt_norm, false);
    press(face(form3::opt_perm), Qt::Key_Left);
    EXPECT_THAT(done, ElementsAre("opt_perm", "opt_acc", "opt_perm"));
    EXPECT_TRUE(selected(form3::opt_perm));
    EXPECT_EQ(focus(), &form3::opt_perm);
}

TEST_F(KeysOnControls, EnterSelectsOptionsLikeSpace) {
    open(form1::Form1);
    set_visible(form1::frame_engine, false);
    set_visible(form1::Frame_impostazioni, true);
    note(form1::Option_metano);
    note(form1::Check1);
    set_focus(form1::Option_metano);
    press(face(form1::Option_metano), Qt::Key_Return);
    set_focus(form1::Check1);
    press(face(form1::Check1), Qt::Key_Enter);
    press(face(form1::Check1), Qt::Key_Space);
    EXPECT_THAT(done, ElementsAre("Option_metano", "Check1", "Check1"));
    EXPECT_FALSE(selected(form1::Check1));
}

// The main window takes plain arrow keys. With Shift they move the slider.
TEST_F(KeysOnControls, ShiftArrowsMoveASliderOfTheMainWindow) {
    open(form1::Form1);
    form1::Form1.on.key = [](int, int shift) {
        if (shift == 0) set_focus(form1::Text2);
    };
    set_visible(form1::frame_engine, false);
    set_visible(form1::Frame_impostazioni, true);
    Widget& row = form1::Slider1[2];
    set_focus(row);
    press(face(row), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(value(row), 78);
    press(face(row), Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_EQ(value(row), 80);
    press(face(row), Qt::Key_Right);
    EXPECT_EQ(value(row), 80);
    EXPECT_EQ(focus(), &form1::Text2);
}

TEST_F(KeysOnControls, EnterOpensAList) {
    open(centralina_attiva::Centralina_Attiva);
    Widget& list = centralina_attiva::Combo1;
    set_items(list, {"COM1", "COM2"});
    set_list_index(list, 0);
    list.on.opens = [this] { done.push_back("opens"); };
    set_focus(list);
    press(face(list), Qt::Key_Return);
    EXPECT_THAT(done, ElementsAre("opens"));
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    press(popup->focusWidget() ? *popup->focusWidget() : *popup, Qt::Key_Down);
    press(popup->focusWidget() ? *popup->focusWidget() : *popup, Qt::Key_Return);
    EXPECT_EQ(list.look.list_index, 1);
}

TEST_F(KeysOnControls, EnterClicksALabelWithAClickHandler) {
    note(form1::lbl_par_3);
    open(form1::Form1);
    set_visible(form1::frame_engine, false);
    set_visible(form1::Frame_diagnosi, true);
    face(form1::lbl_par_3).setFocus(Qt::TabFocusReason);
    settle();
    EXPECT_EQ(focus(), &form1::lbl_par_3);
    press(face(form1::lbl_par_3), Qt::Key_Return);
    EXPECT_THAT(done, ElementsAre("lbl_par_3"));
    EXPECT_EQ(face(form1::lbl_par_1).focusPolicy(), Qt::NoFocus) << "it has no handler";
}

TEST_F(KeysOnControls, ClickOnALabelKeepsTheFocus) {
    note(form1::lbl_par_3);
    open(form1::Form1);
    set_visible(form1::frame_engine, false);
    set_visible(form1::Frame_diagnosi, true);
    set_focus(form1::Command10);
    click(face(form1::lbl_par_3));
    EXPECT_THAT(done, ElementsAre("lbl_par_3"));
    EXPECT_EQ(focus(), &form1::Command10);
}

TEST_F(KeysOnControls, EnterDoubleClicksALabelWithThatHandler) {
    form1::Label18.on.double_click = [this] { done.push_back("Label18"); };
    open(form1::Form1);
    face(form1::Label18).setFocus(Qt::TabFocusReason);
    press(face(form1::Label18), Qt::Key_Return);
    EXPECT_THAT(done, ElementsAre("Label18"));
}

TEST_F(KeysOnControls, OpeningAMenuRunsItsHandler) {
    form1::mnu_Porta_Seriale.on.opens = [this] { done.push_back("opens"); };
    open(form1::Form1);
    QMenu* menu = action(form1::mnu_Porta_Seriale).menu();
    menu->popup({10, 10});
    settle();
    EXPECT_THAT(done, ElementsAre("opens"));
    EXPECT_TRUE(menu->toolTipsVisible());
    menu->close();
}

TEST_F(KeysOnControls, InTheMenuBarDoNotReachTheWindow) {
    open(form1::Form1);
    std::vector<int> seen;
    form1::Form1.on.key = [&](int code, int) { seen.push_back(code); };
    auto* bar = top(form1::Form1).findChild<QMenuBar*>();
    bar->setFocus(Qt::MenuBarFocusReason);
    press(*bar, Qt::Key_Right);
    press(*bar, Qt::Key_Space);
    EXPECT_THAT(seen, IsEmpty());
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
}

} // namespace
} // namespace zol::view
