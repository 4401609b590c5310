// Text that is never cut: where a caption is longer than its place, its font gives way.
#pragma once

#include "view/widget.h"

class QWidget;

namespace zol::view::qt {

constexpr double least_points = 4.5;

// Gives `face` its font at `points`, or the largest below at which its text fits its size.
void fit_text(const Widget& model, QWidget& face, double points);

} // namespace zol::view::qt
