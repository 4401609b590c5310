#include "link/connection_dialog.h"

#include "app/app_state.h"
#include "app/captions.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "app/settings_file.h"
#include "app/window_scaling.h"
#include "link/ecu_frames.h"
#include "link/first_read.h"
#include "link/port_test_failure.h"
#include "link/port_tips.h"
#include "link/program_end.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/frm_splash.h"
#include "view/windows/style.h"

#include <array>
#include <optional>

namespace zol::link {
namespace {

using namespace centralina_attiva;
using app::state;
using view::Pointer;

const std::vector<std::string> ports = {"COM1", "COM2", "COM4", "COM5", "COM6", "COM7", "COM8"};

// The menu item that each list entry ticks: the entry COM5 ticks the item COM4, COM6 ticks COM5,
// and so on, which is intended. The last item belongs to no entry and is only unticked. COM3 is not
// touched.
const std::array<view::Widget*, 8> menu_item_of_entry = {&form1::com1, &form1::com2, &form1::com4,
                                                         &form1::com4, &form1::com5, &form1::com6,
                                                         &form1::com7, &form1::com8};

void dialog_loads() {
    app::apply_own_captions();
    view::set_back(Label1, windows::claret);
    view::set_back(Centralina_Attiva, windows::claret);
    state.connect_dialog_open = true;
    view::unload(frm_splash::frmSplash);
    state.poll_enabled = false;
    form1::Timer_stato_sistema.off();
    view::set_enabled(form1::Form1, false);
    state.ui_loading = true;
    view::set_enabled(Command_ok, false);
    view::set_items(Combo1, ports);
    view::set_list_index(Combo1, entry_of_port(state.com_port_number));
    refresh_port_tips();
    app::Module_Resize(Centralina_Attiva);
}

void dialog_closes() {
    state.no_reread = true;
    state.ui_loading = false;
    form1::Timer1.on();
}

void set_test_pointers(Pointer pointer) {
    view::set_pointer(Centralina_Attiva, pointer);
    view::set_pointer(Command_test, pointer);
}

// One round of the port test, which has two. Any byte counts as an answer; a port that fails counts
// as a silent unit. Returns nothing if the unit answers, else why not and what to do.
std::optional<std::string> test_failure() {
    set_test_pointers(Pointer::normal);
    if (port_is_open()) close_port();
    wait_ms(300);
    set_test_pointers(Pointer::hourglass);
    const double port = port_of_entry(Combo1.look.list_index);
    if (const auto error = open_port(port)) return why_port_failed(static_cast<int>(port), *error);
    if (!send_command(Command::presence)) return why_no_answer(static_cast<int>(port));
    wait_ms(500);
    if (read_reply().empty()) return why_no_answer(static_cast<int>(port));
    return std::nullopt;
}

// The window shows the result's tip under it. The heading no longer says that the unit is silent
// once it has answered.
void explain_result(const std::optional<std::string>& failure) {
    view::set_tip(Label2, failure.value_or(""));
    const auto silent = app::own_caption(Label1);
    if (!failure)
        view::set_text(Label1, app::helper_word("unit answers"));
    else if (silent)
        view::set_text(Label1, *silent);
}

void test_clicked() {
    view::set_text(Label2, "");
    view::set_tip(Label2, "");
    view::set_back(Label2, windows::paper);
    auto failure = test_failure();
    if (!failure) failure = test_failure(); // the first bytes may belong to an earlier request
    explain_result(failure);
    if (!failure) {
        view::set_enabled(Command_ok, true);
        view::set_back(Label2, view::green);
        view::set_text(Label2, "- OK TEST ESEGUITO -");
    } else {
        // Command_ok stays enabled if an earlier test was good.
        view::set_back(Label2, view::red);
        view::set_text(Label2, "- TEST FALLITO -");
    }
    set_test_pointers(Pointer::normal);
}

void tick_port_menu(int entry) {
    view::Widget* chosen =
        entry >= 0 ? menu_item_of_entry[static_cast<std::size_t>(entry)] : nullptr;
    for (view::Widget* item : menu_item_of_entry)
        view::set_checked(*item, item == chosen);
}

void set_work_pointers(Pointer pointer) {
    view::set_pointer(Centralina_Attiva, pointer);
    view::set_pointer(Command_ok, pointer);
}

void ok_clicked() {
    set_work_pointers(Pointer::hourglass);
    view::set_enabled(Command_ok, false);
    view::set_visible(form1::Frame2, false);
    const int entry = Combo1.look.list_index;
    app::write_port(entry + 1);
    // This is the list position and not the port number. It does no harm: the port that the test
    // opened stays in use until the next start, which reads the file.
    state.com_port_number = entry + 1;
    tick_port_menu(entry);
    read_for_dialog();
    wait_ms(800);
    view::set_enabled(Command_ok, true);
    set_work_pointers(Pointer::normal);
    state.connect_dialog_open = false;
    if (!state.settings_panel_open) form1::Timer6.on();
    view::unload(Centralina_Attiva);
    view::set_window_state(form1::Form1, view::WindowState::maximised);
}

void cancel_clicked() {
    constexpr int cancel_ms = 500;
    begin_program_end(cancel_ms + closing_ms);
    state.connect_dialog_open = false;
    state.ui_loading = false;
    app::write_port(Combo1.look.list_index + 1);
    wait_ms(cancel_ms);
    state.poll_enabled = false;
    view::unload(Centralina_Attiva);
    view::unload(form1::Form1);
}

} // namespace

double port_of_entry(int list_index) { return list_index < 2 ? list_index + 1 : list_index + 2; }

int entry_of_port(double port_number) {
    const int number = static_cast<int>(app::round_half_even(port_number));
    return number <= 2 ? number - 1 : number - 2;
}

void connect_connection_dialog() {
    Centralina_Attiva.on.load = dialog_loads;
    Centralina_Attiva.on.closing = dialog_closes;
    Command_test.on.click = test_clicked;
    Command_ok.on.click = ok_clicked;
    Command_cancel.on.click = cancel_clicked;
}

} // namespace zol::link
