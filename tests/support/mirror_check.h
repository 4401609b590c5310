// The mirror check: compares every window, control and menu that the toolkit has with the program's
// data, and names each difference.
//
// It knows the toolkit's objects by their names alone and works out by itself what each must show,
// so it shares no mistake with the code that mirrors. It compares text, colours, visibility,
// enabled state, ticks, values and ranges, lists, pointer, focus, tab stop, tip, title and window
// state, and looks for windows too many or too few. Where a control is and what is drawn on it, it
// does not compare. Message, input and colour boxes and the manual have no data, and are left out.
//
// Call it on the toolkit's thread once nothing is under way: acts of the operator are with the
// program, and the screen has caught up.
#pragma once

#include <string>
#include <vector>

namespace zol::tests {

// One line for each difference, as in "Form1.Label_rpm: text is "849" on the screen, "850" in the
// data". Empty if there is none.
std::vector<std::string> mirror_differences();

} // namespace zol::tests
