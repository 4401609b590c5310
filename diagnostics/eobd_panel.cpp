#include "diagnostics/eobd_panel.h"

#include "app/helper_texts.h"
#include "app/message_catalogue.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>

namespace zol::diagnostics {
namespace {

using link::Command;
using link::Reply;
using link::wait_ms;
using view::Pointer;
namespace par = link::par;

const std::array<view::Widget*, 6> fault_labels = {&form1::lbl_par_1, &form1::lbl_par_2,
                                                   &form1::lbl_par_3, &form1::lbl_par_4,
                                                   &form1::lbl_par_5, &form1::lbl_par_6};
// 1-based positions in the reply: six faults of two bytes each, then their number.
constexpr std::size_t first_fault_position = 6;
constexpr std::size_t fault_count_position = 18;

void panel_clicked() {
    form1::Timer3.off();
    view::set_enabled(form1::Command5, false);
    form1::Timer_chiusura_stato.on();
    view::set_visible(form1::Command_exit, false);
    view::set_visible(form1::Frame_diagnosi, true);
    for (view::Widget* other :
         {&form1::frame_engine, &form1::Frame_impostazioni, &form1::Frame_Lambda})
        view::set_visible(*other, false);
    if (form1::Timer_stato_sistema.is_on()) monitor::stop_polling();
    wait_ms(600);
}

// Requests the faults until a correct reply arrives, without limit. The port is closed and opened
// before each request, which discards late bytes of an earlier reply.
Reply faults_of_unit() {
    for (;;) {
        link::close_port();
        wait_ms(300);
        link::serial_port().open();
        link::send_command(Command::eobd_faults);
        wait_ms(1000);
        const Reply reply = link::read_reply();
        if (reply.echoes(Command::eobd_faults)) return reply;
    }
}

// The long note of a code is its tip.
void show_fault(view::Widget& label, int fault) {
    const std::string code = fault_code_text(fault);
    view::set_text(label, code);
    view::set_tip(label, code.starts_with('P') ? app::trouble_code_note(code) : "");
}

void empty_note_box() {
    view::set_text(form1::Text_note_error, "");
    view::set_tip(form1::Text_note_error, "");
}

// A fault is stored as two bytes, hundreds and the rest; the number of faults is a binary word.
void show_faults(const Reply& reply) {
    for (std::size_t i = 0; i < fault_labels.size(); ++i) {
        const auto hundreds = reply.byte(first_fault_position + 2 * i);
        const auto rest = reply.byte(first_fault_position + 2 * i + 1);
        if (hundreds && rest) show_fault(*fault_labels[i], *hundreds * 100 + *rest);
    }
    if (const auto count = reply.word(fault_count_position))
        view::set_text(form1::lbl_num_errori, std::to_string(*count));
}

void set_pointers(view::Widget& button, Pointer on_button, Pointer on_window) {
    view::set_pointer(button, on_button);
    view::set_pointer(form1::Form1, on_window);
}

void read_clicked() {
    view::Widget& button = form1::cmd_richiesta_par_diagnosi;
    set_pointers(button, Pointer::hourglass, Pointer::hourglass);
    view::set_enabled(button, false);
    empty_note_box();
    show_faults(faults_of_unit());
    set_pointers(button, Pointer::custom, Pointer::normal);
    view::set_enabled(button, true);
}

void clear_clicked() {
    set_pointers(form1::Command10, Pointer::hourglass, Pointer::hourglass);
    empty_note_box();
    for (int number = par::fault_1; number <= par::fault_count; ++number) {
        link::send_parameter(number, 0);
        wait_ms(link::send_settle_ms);
    }
    for (view::Widget* label : fault_labels) {
        view::set_text(*label, "0");
        view::set_tip(*label, "");
    }
    view::set_text(form1::lbl_num_errori, "0");
    set_pointers(form1::Command10, Pointer::custom, Pointer::normal);
}

// The lookup first puts the long note into the box; the short description then replaces it. The tip
// of the box keeps the note.
void explain(const view::Widget& label) {
    view::set_tip(form1::Text_note_error, app::trouble_code_note(view::text(label)));
    if (const auto description = app::trouble_code_text(view::text(label)))
        view::set_text(form1::Text_note_error, *description);
}

} // namespace

std::string fault_code_text(int fault) {
    if (fault == 0) return "NO ERROR";
    if (fault >= 1000 && fault <= 2000) return "";
    const char* head = fault < 10 ? "P000" : fault < 100 ? "P00" : fault < 1000 ? "P0" : "P";
    return head + std::to_string(fault);
}

void connect_eobd_panel() {
    form1::Command_diagnosi.on.click = panel_clicked;
    form1::cmd_richiesta_par_diagnosi.on.click = read_clicked;
    form1::Command10.on.click = clear_clicked;
    for (view::Widget* label : fault_labels)
        label->on.click = [label] { explain(*label); };
    int number = par::fault_1; // the six faults, then their count
    for (view::Widget* label : fault_labels)
        app::note_parameters(*label, {number++});
    app::note_parameters(form1::lbl_num_errori, {par::fault_count});
    for (number = par::fault_1; number <= par::fault_count; ++number)
        app::note_parameters(form1::Command10, {number});
}

} // namespace zol::diagnostics
