// The numeric entry fields of the main window and of the changeover window. A click marks and
// clears the field, Enter writes its number to the unit, any other key has no effect.
#pragma once

#include "view/timers.h"
#include "view/widget.h"

namespace zol::link {

// One field, and the steps that its panel adds to the common ones, in the order of the members. The
// differences between the panels are intended.
struct EntryField {
    view::Widget& field;
    int parameter;                             // to which the number is written
    double& mirror;                            // set before the write
    int settle_ms;                             // wait after the write
    view::Timer& wait_timer;                   // of the field's window: the wait uses it
    void (*before)() = nullptr;                // runs first
    double (*as_sent)(double typed) = nullptr; // converts to the parameter's unit; null: as typed
    void (*taken)() = nullptr;     // runs when the mirror is set, before the mark is removed
    void (*written)() = nullptr;   // runs after the wait, while the field is disabled
    void (*done)() = nullptr;      // runs last
    view::Widget* freed = nullptr; // enabled at the end; null: the field itself
};

// What Enter does: disables the field and shows the hourglass, reads the number with app::val(),
// removes the mark, writes, waits, and enables the field again. A number outside 0 to 65535 is not
// sent, and a port that fails is ignored; the wait runs in any case.
void send_entry(const EntryField& entry);

// Connects the field's click and key handlers and notes its parameter for the tips.
void connect_entry_field(const EntryField& entry);

} // namespace zol::link
