#include "diagnostics/terminal.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "diagnostics/menu_write.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "link/read_marks.h"
#include "monitor/polling.h"
#include "view/windows/form1.h"

namespace zol::diagnostics {
namespace {

using link::wait_ms;

constexpr int debug_parameter = 20;
constexpr int auto_clear_parameter = 153; // automatic clearing of the faults

// The unit goes over to its terminal or download mode; then the port is free for whoever wants it.
void hand_over(link::Command command) {
    app::state.no_reread = true;
    monitor::stop_polling();
    wait_ms(800);
    link::send_command(command);
    wait_ms(800);
    link::close_port();
}

// One choice for two switches: the faults clear themselves while debugging.
void choose_debug(int value) {
    begin_menu_write();
    link::write_parameter(auto_clear_parameter, value);
    wait_ms(200);
    link::mirrors.debug_flag = value;
    link::tick_debug_pair();
    link::send_parameter(debug_parameter, value);
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
        app::note_parameters(*item, {auto_clear_parameter, debug_parameter});
}

} // namespace zol::diagnostics
