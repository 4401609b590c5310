// Which of the program's controls the operator has laid hands on, over all visits.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zol::tour {

// In the folder of the tour's pictures.
constexpr const char* touched_file = "touched.txt";

// Notes an act in the file `notes`: every visit is a process of its own, a file outlives them all.
void note_touched(const std::filesystem::path& notes, const std::string& window,
                  const std::string& name);

// The buttons, options, boxes, sliders, lists, fields and menu items of all windows that no visit
// has touched, as "Form1 Command5". Left out are those that no operator can reach.
std::vector<std::string> untouched(const std::filesystem::path& notes);

} // namespace zol::tour
