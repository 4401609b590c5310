// Message, input and colour boxes. Each function returns when the operator has answered. The box
// blocks input to all other windows, but the pump keeps running during it, and so do timers and the
// serial line.
#pragma once

#include "view/view.h"

namespace zol::view::qt {

// Closing a question by the title bar or Escape is Answer::no.
Answer ask_message(const MessageBox& box);
// Returns the entered text, or "" if cancelled.
std::string ask_text(const std::string& prompt, const std::string& title);
// Returns the chosen colour, or `start` if cancelled.
Colour ask_colour(Colour start);

} // namespace zol::view::qt
