// Which controls of the main window take which colour: at its activation, and from the text colour
// dialog.
#pragma once

#include "view/widget.h"

#include <optional>

namespace zol::app {

// The dark red ground of the values that came with the EOBD link.
void colour_dark_labels();
// The stored text colour; nothing while none, or no colour, is stored.
std::optional<view::Colour> text_colour();
// Every control of the main window, once, at its first activation.
void colour_all_controls();
// Asks for the text colour, shows it at once on the shorter of the two lists, and stores it.
void choose_text_colour();

} // namespace zol::app
