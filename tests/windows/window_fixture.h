// The fixture of all tests of real windows: the real screen and clock, and mouse and keyboard
// input. After each test it compares all windows with the program's data and unloads them.
#pragma once

#include "view/operator.h"
#include "view/qt/mirror.h"
#include "view/qt/qt_platform.h"
#include "view/qt/qt_screen.h"
#include "view/timers.h"
#include "view/view.h"

#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace zol::view {

// A window with a control of each kind, for behaviour that the program's own windows do not have.
namespace test_window {
extern Widget Sample;
extern Widget mnu_tools, mnu_more, mnu_act, mnu_line, mnu_mark, mnu_top;
extern Widget Label1, Command1, Option_a, Option_b, Check1, Text1, Text2, Text_notes, Combo1;
extern Widget Frame1, Inside, Slider_flat, Slider_tall, Slider_eager, ProgressBar1, Lamp;
extern Widget Picture1, Movie;
extern WidgetArray Lamps;
extern Timer Timer1, Timer2, Timer3;

extern Widget Dialog, Dialog_ok, Dialog_text;
extern Timer Timer_dialog;
} // namespace test_window

class WindowFixture : public ::testing::Test {
  protected:
    WindowFixture();
    ~WindowFixture() override;
    void TearDown() override;
    // Every window shows what its data has.
    void expect_mirrored();

    // The windows of the program, without those of test_window.
    static std::vector<Widget*> program_windows();
    // Handles all posted calls and all events in Qt's queue, without waiting.
    static void settle();
    static void run_for(int ms);
    // Pumps until `done`; fails after `seconds`.
    static void run_until(const std::function<bool()>& done, int seconds = 20);

    // Loads and shows the window, and waits until it is active.
    void open(Widget& window);
    QWidget& top(Widget& window) const;
    template <typename T = QWidget>
    T& face(Widget& widget) const {
        T* found = qobject_cast<T*>(found_face(widget));
        if (!found) throw std::runtime_error("no such face: " + full_name(widget));
        return *found;
    }
    QAction& action(Widget& menu_item) const;

    static void click(QWidget& face);
    static void press(QWidget& face, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    static void type(QWidget& face, const QString& text);
    // Presses the mouse button on the handle and moves it to the position of `value`.
    static void start_drag(QWidget& slider, int value);
    static void drag_on(QWidget& slider, int value);
    static void end_drag(QWidget& slider);

    // Calls `how` for the box of this name as soon as it is visible.
    template <typename Box>
    void answer(const QString& name, const std::function<void(Box&)>& how) {
        poll_for_box([name, how] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* box = qobject_cast<Box*>(w);
                    box && box->isVisible() && box->objectName() == name) {
                    how(*box);
                    return true;
                }
            return false;
        });
    }

    qt::QtPlatform platform;
    qt::QtScreen screen;

  private:
    static void drop_handlers();
    QWidget* found_face(Widget& widget) const;
    void poll_for_box(const std::function<bool()>& act);
};

} // namespace zol::view
