// The decoration of the splash window and the connection dialog: small, quiet, drawn in code.
#pragma once

#include "view/widget.h"

class QWidget;

namespace zol::view::qt {

// A turning globe, or an aurora on the connection dialog. It stands still while nobody sees it, and
// where it is too small to be watched.
QWidget* make_movie(const Widget& model, QWidget& parent);

} // namespace zol::view::qt
