// The main window: the buttons that switch panels, the service controls, and the menu items that
// open windows. It does not connect the controls inside the panels.
#pragma once

#include <string>

namespace zol::app {

// Opens the manual's page `topic` in the present language, see view::show_manual. Has no effect if
// it cannot be shown.
void ShowHtmlHelp(const std::string& file, const std::string& topic);

void connect_main_window();

} // namespace zol::app
