// Corrects what the toolkit announces to a screen reader for three kinds of control. Names and
// descriptions are set in accessible_text.h.
#pragma once

namespace zol::view::qt {

// An option button: without auto-exclusive mode, which the logic replaces, the toolkit announces it
// as a check box. Here it stays an option button.
// A list: the toolkit announces only its selected entry as its name. Here its own name comes first.
// A window without menus: the toolkit gives it the role of a filler and does not announce that it
// has opened. Here its role is window.
// Call this before the first window is built. A second call changes nothing.
void correct_accessible_roles();

} // namespace zol::view::qt
