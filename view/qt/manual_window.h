// Builds the window of the manual: contents, search field, Back button and page.
#pragma once

#include <memory>
#include <string>

class QWidget;

namespace zol::view::qt {

// Builds a window with the object name `Manual` and the page `topic` ("pl/index.htm") of the folder
// `manual` in the folder of `file`. If the page is missing, the English one of that name is shown
// ("uk/index.htm"). Null if there is no such page either. The window opens no file outside that
// folder. It is not shown yet.
std::unique_ptr<QWidget> make_manual_window(const std::string& file, const std::string& topic);

} // namespace zol::view::qt
