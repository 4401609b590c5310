// The way of the Tab key through a window.
#pragma once

#include "view/widget.h"

#include <vector>

namespace zol::view::qt {

// The window's controls in the order in which they are read: frame by frame, in each from top to
// bottom and from left to right, a tall one behind the lines to its left. The table's own order is
// that of its collection.
std::vector<Widget*> reading_order(const Widget& window);

} // namespace zol::view::qt
