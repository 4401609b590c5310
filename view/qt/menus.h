// The menu tree of a window.
#pragma once

#include "view/widget.h"

#include <unordered_map>

class QAction;
class QMenuBar;

namespace zol::view::qt {

// Builds the whole tree under `bar` and returns what stands for each menu, entry and separator.
std::unordered_map<const Widget*, QAction*> build_menus(Widget& window, QMenuBar& bar);

} // namespace zol::view::qt
