// The mark of an entry field that waits for its number.
#pragma once

#include "view/widget.h"

namespace zol::app {

// Marks a field as waiting for its number: red ground, empty text.
void begin_field_edit(view::Widget& field);
// Takes the mark off again, after Enter was handled.
void end_field_edit(view::Widget& field);

} // namespace zol::app
