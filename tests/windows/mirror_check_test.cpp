// The mirror check finds each kind of difference between the screen and the data. Each case changes
// only the toolkit's side, and the check must name the difference.
#include "tests/support/mirror_check.h"
#include "tests/windows/window_fixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>

namespace zol::view {
namespace {

using namespace test_window;
using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using tests::mirror_differences;

class MirrorCheck : public WindowFixture {
  public:
    MirrorCheck() {
        open(Sample);
        for (Widget* w : {&Label1, &Text1, &Option_a})
            set_back(*w, yellow), set_fore(*w, rgb(1, 2, 3));
        set_pointer(Frame1, Pointer::custom);
        set_tip(Slider_flat, "199");
        set_help(mnu_act, {"", "Acts at once"});
        set_checked(mnu_mark, true);
        set_enabled(mnu_more, false);
        set_visible(mnu_top, false);
        set_items(Combo1, {"COM1", "COM2"});
        set_item_tips(Combo1, {"first", "second"});
        set_list_index(Combo1, 1);
        set_text(Text_notes, "one\ntwo");
        set_selection_length(Slider_flat, 12);
        set_value_and_run_handler(ProgressBar1, 40);
        select_and_run_handler(Option_a);
        set_focus(Text1);
        settle();
    }
    ~MirrorCheck() override { unload(Sample); }

    QWidget& window() const { return top(Sample); }
    template <typename T = QWidget>
    T& on_screen(Widget& widget) const {
        return face<T>(widget);
    }
    QAction& entry(Widget& menu) const { return action(menu); }

