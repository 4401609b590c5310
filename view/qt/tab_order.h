// The order of the controls for the Tab key. It does not decide which of them take the focus.
#pragma once

#include "view/widget.h"

#include <vector>

namespace zol::view::qt {

// The window's controls in reading order: frame by frame, in each frame from top to bottom and from
// left to right, a tall control after the lines to its left. The tables have them in another order,
// that of the collection of controls.
std::vector<Widget*> reading_order(const Widget& window);

} // namespace zol::view::qt
