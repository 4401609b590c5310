// The manual, in a window of the program.
#pragma once

#include <memory>
#include <string>

class QWidget;

namespace zol::view::qt {

// A window named `Manual` with the page `topic` of the manual folder beside `file`; null where
// there is no such page. It reads nothing outside that folder.
std::unique_ptr<QWidget> make_manual_window(const std::string& file, const std::string& topic);

} // namespace zol::view::qt
