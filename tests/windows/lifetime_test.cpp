// Windows can be loaded, shown and unloaded at any time, also by their own handlers.
#include "tests/windows/window_fixture.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>

namespace zol::view {
namespace {

using namespace test_window;
using ::testing::ElementsAre;

class WindowLife : public WindowFixture {};

TEST_F(WindowLife, ButtonCanUnloadItsWindow) {
    open(Dialog);
    const QPointer<QWidget> old = &top(Dialog);
    Dialog_ok.on.click = [] { unload(Dialog); };
    click(face(Dialog_ok));
    EXPECT_FALSE(Dialog.loaded);
    EXPECT_TRUE(old.isNull());
}

TEST_F(WindowLife, KeyHandlerCanReloadItsWindow) {
    open(Dialog);
    set_text(Dialog_text, "old");
    Dialog.on.key = [](int, int) {
        Dialog.on.key = nullptr;
        unload(Dialog);
        show(Dialog);
    };
    set_focus(Dialog_text);
    press(face(Dialog_text), Qt::Key_X);
    EXPECT_TRUE(Dialog.shown);
    EXPECT_EQ(face<QLineEdit>(Dialog_text).text(), "") << "new widgets do not get the key";
}

TEST_F(WindowLife, TimerCanUnloadItsWindowDuringAMousePress) {
    open(Dialog);
    QTest::mousePress(&face(Dialog_ok), Qt::LeftButton);
    Timer_dialog.tick = [] { unload(Dialog); };
    run_until([] { return !Dialog.loaded; });
    settle();
}

TEST_F(WindowLife, ClosingAWindowRunsItsHandlers) {
    open(Dialog);
    std::vector<std::string> events;
    Dialog.on.closing = [&] { events.push_back("closing"); };
    Dialog.on.unload = [&] { events.push_back("unload"); };
    EXPECT_FALSE(top(Dialog).close());
    EXPECT_TRUE(top(Dialog).isVisible()) << "only the handler closes it";
    settle();
    EXPECT_THAT(events, ElementsAre("closing", "unload"));
    EXPECT_FALSE(Dialog.loaded);
}

TEST_F(WindowLife, DisabledWindowCannotBeClosed) {
    open(Dialog);
    set_enabled(Dialog, false);
    top(Dialog).close();
    settle();
    EXPECT_TRUE(Dialog.shown);
}

TEST_F(WindowLife, ActivatingADisabledWindowRaisesItsDialog) {
    open(Sample);
    open(Dialog);
    set_enabled(Sample, false);
    top(Sample).activateWindow();
    run_until([&] { return top(Dialog).isActiveWindow(); });
}

TEST_F(WindowLife, ModalWindowBlocksItsCaller) {
    open(Sample);
    std::vector<std::string> order;
    Dialog_ok.on.click = [&] {
        order.push_back("ok");
        unload(Dialog);
    };
    Command1.on.click = [&] {
        show_modal(Dialog);
        order.push_back("after");
    };
    Dialog.on.activate = [this] { QTest::mouseClick(&face(Dialog_ok), Qt::LeftButton); };
    click(face(Command1));
    run_until([&] { return order.size() == 2; });
    EXPECT_THAT(order, ElementsAre("ok", "after"));
}

TEST_F(WindowLife, ActivationRunsWhenAnotherWindowCloses) {
    std::vector<std::string> events;
    Sample.on.activate = [&] { events.push_back("Sample"); };
    Dialog.on.activate = [&] { events.push_back("Dialog"); };
    Sample.on.deactivate = [&] { events.push_back("Sample off"); };
    open(Sample);
    open(Dialog);
    unload(Dialog);
    settle();
    EXPECT_THAT(events, ElementsAre("Sample", "Sample off", "Dialog", "Sample"));
}

TEST_F(WindowLife, WindowStateIsShown) {
    show(Sample);
    set_window_state(Sample, WindowState::minimised);
    settle();
    EXPECT_TRUE(top(Sample).isMinimized());
    expect_mirrored();
    set_window_state(Sample, WindowState::maximised);
    settle();
    EXPECT_TRUE(top(Sample).isMaximized());
    EXPECT_FALSE(top(Sample).isMinimized());
}

TEST_F(WindowLife, HiddenWindowKeepsItsWidgets) {
    open(Sample);
    set_text(Label1, "stays");
    hide(Sample);
    settle();
    EXPECT_FALSE(top(Sample).isVisible());
    set_text(Label1, "changed while hidden");
    expect_mirrored();
    show(Sample);
    settle();
    EXPECT_TRUE(top(Sample).isVisible());
    EXPECT_EQ(text(Label1), "changed while hidden");
}

TEST_F(WindowLife, ContentIsScaledWithTheWindow) {
    open(Sample);
    const QRect design = face(Inside).geometry();
    const QSize content = face(Command1).parentWidget()->size();
    top(Sample).resize(top(Sample).size() + content);
    settle();
    EXPECT_NEAR(face(Inside).x(), 2 * design.x(), 1);
    EXPECT_NEAR(face(Inside).width(), 2 * design.width(), 2);
    for (Widget* w : Sample.controls)
        EXPECT_TRUE(face(*w).parentWidget()->rect().contains(face(*w).geometry())) << full_name(*w);
}

TEST_F(WindowLife, SettingAPlaceMovesTheControl) {
    open(Sample);
    set_place(Command1, {300, 450, 1500, 600});
    settle();
    EXPECT_EQ(face(Command1).geometry(), QRect(20, 30, 100, 40));
}

TEST_F(WindowLife, ThousandLoadsLeaveNoWidgets) {
    const auto before = QApplication::allWidgets().size();
    for (int i = 0; i < 1000; ++i) {
        load(Dialog);
        unload(Dialog);
    }
    settle();
    EXPECT_EQ(QApplication::allWidgets().size(), before);
}

TEST_F(WindowLife, ManualOpensOnlyIfItExists) {
    QTemporaryDir folder;
    const auto file = folder.filePath("zol.chm").toStdString();
    show_manual(file, "index.htm");
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    QDir(folder.path()).mkdir("manual");
    QFile page(folder.filePath("manual/index.htm"));
    ASSERT_TRUE(page.open(QFile::WriteOnly));
    page.write("<h1>The manual</h1><img src='http://somewhere.example/x.png'>"
               "<img src='../outside.png'>");
    page.close();
    show_manual(file, "index.htm");
    settle();
    ASSERT_EQ(QApplication::topLevelWidgets().size(), 1);
    QWidget* window = QApplication::topLevelWidgets().first();
    EXPECT_EQ(window->objectName(), "Manual");
    auto* shown_page = window->findChild<QTextBrowser*>("Page");
    ASSERT_TRUE(shown_page);
    EXPECT_TRUE(shown_page->toPlainText().contains("The manual"));
    show_manual(file, "missing.htm");
    EXPECT_TRUE(window->isVisible());
    screen.close_manual();
}

} // namespace
} // namespace zol::view
