// The edit mark of a numeric entry field: it shows that a number is being typed.
#pragma once

#include "view/widget.h"

namespace zol::app {

// Marks the field: red background, empty text.
void begin_field_edit(view::Widget& field);
// Removes the mark: white background. The text stays.
void end_field_edit(view::Widget& field);

} // namespace zol::app
