// What a screen reader is told of a part where the toolkit's own word misleads.
#pragma once

namespace zol::view::qt {

// Three corrections. An option button: the toolkit takes it for a check box as soon as it does not
// switch its neighbours off by itself; here the logic does that, and it is announced as one of
// several all the same. A list: the toolkit gives it the name of its present entry; it says its own
// before that. A window without menus: the toolkit takes it for a filler, and nobody is told that
// it has opened.
// Before the first window is built; a second call changes nothing.
void correct_speech();

} // namespace zol::view::qt
