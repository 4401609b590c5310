// What a screen reader is told of an option button.
#pragma once

namespace zol::view::qt {

// The toolkit takes a button for a check box as soon as it does not switch its neighbours off by
// itself. Here the logic does that, and an option is announced as one of several all the same.
// Before the first window is built; a second call changes nothing.
void announce_options_as_options();

} // namespace zol::view::qt
