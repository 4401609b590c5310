// The numeric entry fields of the main window and of the changeover window. A click marks and
// clears the field, Enter sends its number to the unit, any other key does nothing.
#pragma once

#include "view/timers.h"
#include "view/widget.h"

namespace zol::link {

// One field, and what its own panel does around the steps that all fields share. Where two panels
// differ they are meant to.
struct EntryField {
    view::Widget& field;
    int parameter;                             // that takes the number
    double& mirror;                            // takes it too, before the write
    int settle_ms;                             // behind the write
    view::Timer& clock;                        // of the field's window: its waits stand on it
    void (*before)() = nullptr;                // ahead of all else
    double (*as_sent)(double typed) = nullptr; // the number in the parameter's unit; null: as typed
    void (*taken)() = nullptr;                 // the mirror has the number, the mark is still on
    void (*written)() = nullptr;               // the wait is over, the field still locked
    void (*done)() = nullptr;                  // field and pointer are back
    view::Widget* freed = nullptr;             // enabled at the end; null: the field itself
};

// What Enter does: locks the field under the hourglass, reads its text leniently (no number is 0),
// takes the mark off, writes, waits, and frees it again. A number outside 0 to 65535 has no frame
// and is not sent; a fault of the port is skipped; the waits run all the same.
void send_entry(const EntryField& entry);

// Ties click and Enter to the field.
void connect_entry_field(const EntryField& entry);

} // namespace zol::link
