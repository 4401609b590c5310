// Which controls of the program the tour has used, over all visits.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zol::tour {

// In the folder of the screenshots.
constexpr const char* touched_file = "touched.txt";

// Adds a control to the file `notes`. It is a file because every visit is its own process.
void note_touched(const std::filesystem::path& notes, const std::string& window,
                  const std::string& name);

// The buttons, options, boxes, sliders, lists, fields and menu items of all windows that no visit
// has used, as "Form1 Command5", without those that no operator can reach.
std::vector<std::string> untouched(const std::filesystem::path& notes);

} // namespace zol::tour
