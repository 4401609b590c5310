// The longest texts that the program shows on labels and in fields. Parameters and live values go
// up to 65535.
#pragma once

#include "view/widget.h"

#include <string>
#include <vector>

namespace zol::view {

struct LongestTexts {
    Widget* widget;
    std::vector<std::string> texts;
};

// For every window, in the current language.
std::vector<LongestTexts> longest_texts();

} // namespace zol::view
