// The texts that a widget may show: each has a rule, and one without a rule keeps its own.
#pragma once

#include "view/widget.h"

#include <string>

namespace zol::soak {

// Empty, or what is wrong with the text that the widget shows now. What the operator types is not
// to be asked about.
std::string wrong_text(const view::Widget& widget);

} // namespace zol::soak
