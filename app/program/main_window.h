// The main window's frame: the buttons that switch panels, the service controls and the menu
// entries that open windows.
#pragma once

#include <string>

namespace zol::app {

// Opens the manual at a topic; nothing happens where it cannot be shown.
void ShowHtmlHelp(const std::string& file, const std::string& topic);

void connect_main_window();

} // namespace zol::app
