// Builds the menus of a window. A click or an opened menu is posted to the logic; later changes of
// the menus come through mirror().
#pragma once

#include "view/widget.h"

#include <unordered_map>

class QAction;
class QMenuBar;

namespace zol::view::qt {

// Builds all menus of `window` in `bar` and returns the Qt action of each menu, item and separator.
std::unordered_map<const Widget*, QAction*> build_menus(Widget& window, QMenuBar& bar);

} // namespace zol::view::qt
