#include "tests/windows/window_fixture.h"

#include "tests/support/slider_handle.h"

#include "tests/support/mirror_check.h"
#include "tests/support/program_state.h"

#include <QAction>
#include <QApplication>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTimer>

#include <memory>
#include <stdexcept>

namespace zol::view {

namespace test_window {

namespace {
Design lamp(int index) {
    return control(Kind::shape, "Lamps", Sample, {4000 + 300.0 * index, 4000, 240, 240})
        .colours(green);
}

// Marked as scaled by the logic: the view leaves it the size of its table.
Design sample_window() {
    Design design =
        window("Sample", "Sample", {0, 0, 9000, 8000}).colours(rgb(200, 210, 220), black);
    design.look.tag = "ResizeON";
    return design;
}
} // namespace

Widget Sample{sample_window()};
Widget mnu_tools{menu("mnu_tools", Sample, "   TOOLS & MORE")};
Widget mnu_more{menu("mnu_more", mnu_tools, "MORE")};
Widget mnu_act{menu_item("mnu_act", mnu_more, "ACT")};
Widget mnu_line{separator("mnu_line", mnu_tools)};
Widget mnu_mark{menu_item("mnu_mark", mnu_tools, "MARK")};
Widget mnu_top{menu_item("mnu_top", Sample, "TOP")};
Widget Label1{control(Kind::label, "Label1", Sample, {150, 150, 1500, 300}, "850")};
Widget Command1{control(Kind::command_button, "Command1", Sample, {150, 600, 1500, 450}, "START")};
Widget Option_a{control(Kind::option_button, "Option_a", Sample, {150, 1200, 1500, 300}, "A")};
Widget Option_b{control(Kind::option_button, "Option_b", Sample, {150, 1600, 1500, 300}, "B")};
Widget Check1{control(Kind::check_box, "Check1", Sample, {150, 2000, 1500, 300}, "MANUAL")};
Widget Text1{control(Kind::text_box, "Text1", Sample, {150, 2400, 1500, 360})};
Widget Text2{control(Kind::text_box, "Text2", Sample, {150, 2900, 1500, 360})};
Widget Text_notes{control(Kind::text_box, "Text_notes", Sample, {150, 3400, 1500, 1500})};
Widget Combo1{control(Kind::combo_box, "Combo1", Sample, {2000, 150, 1500, 330})};
Widget Frame1{control(Kind::frame, "Frame1", Sample, {2000, 600, 1800, 1200}, "GROUP")};
Widget Inside{control(Kind::command_button, "Inside", Frame1, {150, 400, 1500, 450}, "IN")};
Widget Slider_flat{control(Kind::slider, "Slider_flat", Sample, {2000, 2000, 3000, 450})
                       .range(0, 100)
                       .starts_at(50)
                       .steps(1, 20)};
Widget Slider_tall{control(Kind::slider, "Slider_tall", Sample, {2000, 2600, 450, 2400})
                       .range(0, 150)
                       .steps(10, 50, 10)
                       .upright()};
Widget Slider_eager{control(Kind::slider, "Slider_eager", Sample, {2600, 2600, 3000, 450})
                        .range(1001, 1800)
                        .starts_at(1200)
                        .runs_change_on_assignment()};
Widget ProgressBar1{control(Kind::progress_bar, "ProgressBar1", Sample, {2600, 3200, 3000, 240})};
Widget Lamp{control(Kind::shape, "Lamp", Sample, {2600, 3600, 300, 300}).colours(red)};
Widget Picture1{
    control(Kind::picture, "Picture1", Sample, {5700, 150, 3000, 1500}).colours(black, white)};
Widget Movie{control(Kind::movie, "Movie", Sample, {5700, 1800, 1500, 1500})};
WidgetArray Lamps(0, 4, 2, lamp);
Timer Timer1(Sample, "Timer1", 20), Timer2(Sample, "Timer2", 0), Timer3(Sample, "Timer3", 30);

Widget Dialog{window("Dialog", "Dialog", {0, 0, 3000, 2400})};
Widget Dialog_ok{control(Kind::command_button, "Dialog_ok", Dialog, {150, 150, 1500, 450}, "OK")};
Widget Dialog_text{control(Kind::text_box, "Dialog_text", Dialog, {150, 750, 1500, 360})};
Timer Timer_dialog(Dialog, "Timer_dialog", 10, true);

} // namespace test_window

WindowFixture::WindowFixture() {
    tests::reset_program_state();
    use_platform(platform);
    use_screen(screen);
    platform.before_idle = [this] { screen.catch_up(); };
    test_window::Timer2.tick = [] { test_window::Timer2.off(); };
}

// Handlers may refer to variables of the test's body, which has ended.
void WindowFixture::drop_handlers() {
    for (Widget* window : all_windows()) {
        for (auto* list : {&window->controls, &window->menus})
            for (Widget* w : *list)
                w->on = {};
        window->on = {};
    }
    for (Timer* timer : all_timers())
        timer->tick = nullptr;
}

void WindowFixture::TearDown() {
    drop_handlers();
    settle();
    expect_mirrored();
}

void WindowFixture::expect_mirrored() {
    screen.catch_up();
    for (const std::string& difference : tests::mirror_differences())
        ADD_FAILURE() << difference;
}

WindowFixture::~WindowFixture() {
    drop_handlers();
    for (Widget* window : all_windows())
        unload(*window);
    settle();
    reset();
    for (const QWidget* left : QApplication::topLevelWidgets())
        ADD_FAILURE() << "a window still exists: " << left->objectName().toStdString();
}

std::vector<Widget*> WindowFixture::program_windows() {
    std::vector<Widget*> windows = all_windows();
    std::erase(windows, &test_window::Sample);
    std::erase(windows, &test_window::Dialog);
    return windows;
}

void WindowFixture::settle() {
    constexpr int rounds = 12; // an event may post a call, whose handler may cause a repaint
    for (int i = 0; i < rounds; ++i)
        pump_until(now_us());
}

void WindowFixture::run_for(int ms) {
    const auto end = now_us() + ms * std::int64_t{1000};
    while (now_us() < end)
        pump_until(end);
}

void WindowFixture::run_until(const std::function<bool()>& done, int seconds) {
    const auto end = now_us() + seconds * std::int64_t{1'000'000};
    while (!done() && now_us() < end)
        pump_until(end);
    EXPECT_TRUE(done()) << "not done in time";
}

void WindowFixture::open(Widget& window) {
    show(window);
    run_until([&] { return top(window).isActiveWindow(); });
    settle();
}

QWidget& WindowFixture::top(Widget& window) const { return screen.face(window)->top(); }

QWidget* WindowFixture::found_face(Widget& widget) const {
    if (widget.kind == Kind::window) return &top(widget);
    const auto name = QString::fromStdString(full_name(widget));
    const auto found = top(*widget.window).findChildren<QWidget*>(name);
    EXPECT_EQ(found.size(), 1) << full_name(widget);
    return found.isEmpty() ? nullptr : found.first();
}

QAction& WindowFixture::action(Widget& menu_item) const {
    const auto name = QString::fromStdString(full_name(menu_item));
    auto* found = top(*menu_item.window).findChild<QAction*>(name);
    if (!found) throw std::runtime_error("no such menu item: " + full_name(menu_item));
    return *found;
}

void WindowFixture::click(QWidget& face) {
    QTest::mouseClick(&face, Qt::LeftButton);
    settle();
}

void WindowFixture::press(QWidget& face, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&face, key, modifiers);
    settle();
}

void WindowFixture::type(QWidget& face, const QString& text) {
    QTest::keyClicks(&face, text);
    settle();
}

using tests::handle_at;

void WindowFixture::start_drag(QWidget& face, int value) {
    auto& slider = static_cast<QSlider&>(face);
    QTest::mousePress(&slider, Qt::LeftButton, {}, handle_at(slider, slider.sliderPosition()));
    drag_on(face, value);
}

void WindowFixture::drag_on(QWidget& face, int value) {
    auto& slider = static_cast<QSlider&>(face);
    QTest::mouseMove(&slider, handle_at(slider, value));
    settle();
}

void WindowFixture::end_drag(QWidget& face) {
    QTest::mouseRelease(&face, Qt::LeftButton, {}, face.rect().center());
    settle();
}

void WindowFixture::poll_for_box(const std::function<bool()>& act) {
    auto* clock = new QTimer(QCoreApplication::instance());
    QObject::connect(clock, &QTimer::timeout, clock, [clock, act] {
        if (!act()) return;
        clock->stop();
        clock->deleteLater();
    });
    clock->start(10);
}

} // namespace zol::view
