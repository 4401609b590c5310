// From the entry to the main window on its way, and a second copy of the program.
#include "app/application_folder.h"
#include "app/program/startup.h"
#include "tests/support/bench.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"

#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Startup : public Bench {};

TEST_F(Startup, TheSplashShowsTheToolsVersionAndTheMainWindowComesMinimised) {
    start_program();
    EXPECT_TRUE(frm_splash::frmSplash.shown);
    EXPECT_EQ(view::text(frm_splash::Label2), "9.9.20");
    EXPECT_EQ(frm_splash::frmSplash.look.pointer, view::Pointer::hourglass);
    EXPECT_TRUE(form1::Form1.shown);
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::minimised);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_FALSE(app::state.no_reread);
    EXPECT_EQ(app::state.panel_colour, form1::Form1.look.back); // activation follows at once
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(Startup, TheEntrySetsItsStartValues) {
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

TEST_F(Startup, TheRunningBarGoesUpByFiveEveryHalfSecondAndStartsAgainBehind95) {
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

TEST_F(Startup, TheMainWindowLoadsWithTheEnginePanelAndWhatIsHiddenHidden) {
    start_program();
    EXPECT_TRUE(view::visible(form1::frame_engine));
    EXPECT_FALSE(view::visible(form1::Frame_impostazioni));
    EXPECT_FALSE(view::enabled(form1::mnu_check_car));
    for (const view::Widget* hidden : {&form1::Label_sfondo, &form1::Label_ct, &form1::lbl_ct})
        EXPECT_FALSE(view::visible(*hidden)) << hidden->name;
}

TEST_F(Startup, ThePortOfTheSettingsIsOpenedWithItsLineSettings) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOM=6\n");
    start_program();
    EXPECT_EQ(port->number, 6);
    EXPECT_EQ(port->line_settings, "9600,n,8,1");
    EXPECT_EQ(port->opened, 1);
    EXPECT_TRUE(view::checked(form1::com6));
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(Startup, WithoutSettingsItIsPort1) {
    std::filesystem::remove(folder / "setting.ini");
    start_program();
    EXPECT_EQ(port->number, 1);
    EXPECT_TRUE(view::checked(form1::com1));
}

TEST_F(Startup, APortThatCannotBeOpenedIsToldOnceAndTheConnectionDialogOpens) {
    port->open_error = "COM1 (/dev/ttyUSB0): No such file or directory";
    screen.answer_message("No such file or directory", view::Answer::ok, 5000);
    start_program();
    run_for(4999);
    // The splash runs on beneath the box, and the main window waits for the answer.
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

TEST_F(Startup, AMainWindowThatMustNotReadLoadsWithoutLanguageAndPort) {
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

TEST_F(Startup, WhileItMustNotReadActivationOnlyTakesColourAndStopsThePolling) {
    start_connected();
    inside_program([] {
        app::state.no_reread = true;
        form1::Timer_rpm.off();
        view::set_back(form1::Form1, view::rgb(1, 2, 3));
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    EXPECT_EQ(app::state.panel_colour, view::rgb(1, 2, 3));
    EXPECT_EQ(form1::lbl_ore.look.back, view::rgb(1, 2, 3));
    EXPECT_EQ(app::state.trace_x, 0);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
    run_for(300);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), testing::Not(testing::Contains(Send(6))));
}

TEST_F(Startup, AnActivationWithThePollingForbiddenAsksNothing) {
    start_connected();
    inside_program([] {
        app::state.poll_enabled = false;
        form1::Timer_stato_sistema.off();
    });
    run_for(1000);
    forget_wire();
    inside_program([] {
        app::state.ui_loading = true;
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    run_for(399);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(1);
    EXPECT_FALSE(app::state.ui_loading);
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Startup, AnActivationWithThePollingAllowedReadsTheUnitAgain) {
    start_connected();
    inside_program([] {
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    run_for(6000);
    EXPECT_THAT(frames(), testing::IsSupersetOf({Send(6), Send(7), Send(1), Send(3)}));
}

// The claim is the process's: another process asks.
bool another_copy_may_run(const std::filesystem::path& folder) {
    const pid_t child = ::fork();
    if (child == 0) {
        app::use_application_folder(folder);
        ::_exit(app::claim_application_folder() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST(SecondInstance, ASecondCopyInTheSameFolderMayNotRunAndOneElsewhereMay) {
    const auto folder =
        std::filesystem::temp_directory_path() / ("zol_claim_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "other");
    app::use_application_folder(folder);
    EXPECT_TRUE(another_copy_may_run(folder)); // and its end gives the folder back
    EXPECT_TRUE(app::claim_application_folder());
    EXPECT_FALSE(another_copy_may_run(folder));
    EXPECT_TRUE(another_copy_may_run(folder / "other"));
    EXPECT_TRUE(another_copy_may_run(folder / "not there")); // nothing to hold a lock
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace zol::tests
