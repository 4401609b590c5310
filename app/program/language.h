// The choice of the language, which sets all captions again.
#pragma once

#include <string>

namespace zol::app {

// Ticks the language's menu item, stores the choice and refills all captions.
void set_language(const std::string& code);
// Takes the stored language, if it is one of the five.
void load_language();
void connect_language_menu();

} // namespace zol::app