    void TearDown() override {} // the differences stay until the window is unloaded
};

void set_colour(QWidget& face, QPalette::ColorGroup group, QPalette::ColorRole role) {
    QPalette palette = face.palette();
    palette.setColor(group, role, Qt::blue);
    face.setPalette(palette);
}

TEST_F(MirrorCheck, FindsNoDifferenceWhereThereIsNone) {
    EXPECT_THAT(mirror_differences(), IsEmpty());
}

TEST_F(MirrorCheck, FindsNoDifferenceInAHiddenWindow) {
    load(Dialog);
    set_visible(Frame1, false);
    set_enabled(Sample, false);
    settle();
    EXPECT_THAT(mirror_differences(), IsEmpty());
    hide(Sample);
    settle();
    EXPECT_THAT(mirror_differences(), IsEmpty());
}

TEST_F(MirrorCheck, FindsNoDifferenceWhileABoxIsOpen) {
    answer<QDialog>("message_box", [](QDialog& box) {
        EXPECT_THAT(mirror_differences(), IsEmpty());
        box.accept();
    });
    message_box({.text = "first me", .title = ""});
}

TEST_F(MirrorCheck, ComparesTheVisibleTextOfATip) {
    set_tip(Slider_flat, "1 < 2 & so on");
    face(Slider_flat).setToolTip("<qt>1 &lt; 2 &amp; so<br>on</qt>");
    EXPECT_THAT(mirror_differences(), IsEmpty());
}

TEST_F(MirrorCheck, FindsAWindowThatTheDataDoesNotHave) {
    QWidget stray, left_over;
    stray.setObjectName("Stray");
    left_over.setObjectName("Dialog"); // of a window that is not loaded
    stray.show();
    EXPECT_THAT(mirror_differences(),
                ::testing::UnorderedElementsAre(StartsWith("Stray: a window on the screen"),
                                                StartsWith("Dialog: a window on the screen")));
}

TEST_F(MirrorCheck, FindsAWindowThatIsMissing) {
    top(Sample).setObjectName("");
    EXPECT_THAT(mirror_differences(), Contains("Sample: is not on the screen"));
    top(Sample).setObjectName("Sample");
}

struct Change {
    const char* name;
    std::function<void(const MirrorCheck&)> make; // on the toolkit's side
    const char* difference;
};

class MirrorCheckNames : public MirrorCheck, public ::testing::WithParamInterface<Change> {};

TEST_P(MirrorCheckNames, EachDifference) {
    GetParam().make(*this);
    EXPECT_THAT(mirror_differences(), Contains(std::string(GetParam().difference)));
}

using Case = const MirrorCheck&;

const Change texts[] = {
    {"label", [](Case c) { c.on_screen<QLabel>(Label1).setText("849"); },
     R"(Sample.Label1: text is "849" on the screen, "850" in the data)"},
    {"markup", [](Case c) { c.on_screen<QLabel>(Label1).setTextFormat(Qt::AutoText); },
     "Sample.Label1: plain text is no on the screen, yes in the data"},
    {"button", [](Case c) { c.on_screen<QAbstractButton>(Command1).setText("STOP"); },
     R"(Sample.Command1: text is "STOP" on the screen, "START" in the data)"},
    {"option", [](Case c) { c.on_screen<QAbstractButton>(Option_a).setText(""); },
     R"(Sample.Option_a: text is "" on the screen, "A" in the data)"},
    {"check_box", [](Case c) { c.on_screen<QAbstractButton>(Check1).setText("M"); },
     R"(Sample.Check1: text is "M" on the screen, "MANUAL" in the data)"},
    {"frame", [](Case c) { c.on_screen<QGroupBox>(Frame1).setTitle("G"); },
     R"(Sample.Frame1: text is "G" on the screen, "GROUP" in the data)"},
    {"field", [](Case c) { c.on_screen<QLineEdit>(Text1).setText("7"); },
     R"(Sample.Text1: text is "7" on the screen, "" in the data)"},
    {"notes", [](Case c) { c.on_screen<QPlainTextEdit>(Text_notes).setPlainText("one"); },
     "Sample.Text_notes: text is \"one\" on the screen, \"one\ntwo\" in the data"},
    {"menu", [](Case c) { c.entry(mnu_more).setText("LESS"); },
     R"(Sample.mnu_more: text is "LESS" on the screen, "MORE" in the data)"},
    {"title", [](Case c) { c.window().setWindowTitle("Other"); },
     R"(Sample: title is "Other" on the screen, "Sample" in the data)"},
    {"tip", [](Case c) { c.on_screen(Slider_flat).setToolTip("200"); },
     R"(Sample.Slider_flat: tip is "200" on the screen, "199" in the data)"},
    {"menu_tip", [](Case c) { c.entry(mnu_act).setToolTip("Acts later"); },
     R"(Sample.mnu_act: tip is "Acts later" on the screen, "Acts at once" in the data)"},
    {"tip_taken_for_markup",
     [](Case c) {
         set_tip(Slider_flat, "a <b>bold</b> act");
         c.on_screen(Slider_flat).setToolTip("a <b>bold</b> act");
     },
     R"(Sample.Slider_flat: tip is "a bold act" on the screen, "a <b>bold</b> act" in the data)"},
};

const Change states[] = {
    {"visible", [](Case c) { c.on_screen(Command1).hide(); },
     "Sample.Command1: visible is no on the screen, yes in the data"},
    {"visible_by_frame", [](Case c) { c.on_screen(Frame1).hide(); },
     "Sample.Inside: visible is no on the screen, yes in the data"},
    {"enabled", [](Case c) { c.on_screen(Command1).setEnabled(false); },
     "Sample.Command1: enabled is no on the screen, yes in the data"},
    {"enabled_by_window", [](Case c) { c.window().setEnabled(false); },
     "Sample.Inside: enabled is no on the screen, yes in the data"},
    {"menu_enabled", [](Case c) { c.entry(mnu_more).menu()->setEnabled(true); },
     "Sample.mnu_more: enabled is yes on the screen, no in the data"},
    {"entry_enabled", [](Case c) { c.entry(mnu_mark).setEnabled(false); },
     "Sample.mnu_mark: enabled is no on the screen, yes in the data"},
    {"entry_visible", [](Case c) { c.entry(mnu_top).setVisible(true); },
     "Sample.mnu_top: visible is yes on the screen, no in the data"},
    {"checked", [](Case c) { c.entry(mnu_mark).setChecked(false); },
     "Sample.mnu_mark: checked is no on the screen, yes in the data"},
    {"checkable", [](Case c) { c.entry(mnu_act).setCheckable(true); },
     "Sample.mnu_act: checkable is yes on the screen, no in the data"},
    {"focus", [](Case c) { c.on_screen(Text2).setFocus(); },
     R"(Sample: focus is "Text2" on the screen, "Text1" in the data)"},
    {"tab_stop", [](Case c) { c.on_screen(Command1).setFocusPolicy(Qt::ClickFocus); },
     "Sample.Command1: tab stop is no on the screen, yes in the data"},
    {"edit_marker", [](Case c) { c.on_screen(Text1).setProperty("edit_marker", true); },
     "Sample.Text1: edit marker is yes on the screen, no in the data"},
    {"minimised", [](Case c) { c.window().showMinimized(); },
     R"(Sample: state is "minimised" on the screen, "normal" in the data)"},
    {"maximised", [](Case c) { c.window().showMaximized(); },
     R"(Sample: state is "maximised" on the screen, "normal" in the data)"},
    {"shown", [](Case c) { c.window().hide(); },
     "Sample: shown is no on the screen, yes in the data"},
    {"gone", [](Case c) { c.on_screen(Command1).setObjectName(""); },
     "Sample.Command1: is 0 times on the screen"},
    {"doubled", [](Case c) { c.on_screen(Text2).setObjectName("Text1"); },
     "Sample.Text1: is 2 times on the screen"},
};

const Change colours[] = {
    {"background",
     [](Case c) { set_colour(c.on_screen(Label1), QPalette::Active, QPalette::Window); },
     "Sample.Label1: background is #0000ff on the screen, #ffff00 in the data"},
    {"background_while_off",
     [](Case c) { set_colour(c.on_screen(Text1), QPalette::Disabled, QPalette::Base); },
     "Sample.Text1: background while off is #0000ff on the screen, #ffff00 in the data"},
    {"foreground",
     [](Case c) { set_colour(c.on_screen(Text1), QPalette::Inactive, QPalette::Text); },
     "Sample.Text1: foreground is #0000ff on the screen, #010203 in the data"},
    {"inherited_background",
     [](Case c) { set_colour(c.on_screen(Check1), QPalette::Active, QPalette::Window); },
     "Sample.Check1: background is #0000ff on the screen, #c8d2dc in the data"},
    {"window", [](Case c) { set_colour(c.window(), QPalette::Active, QPalette::Window); },
     "Sample: background is #0000ff on the screen, #c8d2dc in the data"},
    {"unfilled", [](Case c) { c.on_screen(Option_a).setAutoFillBackground(false); },
     "Sample.Option_a: background drawn is no on the screen, yes in the data"},
    {"role", [](Case c) { c.on_screen(Label1).setForegroundRole(QPalette::Link); },
     "Sample.Label1: role of the foreground is 14 on the screen, 0 in the data"},
    {"pointer", [](Case c) { c.on_screen(Command1).setCursor(Qt::WaitCursor); },
     "Sample.Command1: pointer is 3 on the screen, 0 in the data"},
    {"pointer_by_frame", [](Case c) { c.on_screen(Frame1).unsetCursor(); },
     "Sample.Inside: pointer is 0 on the screen, 13 in the data"},
};

const Change values[] = {
    {"slider", [](Case c) { c.on_screen<QSlider>(Slider_flat).setValue(51); },
     "Sample.Slider_flat: value is 51 on the screen, 50 in the data"},
    {"handle",
     [](Case c) {
         c.on_screen<QSlider>(Slider_flat).setTracking(false);
         c.on_screen<QSlider>(Slider_flat).setSliderDown(true);
         c.on_screen<QSlider>(Slider_flat).setSliderPosition(60);
     },
     "Sample.Slider_flat: handle is 60 on the screen, 50 in the data"},
    {"minimum", [](Case c) { c.on_screen<QSlider>(Slider_flat).setMinimum(1); },
     "Sample.Slider_flat: least value is 1 on the screen, 0 in the data"},
    {"maximum", [](Case c) { c.on_screen<QSlider>(Slider_flat).setMaximum(99); },
     "Sample.Slider_flat: greatest value is 99 on the screen, 100 in the data"},
    {"small_step", [](Case c) { c.on_screen<QSlider>(Slider_flat).setSingleStep(2); },
     "Sample.Slider_flat: small step is 2 on the screen, 1 in the data"},
    {"large_step", [](Case c) { c.on_screen<QSlider>(Slider_flat).setPageStep(2); },
     "Sample.Slider_flat: large step is 2 on the screen, 20 in the data"},
    {"tick_distance", [](Case c) { c.on_screen<QSlider>(Slider_tall).setTickInterval(2); },
     "Sample.Slider_tall: distance of ticks is 2 on the screen, 10 in the data"},
    {"ticks", [](Case c) { c.on_screen<QSlider>(Slider_tall).setTickPosition(QSlider::NoTicks); },
     "Sample.Slider_tall: ticks is no on the screen, yes in the data"},
    {"upright", [](Case c) { c.on_screen<QSlider>(Slider_tall).setOrientation(Qt::Horizontal); },
     "Sample.Slider_tall: upright is no on the screen, yes in the data"},
    {"stretch", [](Case c) { c.on_screen(Slider_flat).setProperty("marked_stretch", 13); },
     "Sample.Slider_flat: marked stretch is 13 on the screen, 12 in the data"},
    {"bar", [](Case c) { c.on_screen<QProgressBar>(ProgressBar1).setValue(41); },
     "Sample.ProgressBar1: value is 41 on the screen, 40 in the data"},
    {"bar_range", [](Case c) { c.on_screen<QProgressBar>(ProgressBar1).setMaximum(90); },
     "Sample.ProgressBar1: greatest value is 90 on the screen, 100 in the data"},
    {"option", [](Case c) { c.on_screen<QAbstractButton>(Option_a).setChecked(false); },
     "Sample.Option_a: selected is no on the screen, yes in the data"},
    {"check_box",
     [](Case c) {
         c.on_screen<QAbstractButton>(Check1).setCheckable(true);
         c.on_screen<QAbstractButton>(Check1).setChecked(true);
     },
     "Sample.Check1: selected is yes on the screen, no in the data"},
    {"selection", [](Case c) { c.on_screen<QComboBox>(Combo1).setCurrentIndex(0); },
     "Sample.Combo1: selected item is 0 on the screen, 1 in the data"},
    {"item", [](Case c) { c.on_screen<QComboBox>(Combo1).setItemText(0, "COM9"); },
     R"(Sample.Combo1: item 0 is "COM9" on the screen, "COM1" in the data)"},
    {"item_tip",
     [](Case c) { c.on_screen<QComboBox>(Combo1).setItemData(1, "third", Qt::ToolTipRole); },
     R"(Sample.Combo1: tip of item 1 is "third" on the screen, "second" in the data)"},
    {"items", [](Case c) { c.on_screen<QComboBox>(Combo1).addItem("COM3"); },
     "Sample.Combo1: number of items is 3 on the screen, 2 in the data"},
};

std::string name_of(const ::testing::TestParamInfo<Change>& of) { return of.param.name; }

INSTANTIATE_TEST_SUITE_P(Texts, MirrorCheckNames, ::testing::ValuesIn(texts), name_of);
INSTANTIATE_TEST_SUITE_P(States, MirrorCheckNames, ::testing::ValuesIn(states), name_of);
INSTANTIATE_TEST_SUITE_P(Colours, MirrorCheckNames, ::testing::ValuesIn(colours), name_of);
INSTANTIATE_TEST_SUITE_P(Values, MirrorCheckNames, ::testing::ValuesIn(values), name_of);

} // namespace
} // namespace zol::view
