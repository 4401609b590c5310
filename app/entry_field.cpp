#include "app/entry_field.h"

#include "app/helper_texts.h"
#include "app/main_window.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "view/operator.h"
#include "view/view.h"

namespace zol::app {
namespace {

void run(void (*step)()) {
    if (step) step();
}

} // namespace

void send_entry(const EntryField& entry) {
    view::Widget& window = *entry.field.window;
    run(entry.before);
    view::set_enabled(entry.field, false);
    view::set_pointer(window, view::Pointer::hourglass);
    const double typed = val(view::text(entry.field));
    entry.mirror = entry.as_sent ? entry.as_sent(typed) : typed;
    run(entry.taken);
    end_field_edit(entry.field);
    link::send_parameter(entry.parameter, entry.mirror);
    view::wait_on(entry.clock, entry.settle_ms);
    run(entry.written);
    view::set_enabled(entry.freed ? *entry.freed : entry.field, true);
    view::set_pointer(window, view::Pointer::normal);
    run(entry.done);
}

void connect_entry_field(const EntryField& entry) {
    note_parameters(entry.field, {entry.parameter});
    entry.field.on.click = [&field = entry.field] { begin_field_edit(field); };
    entry.field.on.key = [entry](int code, int) {
        if (code == view::operator_acts::enter) send_entry(entry);
    };
}

} // namespace zol::app
