#include "diagnostics/terminal.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "diagnostics/menu_write.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "link/read_marks.h"
#include "monitor/polling.h"
#include "view/windows/form1.h"

namespace zol::diagnostics {
namespace {

using link::wait_ms;
namespace par = link::par;

// Switches the unit to terminal or download mode and closes the port, so that another program can
// open it. The main window never reads the unit again in this run.
void hand_over(link::Command command) {
    app::state.no_reread = true;
    monitor::stop_polling();
    wait_ms(800);
    link::send_command(command);
    wait_ms(800);
    link::close_port();
}

// One choice sets two parameters: in debug mode the unit also clears its faults by itself.
void choose_debug(int value) {
    begin_menu_write();
    link::write_parameter(par::fault_clearing, value);
    wait_ms(200);
    link::mirrors.debug_flag = value;
    link::tick_debug_pair();
    link::send_parameter(par::debug_flag, value);
    wait_ms(200);
    end_menu_write();
}

} // namespace

void connect_terminal() {
    form1::Command_hyperterminal.on.click = [] { hand_over(link::Command::terminal); };
    form1::Command_scarico.on.click = [] { hand_over(link::Command::download); };
    form1::mnu_debug_yes.on.click = [] { choose_debug(1); };
    form1::mnu_debug_no.on.click = [] { choose_debug(0); };
    for (view::Widget* item : {&form1::mnu_debug_yes, &form1::mnu_debug_no})
        app::note_parameters(*item, {par::fault_clearing, par::debug_flag});
}

} // namespace zol::diagnostics
