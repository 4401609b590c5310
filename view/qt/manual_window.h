// The manual, in a window of the program: contents, search, back.
#pragma once

#include <memory>
#include <string>

class QWidget;

namespace zol::view::qt {

// A window named `Manual` with the page `topic` of the manual folder beside `file`. A page that is
// missing in its language's folder ("pl/index.htm") is taken from the English one ("uk/index.htm");
// null where there is no such page either. It reads nothing outside that folder.
std::unique_ptr<QWidget> make_manual_window(const std::string& file, const std::string& topic);

} // namespace zol::view::qt
