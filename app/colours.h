// The colours of the main window's controls: set at its activation and by the text colour dialog.
#pragma once

#include "view/widget.h"

#include <optional>

namespace zol::app {

// Gives the labels of diagnosis data and battery their dark red background.
void colour_dark_labels();
// The stored text colour. Nothing if none, or a text that is not a colour, is stored.
std::optional<view::Colour> text_colour();
// Colours every control of the main window. Called at its first activation only.
void colour_all_controls();
// Asks the operator for the text colour, stores it, and gives it to most of the labels that use it.
// The others take it at the next start.
void choose_text_colour();

} // namespace zol::app
