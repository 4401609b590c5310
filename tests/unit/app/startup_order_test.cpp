// The start-up, up to the first activation of the main window.
#include "app/program/startup.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"

namespace zol::tests {
namespace {

using testing::IsEmpty;

class Startup : public LogicTest {
  protected:
    void activate_again() {
        inside_program([] {
            view::hide(form1::Form1);
            view::show(form1::Form1);
        });
    }
};

TEST_F(Startup, SplashShowsTheVersion) {
    start_program();
    EXPECT_TRUE(frm_splash::frmSplash.shown);
    EXPECT_EQ(view::text(frm_splash::Label2), "9.9.20");
    EXPECT_EQ(frm_splash::frmSplash.look.pointer, view::Pointer::hourglass);
    EXPECT_TRUE(form1::Form1.shown);
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::minimised);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_FALSE(app::state.no_reread);
    EXPECT_EQ(app::state.panel_colour, form1::Form1.look.back); // set by the activation
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(Startup, SetsItsStartValues) {
    app::state.panel_colour = 0;
    app::state.no_reread = app::state.ui_loading = true;
    app::state.poll_enabled = false;
    app::state.tuning_mode = 1;
    app::state.tool_version.clear();
    time.start([] {
        app::sub_main();
        EXPECT_EQ(app::state.panel_colour, view::rgb(192, 192, 0));
        EXPECT_FALSE(app::state.no_reread);
        EXPECT_FALSE(app::state.ui_loading);
        EXPECT_TRUE(app::state.poll_enabled);
        EXPECT_EQ(app::state.tuning_mode, 0);
        EXPECT_EQ(app::state.tool_version, "9.9.20");
        EXPECT_TRUE(frm_splash::frmSplash.shown);
        EXPECT_FALSE(form1::Form1.loaded);
    });
}

TEST_F(Startup, ProgressBarRisesByFiveEveryHalfSecond) {
    port->silent = true;
    time.start([] {
        view::load(frm_splash::frmSplash);
        frm_splash::Timer_progress.on();
        for (;;)
            view::pump();
    });
    for (int tick = 1; tick <= 19; ++tick) {
        run_for(500);
        EXPECT_EQ(view::value(frm_splash::ProgressBar1), 5 * tick);
    }
    run_for(500); // 95 is above 90
    EXPECT_EQ(view::value(frm_splash::ProgressBar1), 0);
    run_for(500);
    EXPECT_EQ(view::value(frm_splash::ProgressBar1), 5);
    inside_program([] { view::unload(frm_splash::frmSplash); });
    EXPECT_EQ(view::value(frm_splash::ProgressBar1), 100);
    EXPECT_FALSE(frm_splash::Timer_progress.is_on());
}

TEST_F(Startup, OpensThePortOfTheSettings) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOM=6\n");
    start_program();
    EXPECT_EQ(port->number, 6);
    EXPECT_EQ(port->line_settings, "9600,n,8,1");
    EXPECT_EQ(port->opened, 1);
    EXPECT_TRUE(view::checked(form1::com6));
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(Startup, PortThatCannotBeOpenedIsReportedOnce) {
    port->open_error = "COM1 (/dev/ttyUSB0): No such file or directory";
    screen.answer_message("No such file or directory", view::Answer::ok, 5000);
    start_program();
    run_for(4999);
    // The splash window runs on while the box is shown, and the main window waits for the answer.
    EXPECT_GT(view::value(frm_splash::ProgressBar1), 0);
    EXPECT_EQ(frm_splash::frmSplash.look.pointer, view::Pointer::hourglass);
    EXPECT_FALSE(centralina_attiva::Centralina_Attiva.loaded);
    run_for(501);
    EXPECT_TRUE(centralina_attiva::Centralina_Attiva.shown);
    run_for(60000);
    ASSERT_EQ(screen.message_boxes.size(), 1U);
    EXPECT_EQ(screen.message_boxes[0].text, *port->open_error);
    EXPECT_EQ(screen.message_boxes[0].title, "");
    EXPECT_EQ(screen.message_boxes[0].icon, view::Icon::exclamation);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(Startup, NoRereadLoadsTheWindowWithoutThePort) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOM=6\n");
    time.start([] {
        app::state.no_reread = true;
        view::show(form1::Form1);
        for (;;)
            view::pump();
    });
    run_for(5000);
    EXPECT_EQ(port->opened, 0);
    EXPECT_EQ(app::state.com_port_number, 0);
    EXPECT_EQ(app::state.current_language, "");
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(view::enabled(form1::mnu_check_car));
}

TEST_F(Startup, NoRereadMakesActivationTakeTheColourOnly) {
    start_connected();
    inside_program([] {
        app::state.no_reread = true;
        form1::Timer_rpm.off();
        view::set_back(form1::Form1, view::rgb(1, 2, 3));
    });
    activate_again();
    EXPECT_EQ(app::state.panel_colour, view::rgb(1, 2, 3));
    EXPECT_EQ(form1::lbl_ore.look.back, view::rgb(1, 2, 3));
    EXPECT_EQ(app::state.trace_x, 0);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
    run_for(300);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), testing::Not(testing::Contains(Send(6))));
}

TEST_F(Startup, ActivationWithPollingForbiddenSendsNothing) {
    start_connected();
    inside_program([] {
        app::state.poll_enabled = false;
        form1::Timer_stato_sistema.off();
    });
    run_for(1000);
    forget_wire();
    inside_program([] { app::state.ui_loading = true; });
    activate_again();
    run_for(399);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(1);
    EXPECT_FALSE(app::state.ui_loading);
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Startup, ActivationWithPollingAllowedReadsAgain) {
    start_connected();
    activate_again();
    run_for(6000);
    EXPECT_THAT(frames(), testing::IsSupersetOf({Send(6), Send(7), Send(1), Send(3)}));
}

} // namespace
} // namespace zol::tests
