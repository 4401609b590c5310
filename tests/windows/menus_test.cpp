// Menus keep the state of their data while their window is disabled and enabled.
#include "tests/windows/window_fixture.h"

#include "app/app_state.h"
#include "app/program/wiring.h"
#include "tests/support/silent_port.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace zol::view {
namespace {

using namespace test_window;

class AnyMenus : public WindowFixture {
  protected:
    bool is_on(Widget& menu) const {
        const QAction& action = this->action(menu);
        return action.isEnabled() && (!action.menu() || action.menu()->isEnabled());
    }
    // A click on the menu bar opens the menu.
    bool opens(Widget& menu) {
        auto* bar = top(*menu.window).findChild<QMenuBar*>();
        if (!bar->isEnabled()) return false;
        const QPoint place = bar->actionGeometry(&action(menu)).center();
        QTest::mouseClick(bar, Qt::LeftButton, {}, place);
        settle();
        const bool open = action(menu).menu()->isVisible();
        if (open) QTest::keyClick(action(menu).menu(), Qt::Key_Escape);
        settle();
        return open;
    }
};

class Menus : public AnyMenus {
  protected:
    Menus() { open(Sample); }

    // Like a window that disables the main window while it is open.
    static void disable_and_enable(Widget& window) {
        set_enabled(window, false);
        settle();
        set_enabled(window, true);
        settle();
    }
};

TEST_F(Menus, DisabledMenuStaysOffWithItsWindowEnabled) {
    set_enabled(mnu_tools, false);
    disable_and_enable(Sample);
    EXPECT_FALSE(is_on(mnu_tools));
    EXPECT_FALSE(opens(mnu_tools));
    set_enabled(mnu_tools, true);
    EXPECT_TRUE(opens(mnu_tools));
}

TEST_F(Menus, DisabledSubmenuStaysOffWithItsWindowEnabled) {
    set_enabled(mnu_more, false);
    disable_and_enable(Sample);
    EXPECT_FALSE(is_on(mnu_more));
    EXPECT_TRUE(opens(mnu_tools));
}

TEST_F(Menus, DisabledSubmenuStaysOffWithItsMenuEnabled) {
    set_enabled(mnu_more, false);
    disable_and_enable(mnu_tools);
    EXPECT_TRUE(is_on(mnu_tools));
    EXPECT_FALSE(is_on(mnu_more));
    set_enabled(mnu_more, true);
    EXPECT_TRUE(is_on(mnu_more));
}

TEST_F(Menus, DisabledEntriesStayOffWithTheirWindowEnabled) {
    for (Widget* entry : {&mnu_act, &mnu_mark, &mnu_top})
        set_enabled(*entry, false);
    disable_and_enable(Sample);
    for (Widget* entry : {&mnu_act, &mnu_mark, &mnu_top})
        EXPECT_FALSE(is_on(*entry)) << entry->name;
}

TEST_F(Menus, HiddenMenusStayHiddenWithTheirWindowEnabled) {
    for (Widget* entry : {&mnu_more, &mnu_mark, &mnu_top})
        set_visible(*entry, false);
    disable_and_enable(Sample);
    for (Widget* entry : {&mnu_more, &mnu_mark, &mnu_top})
        EXPECT_FALSE(action(*entry).isVisible()) << entry->name;
}

TEST_F(Menus, MenuOpensOnlyInAnEnabledWindow) {
    set_enabled(mnu_tools, false);
    set_enabled(Sample, false);
    set_enabled(mnu_tools, true);
    settle();
    EXPECT_FALSE(opens(mnu_tools));
    set_enabled(Sample, true);
    EXPECT_TRUE(opens(mnu_tools));
}

TEST_F(Menus, MenuDisabledInADisabledWindowStaysOff) {
    set_enabled(Sample, false);
    set_enabled(mnu_tools, false);
    set_enabled(Sample, true);
    EXPECT_FALSE(opens(mnu_tools));
}

// The main window and windows that disable it, with their handlers and a silent port.
class MainWindowsMenus : public AnyMenus {
  protected:
    MainWindowsMenus() {
        app::state.no_reread = true; // nothing is read on activation
        link::use_serial_port(port_);
        app::connect_handlers();
        open(form1::Form1);
        set_enabled(form1::mnu_eobd, false);
    }
    void open_and_close(Widget& window) {
        open(window);
        EXPECT_FALSE(form1::Form1.look.enabled);
        top(window).close();
        run_until([] { return form1::Form1.look.enabled; });
        settle();
    }
    void expect_menus_off() {
        EXPECT_FALSE(is_on(form1::mnu_check_car));
        EXPECT_FALSE(is_on(form1::mnu_eobd));
        EXPECT_FALSE(opens(form1::mnu_eobd));
        EXPECT_TRUE(opens(form1::mnu_Lingua));
        expect_mirrored();
    }

  private:
    tests::SilentPort port_;
};

TEST_F(MainWindowsMenus, DisabledStayOffAfterTheAcquisition) {
    open_and_close(acquisizione::acquisizione);
    expect_menus_off();
}

TEST_F(MainWindowsMenus, DisabledStayOffAfterTheChangeoverWindow) {
    open_and_close(form3::Form3);
    expect_menus_off();
}

} // namespace
} // namespace zol::view
