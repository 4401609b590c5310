// The longest texts that the program itself puts on its labels and into its fields. A parameter and
// a word of a telegram go to 65535.
#pragma once

#include "view/widget.h"

#include <string>
#include <vector>

namespace zol::view {

struct LongestTexts {
    Widget* widget;
    std::vector<std::string> texts;
};

// Of every window. Words of the current language are among them, so ask again when it changed.
std::vector<LongestTexts> longest_texts();

} // namespace zol::view
