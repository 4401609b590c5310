// A window receives each key before its focused control, and no keys of other windows.
#include "tests/windows/window_fixture.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <QWheelEvent>

namespace zol::view {
namespace {

using namespace test_window;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class Keys : public WindowFixture {
  protected:
    Keys() {
        open(Sample);
        Sample.on.key = [this](int code, int shift) { seen.emplace_back(code, shift); };
    }
    std::vector<std::pair<int, int>> seen;
};

TEST_F(Keys, KeyCodesIncludeTheShiftState) {
    set_focus(Text1);
    QWidget& field = face(Text1);
    for (auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_PageUp, Qt::Key_PageDown,
                     Qt::Key_End, Qt::Key_Home, Qt::Key_Left, Qt::Key_Up, Qt::Key_Right,
                     Qt::Key_Down, Qt::Key_A, Qt::Key_Z, Qt::Key_Escape})
        press(field, key);
    EXPECT_THAT(seen, ElementsAre(Pair(13, 0), Pair(13, 0), Pair(32, 0), Pair(33, 0), Pair(34, 0),
                                  Pair(35, 0), Pair(36, 0), Pair(37, 0), Pair(38, 0), Pair(39, 0),
                                  Pair(40, 0), Pair(65, 0), Pair(90, 0), Pair(27, 0)));
    seen.clear();
    press(field, Qt::Key_F, Qt::ControlModifier);
    press(field, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    press(field, Qt::Key_T, Qt::AltModifier);
    press(field, Qt::Key_Left, Qt::KeypadModifier);
    EXPECT_THAT(seen, ElementsAre(Pair(70, 2), Pair(71, 3), Pair(84, 4), Pair(37, 0)));
}

TEST_F(Keys, WindowReceivesAKeyBeforeItsField) {
    set_focus(Text1);
    std::string text_when_seen = "unseen", text_at_field = "unseen";
    Sample.on.key = [&](int, int) { text_when_seen = text(Text1); };
    Text1.on.key = [&](int code, int) {
        if (code == 13) text_at_field = text(Text1);
    };
    type(face(Text1), "7");
    EXPECT_EQ(text_when_seen, "");
    EXPECT_EQ(text(Text1), "7");
    press(face(Text1), Qt::Key_Return);
    EXPECT_EQ(text_at_field, "7");
}

TEST_F(Keys, KeyFollowsAFocusChangeByTheWindow) {
    set_focus(Slider_flat);
    Sample.on.key = [](int, int) { set_focus(Text1); };
    press(face(Slider_flat), Qt::Key_Right);
    EXPECT_EQ(value(Slider_flat), 50) << "the key went to the focused field";
    EXPECT_TRUE(face(Text1).hasFocus());
}

TEST_F(Keys, SliderStepsAfterTheWindowsKeyHandler) {
    set_focus(Slider_flat);
    double value_when_seen = -1;
    std::vector<double> changes;
    Sample.on.key = [&](int, int) { value_when_seen = value(Slider_flat); };
    Slider_flat.on.change = [&] { changes.push_back(value(Slider_flat)); };
    press(face(Slider_flat), Qt::Key_Right);
    EXPECT_EQ(value_when_seen, 50);
    press(face(Slider_flat), Qt::Key_PageDown);
    press(face(Slider_flat), Qt::Key_End);
    EXPECT_THAT(changes, ElementsAre(51, 31, 100));
}

TEST_F(Keys, DownRaisesAVerticalSlider) {
    set_focus(Slider_tall);
    press(face(Slider_tall), Qt::Key_Down);
    EXPECT_EQ(value(Slider_tall), 10);
    press(face(Slider_tall), Qt::Key_Up);
    EXPECT_EQ(value(Slider_tall), 0);
}

TEST_F(Keys, SpaceReachesTheWindowBeforeTheButton) {
    set_focus(Command1);
    std::vector<std::string> order;
    Sample.on.key = [&](int, int) {
        order.push_back("key");
        wait_on(Timer2, 30); // the key is released during the wait
    };
    Command1.on.click = [&] { order.push_back("click"); };
    press(face(Command1), Qt::Key_Space);
    EXPECT_THAT(order, ElementsAre("key", "click"));
    EXPECT_FALSE(face<QPushButton>(Command1).isDown());
}

TEST_F(Keys, HeldKeyRepeats) {
    set_focus(Text1);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Right, {}, "", true);
        QCoreApplication::sendEvent(&face(Text1), &repeat);
    }
    settle();
    EXPECT_EQ(seen.size(), 5U);
}

