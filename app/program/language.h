// The choice of the language, which sets all captions again.
#pragma once

#include <string>

namespace zol::app {

// Ticks the language's menu item, stores the choice and refills all captions.
void set_language(const std::string& code);
// Uses the stored language if it is one of the five; otherwise no language is selected. Sets the
// helper texts.
void load_language();
void connect_language_menu();

} // namespace zol::app
