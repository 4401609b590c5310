// The animations on the splash window and the connection dialog, drawn in code. They have no
// function and take no input.
#pragma once

#include "view/widget.h"

class QWidget;

namespace zol::view::qt {

// A turning globe, or an aurora on the connection dialog. It does not move while it is hidden or
// minimised, or if it is smaller than 60 pixels.
QWidget* make_movie(const Widget& model, QWidget& parent);

} // namespace zol::view::qt
