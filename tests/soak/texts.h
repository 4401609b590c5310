// The texts that each widget may show. A widget without a rule must show its design text.
#pragma once

#include "view/widget.h"

#include <string>

namespace zol::soak {

// What is wrong with the text that the widget shows, or empty. Not for typed text.
std::string wrong_text(const view::Widget& widget);

} // namespace zol::soak
