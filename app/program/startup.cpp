#include "app/program/startup.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/program/language.h"
#include "app/settings_file.h"
#include "app/window_scaling.h"
#include "link/ecu_frames.h"
#include "link/program_end.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace zol::app {
namespace {

using view::Pointer;

void splash_activated() {
    view::set_text(frm_splash::Label2, state.tool_version);
    frm_splash::Timer_progress.on();
    view::set_pointer(frm_splash::frmSplash, Pointer::hourglass);
    view::show(form1::Form1);
    view::set_window_state(form1::Form1, view::WindowState::minimised);
}

// The bar runs continuously and does not show real progress.
void splash_bar_ticks() {
    view::Widget& bar = frm_splash::ProgressBar1;
    view::place_value(bar, view::value(bar) > 90 ? 0 : view::value(bar) + 5);
}

void splash_closes() {
    view::place_value(frm_splash::ProgressBar1, 100);
    frm_splash::Timer_progress.off();
}

void main_window_loads() {
    state.ui_loading = true;
    if (!state.no_reread) {
        load_language();
        Module_Resize(form1::Form1);
        view::set_visible(form1::frame_engine, true);
        view::set_visible(form1::Frame_impostazioni, false);
        load_port();
        if (const auto error = link::open_port(state.com_port_number))
            view::message_box({.text = *error, .title = "", .icon = view::Icon::exclamation});
    }
    view::set_enabled(form1::mnu_check_car, false);
    for (view::Widget* hidden : {&form1::Label_sfondo, &form1::Label_ct, &form1::lbl_ct})
        view::set_visible(*hidden, false);
}

// Runs for every way of closing the main window. It does not return: the process ends here, after a
// telegram under way has ended.
void main_window_closes() {
    link::begin_program_end(link::closing_ms);
    state.no_reread = true;
    state.poll_enabled = false;
    view::set_enabled(form1::Command_exit, false);
    view::set_pointer(form1::Command_exit, Pointer::hourglass);
    view::set_pointer(form1::Form1, Pointer::hourglass);
    form1::Timer_stato_sistema.off();
    form1::Timer_chiusura_stato.on();
    form1::Timer6.off();
    form1::Timer3.off();
    // Not wait_ms(): a handler that begins meanwhile could prolong the wait, or repeat a request
    // without limit.
    for (;;)
        view::pump();
}

// False if another process holds the lock. If the file cannot be opened or locked, the start is not
// prevented.
bool lock(const std::filesystem::path& file, int flags) {
    const int descriptor = ::open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    if (descriptor < 0) return true;
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void exit_clicked() {
    state.no_reread = true;
    state.ui_loading = true;
    form1::Timer_rpm.off();
    view::unload(form1::Form1);
}

} // namespace

void sub_main() {
    state.panel_colour = view::rgb(192, 192, 0);
    state.no_reread = false;
    state.tool_version = AppState{}.tool_version;
    state.ui_loading = false;
    state.poll_enabled = true;
    state.tuning_mode = 0;
    view::show(frm_splash::frmSplash);
}

bool claim_application_folder() {
    // Both locks are needed: a network disk does not lock folders, and a read-only folder cannot
    // have a lock file. With both, a user who may write and one who may not exclude each other.
    return lock(application_file("\\.running"), O_RDWR | O_CREAT | O_NOFOLLOW) &&
           lock(application_file("\\"), O_RDONLY | O_DIRECTORY);
}

void connect_startup() {
    frm_splash::frmSplash.on.activate = splash_activated;
    frm_splash::frmSplash.on.closing = splash_closes;
    frm_splash::Timer_progress.tick = splash_bar_ticks;
    form1::Form1.on.load = main_window_loads;
    form1::Form1.on.closing = main_window_closes;
    form1::Command_exit.on.click = exit_clicked;
    form1::Timer2.tick = [] { form1::Timer2.off(); };
}

} // namespace zol::app
