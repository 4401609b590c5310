// The boxes that ask the operator. They are modal to him, but not to the program: its pump runs on,
// and with it timers and line, until he has answered.
#pragma once

#include "view/view.h"

namespace zol::view::qt {

Answer ask_message(const MessageBox& box);
std::string ask_text(const std::string& prompt, const std::string& title);
Colour ask_colour(Colour start);

} // namespace zol::view::qt
