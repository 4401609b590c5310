// A widget's two colours, where assistive tools and testers look for them: in its palette, under
// its own foreground and background roles.
#pragma once

#include "view/widget.h"

class QWidget;

namespace zol::view::qt {

void mirror_colours(const Widget& model, QWidget& face);

} // namespace zol::view::qt