// With a repeating key and with separate presses.
TEST_F(Keys, FloodOfKeysNestsToTheLimit) {
    for (const bool repeats : {true, false}) {
        int deepest = 0;
        Sample.on.key = [&](int, int) {
            deepest = std::max(deepest, wait_depth() + 1);
            wait_on(Timer2, 20);
        };
        for (int i = 0; i < 300; ++i) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, {}, "", repeats);
            QCoreApplication::sendEvent(&face(Text1), &press);
        }
        run_for(200);
        EXPECT_EQ(deepest, operator_acts::deepest_acts);
    }
}

TEST_F(Keys, FloodOfWheelStepsLeavesTheAcceptedValue) {
    Slider_flat.on.change = [] { wait_on(Timer2, 50); };
    QWidget& slider = face(Slider_flat);
    for (int i = 0; i < 300; ++i)
        post([&slider] {
            const QPointF at = slider.rect().center();
            QWheelEvent notch(at, slider.mapToGlobal(at), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(&slider, &notch);
        });
    run_for(300);
    settle();
    EXPECT_EQ(face<QSlider>(Slider_flat).value(), value(Slider_flat));
}

TEST_F(Keys, DroppedTabKeepsTheFocus) {
    Command1.on.click = [] { wait_on(Timer2, 50); };
    set_focus(Text1);
    for (int i = 0; i < operator_acts::deepest_acts; ++i)
        post([] { operator_acts::click(Command1); });
    post([] { set_focus(Text1); });
    post([this] { press(face(Text1), Qt::Key_Tab); });
    run_for(300);
    EXPECT_EQ(focus(), &Text1);
    EXPECT_TRUE(face(Text1).hasFocus());
}

TEST_F(Keys, KeysInAMessageBoxDoNotReachTheWindow) {
    answer<QMessageBox>("message_box",
                        [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    message_box({.text = "FINE RESET ECU", .title = ""});
    settle();
    EXPECT_THAT(seen, IsEmpty());
}

TEST_F(Keys, TabRunsTheFocusHandlerOfTheNextControl) {
    set_focus(Option_a);
    bool entered = false;
    Option_b.on.got_focus = [&] { entered = true; };
    press(face(Option_a), Qt::Key_Tab);
    EXPECT_TRUE(entered);
    EXPECT_EQ(focus(), &Option_b);
    press(face(Option_b), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), &Option_a);
}

TEST_F(Keys, WindowCanTakeTheFocusFromItsControls) {
    set_focus(Text1);
    set_focus(Sample);
    EXPECT_FALSE(face(Text1).hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    settle();
    EXPECT_THAT(seen, ElementsAre(Pair(37, 0)));
}

TEST_F(Keys, HiddenControlPassesTheFocusToItsWindow) {
    set_focus(Text1);
    set_visible(Text1, false);
    settle();
    EXPECT_EQ(focus(), &Sample);
    EXPECT_TRUE(top(Sample).hasFocus()) << "not the next control";
}

TEST_F(Keys, QueuedLettersKeepTheirOrder) {
    set_focus(Text1);
    QTest::keyClicks(&face(Text1), "ab");
    pump_until(now_us()); // the field has the first letter, the data has none
    QTest::keyClicks(&face(Text1), "c");
    settle();
    EXPECT_EQ(text(Text1), "abc");
    EXPECT_EQ(face<QLineEdit>(Text1).text(), "abc");
}

TEST_F(Keys, TenThousandTypedLettersArriveInOrder) {
    set_focus(Text1);
    auto& field = face<QLineEdit>(Text1);
    field.setMaxLength(20'000);
    QString typed;
    for (int i = 0; i < 10'000; ++i)
        typed += QChar('a' + i % 26);
    QTest::keyClicks(&field, typed);
    run_until([&] { return text(Text1).size() == 10'000; }, 100);
    EXPECT_TRUE(text(Text1) == typed.toStdString());
    EXPECT_TRUE(field.text() == typed);
    EXPECT_EQ(seen.size(), 10'000U);
}

TEST_F(Keys, DisabledWindowRejectsTypedText) {
    set_focus(Text1);
    set_enabled(Sample, false);
    QTest::keyClicks(&face(Text1), "123");
    settle();
    EXPECT_EQ(text(Text1), "");
    EXPECT_THAT(seen, IsEmpty());
}

} // namespace
} // namespace zol::view
