// Mouse input reaches the handlers.
#include "tests/windows/window_fixture.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>

namespace zol::view {
namespace {

using namespace test_window;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Mouse : public WindowFixture {
  protected:
    Mouse() { open(Sample); }

    void note(Widget& w) {
        const std::string name = full_name(w);
        w.on.click = [this, name] { acts.push_back(name); };
        w.on.double_click = [this, name] { acts.push_back(name + " twice"); };
        w.on.scroll = [this, name, &w] {
            acts.push_back(name + " over " + std::to_string(qRound(w.look.value)));
        };
        w.on.change = [this, name, &w] {
            acts.push_back(name + " at " + std::to_string(qRound(w.look.value)));
        };
    }
    std::vector<std::string> acts;
};

TEST_F(Mouse, ClickRunsAButtonsHandlerOnce) {
    note(Command1);
    click(face(Command1));
    EXPECT_THAT(acts, ElementsAre("Command1"));
    EXPECT_EQ(focus(), &Command1);
    EXPECT_TRUE(face(Command1).hasFocus());
}

TEST_F(Mouse, DisabledOrHiddenControlIgnoresClicks) {
    note(Command1);
    set_enabled(Command1, false);
    click(face(Command1));
    set_enabled(Command1, true);
    set_enabled(Sample, false);
    click(face(Command1));
    set_enabled(Sample, true);
    QTest::mouseClick(&face(Command1), Qt::LeftButton);
    set_visible(Command1, false); // before the click is handled
    settle();
    EXPECT_THAT(acts, IsEmpty());
}

// The toolkit shows the change first, then the program rejects it.
TEST_F(Mouse, RejectedSliderStepIsTakenBack) {
    face<QSlider>(Slider_flat).triggerAction(QSlider::SliderPageStepAdd);
    EXPECT_NE(face<QSlider>(Slider_flat).value(), 50);
    set_enabled(Slider_flat, false);
    settle();
    EXPECT_EQ(face<QSlider>(Slider_flat).value(), 50);
}

TEST_F(Mouse, RejectedLetterIsTakenBack) {
    set_focus(Text1);
    Sample.on.key = [](int, int) { post([] { set_enabled(Text1, false); }); };
    press(face(Text1), Qt::Key_7);
    EXPECT_EQ(face<QLineEdit>(Text1).text(), "");
}

TEST_F(Mouse, DoubleClickOnALabelFollowsOneClick) {
    note(Label1);
    QTest::mouseClick(&face(Label1), Qt::LeftButton);
    QTest::mouseDClick(&face(Label1), Qt::LeftButton);
    settle();
    EXPECT_THAT(acts, ElementsAre("Label1", "Label1 twice"));
}

TEST_F(Mouse, ReleaseOutsideAButtonIsNoClick) {
    note(Label1);
    note(Command1);
    for (Widget* w : {&Label1, &Command1}) {
        QTest::mousePress(&face(*w), Qt::LeftButton);
        QTest::mouseMove(&face(*w), QPoint(-30, -30));
        QTest::mouseRelease(&face(*w), Qt::LeftButton, {}, QPoint(-30, -30));
    }
    settle();
    EXPECT_THAT(acts, IsEmpty());
}

TEST_F(Mouse, SelectedOptionClearsItsGroup) {
    note(Option_a);
    note(Option_b);
    click(face(Option_a));
    click(face(Option_b));
    EXPECT_THAT(acts, ElementsAre("Option_a", "Option_b"));
    EXPECT_FALSE(face<QRadioButton>(Option_a).isChecked());
    EXPECT_TRUE(face<QRadioButton>(Option_b).isChecked());
}

TEST_F(Mouse, ClickOnASelectedOptionRunsItsHandler) {
    click(face(Option_a));
    note(Option_a);
    click(face(Option_a));
    EXPECT_THAT(acts, ElementsAre("Option_a"));
    EXPECT_TRUE(face<QRadioButton>(Option_a).isChecked());
}

TEST_F(Mouse, HandlerCanClearItsCheckBox) {
    Check1.on.click = [] {
        if (selected(Check1)) select_and_run_handler(Check1, false);
    };
    click(face(Check1));
    EXPECT_FALSE(selected(Check1));
    EXPECT_FALSE(face<QCheckBox>(Check1).isChecked());
}

TEST_F(Mouse, ClickHandlerOfAFieldRunsBeforeTyping) {
    set_text(Text1, "450");
    Text1.on.click = [] {
        set_edit_marker(Text1, true);
        set_back(Text1, light_red);
        set_text(Text1, "");
    };
    QTest::mouseClick(&face(Text1), Qt::LeftButton);
    QTest::keyClicks(&face(Text1), "72"); // before the handler runs
    settle();
    EXPECT_EQ(text(Text1), "72");
    EXPECT_EQ(face<QLineEdit>(Text1).text(), "72");
    EXPECT_TRUE(face(Text1).property("edit_marker").toBool());
}

TEST_F(Mouse, ChoosingTheSelectedItemRunsTheHandler) {
    set_items(Combo1, {"A", "B", "C"});
    note(Combo1);
    auto& combo = face<QComboBox>(Combo1);
    for (int i = 0; i < 2; ++i) {
        combo.setFocus();
        combo.setCurrentIndex(2);
        Q_EMIT combo.activated(2);
        settle();
    }
    EXPECT_THAT(acts, ElementsAre("Combo1", "Combo1"));
    EXPECT_EQ(Combo1.look.list_index, 2);
}

TEST_F(Mouse, MenuItemKeepsItsTickWhenClicked) {
    note(mnu_mark);
    set_checked(mnu_mark, true);
    action(mnu_mark).trigger();
    settle();
    EXPECT_THAT(acts, ElementsAre("mnu_mark"));
    EXPECT_TRUE(action(mnu_mark).isChecked());
}

TEST_F(Mouse, DragRunsTheChangeHandlerOnceAtItsEnd) {
    note(Slider_flat);
    start_drag(face(Slider_flat), 60);
    drag_on(face(Slider_flat), 80);
    EXPECT_THAT(acts, ::testing::Each(::testing::HasSubstr(" over ")));
    EXPECT_EQ(value(Slider_flat), face<QSlider>(Slider_flat).sliderPosition());
    EXPECT_NEAR(value(Slider_flat), 80, 3);
    end_drag(face(Slider_flat));
    const auto at_end = "Slider_flat at " + std::to_string(qRound(value(Slider_flat)));
    ASSERT_GE(acts.size(), 2U);
    EXPECT_EQ(acts[acts.size() - 2], at_end);
    EXPECT_EQ(acts.back(), "Slider_flat") << "the click handler runs last";
    EXPECT_EQ(std::count(acts.begin(), acts.end(), at_end), 1);
}

TEST_F(Mouse, VerticalSliderHasItsLowestValueAtTheTop) {
    auto& slider = face<QSlider>(Slider_tall);
    start_drag(slider, 100);
    QTest::mouseMove(&slider, QPoint(slider.width() / 2, slider.height() - 1));
    settle();
    end_drag(slider);
    EXPECT_EQ(value(Slider_tall), 150);
    start_drag(slider, 100);
    QTest::mouseMove(&slider, QPoint(slider.width() / 2, 0));
    settle();
    end_drag(slider);
    EXPECT_EQ(value(Slider_tall), 0);
}

TEST_F(Mouse, DragBackToItsStartRunsNoChangeHandler) {
    note(Slider_flat);
    start_drag(face(Slider_flat), 70);
    drag_on(face(Slider_flat), 50);
    end_drag(face(Slider_flat));
    if (value(Slider_flat) != 50) GTEST_SKIP() << "no pixel of the groove gives 50";
    EXPECT_THAT(acts, ::testing::Not(::testing::Contains(::testing::HasSubstr(" at "))));
}

// The program may set a value beyond the end of the scale.
TEST_F(Mouse, DragBeyondTheScaleStopsAtItsEnd) {
    auto& slider = face<QSlider>(Slider_flat);
    set_range(Slider_flat, 0, 150);
    place_value(Slider_flat, 150);
    settle();
    start_drag(slider, 140);
    drag_on(slider, 120);
    EXPECT_EQ(slider.maximum(), 150);
    EXPECT_EQ(value(Slider_flat), 100);
    EXPECT_EQ(slider.sliderPosition(), 100);
    end_drag(slider);
    EXPECT_EQ(value(Slider_flat), 100);
    EXPECT_EQ(slider.value(), 100);
}

TEST_F(Mouse, HandlerCanMoveItsSliderBack) {
    Slider_flat.on.change = [] {
        if (value(Slider_flat) > 60) set_value_and_run_handler(Slider_flat, 60);
    };
    start_drag(face(Slider_flat), 90);
    end_drag(face(Slider_flat));
    EXPECT_EQ(value(Slider_flat), 60);
    EXPECT_EQ(face<QSlider>(Slider_flat).value(), 60);
}

TEST_F(Mouse, AssignedValueRunsOnlyTheHandlerOfItsTable) {
    note(Slider_flat);
    note(Slider_eager);
    set_value_and_run_handler(Slider_flat, 70);
    set_value_and_run_handler(Slider_eager, 1300);
    EXPECT_FALSE(set_value_and_run_handler(Slider_flat, 101));
    settle();
    EXPECT_THAT(acts, ElementsAre("Slider_eager at 1300"));
    EXPECT_EQ(face<QSlider>(Slider_flat).value(), 70);
    EXPECT_EQ(face<QSlider>(Slider_eager).value(), 1300);
}

TEST_F(Mouse, ClickBesideTheHandleIsALargeStep) {
    note(Slider_flat);
    auto& slider = face<QSlider>(Slider_flat);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(slider.width() - 8, slider.height() / 2));
    settle();
    EXPECT_EQ(value(Slider_flat), 70);
    EXPECT_THAT(acts, ElementsAre("Slider_flat over 70", "Slider_flat at 70", "Slider_flat"));
}

} // namespace
} // namespace zol::view
