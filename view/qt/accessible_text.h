// The tip, accessible name and accessible description of a widget. The texts come from its help and
// its own tip (app/helper_texts.h); nothing is translated here.
#pragma once

#include "view/widget.h"

#include <QString>

class QWidget;

namespace zol::view::qt {

// The widget's own tip, else its help, broken into short lines and escaped by plain_tip().
QString tip_on_screen(const Widget& model);
// The accessible name: the name in the help, followed by what a label shows; without one the
// caption, else the widget's full name.
QString accessible_name(const Widget& model);
// Sets tip, accessible name and accessible description of `face`. The description is the help,
// followed by the widget's own tip.
void set_accessible_text(const Widget& model, QWidget& face);

} // namespace zol::view::qt
