#include "link/entry_field.h"

#include "app/field_marking.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "view/operator.h"
#include "view/view.h"

namespace zol::link {

void send_entry(const EntryField& entry) {
    view::Widget& window = *entry.field.window;
    view::run(entry.before);
    view::set_enabled(entry.field, false);
    view::set_pointer(window, view::Pointer::hourglass);
    const double typed = app::val(view::text(entry.field));
    entry.mirror = entry.as_sent ? entry.as_sent(typed) : typed;
    view::run(entry.taken);
    app::end_field_edit(entry.field);
    send_parameter(entry.parameter, entry.mirror);
    view::wait_on(entry.wait_timer, entry.settle_ms);
    view::run(entry.written);
    view::set_enabled(entry.freed ? *entry.freed : entry.field, true);
    view::set_pointer(window, view::Pointer::normal);
    view::run(entry.done);
}

void connect_entry_field(const EntryField& entry) {
    app::note_parameters(entry.field, {entry.parameter});
    entry.field.on.click = [&field = entry.field] { app::begin_field_edit(field); };
    entry.field.on.key = [entry](int code, int) {
        if (code == view::operator_acts::enter) send_entry(entry);
    };
}

} // namespace zol::link
