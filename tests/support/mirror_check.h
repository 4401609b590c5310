// The mirror check: compares every window, control and menu of the toolkit with the program's data
// and names each difference.
//
// It finds the toolkit's objects by name and computes on its own what each must show, so that it
// shares no error with the code under test. It compares text, colours, visibility, enabled state,
// ticks, values and ranges, lists, pointer, focus, tab stop, tip, title and window state, and finds
// missing and additional windows. It does not compare positions and drawings. Message, input and
// colour boxes and the manual have no data and are left out.
//
// Call it on the toolkit's thread when the program has handled all input and the screen is up to
// date.
#pragma once

#include <string>
#include <vector>

namespace zol::tests {

// One line for each difference, as in "Form1.Label_rpm: text is "849" on the screen, "850" in the
// data". Empty if there is none.
std::vector<std::string> mirror_differences();

} // namespace zol::tests
