// The operator's acts, as a screen reports them. An act returns false and does nothing if its
// widget is hidden or disabled, itself or by its frame, menu or window, or if too many acts are
// running.
#pragma once

#include "view/widget.h"

namespace zol::view::operator_acts {

// A handler pumps while it waits, so the next act runs inside it. This many acts may run inside
// each other; any more are dropped, or a flood of keys would use up the stack: an act takes
// about 1.2 KiB of its 8 MiB (measured without optimisation). The limit is far lower, because each
// act still has its writes to send when the flood ends, about a second's worth, and as high as a
// key held for one second repeats. Closing a window does not count: a closing runs once, however
// often it is asked.
constexpr int deepest_acts = 30;

// Whether the keyboard can come to it: also to a label that answers to a click, which leaves the
// focus where it is.
bool takes_focus_by_tab(const Widget& widget);

bool click(Widget& widget); // button, option, check box, label, menu item; a text box is entered
bool double_click(Widget& widget);
// A slider while it is dragged: its value and `scroll`, no `change` yet.
bool drag_on(Widget& slider, double value);
// A whole drag, its end, or a key or wheel step: `scroll`, then `change`, if the value is another
// than `before` (the value when the drag began), then `click` in any case.
bool drag_to(Widget& slider, double value);
bool end_drag(Widget& slider, double before);
bool choose(Widget& combo, int index); // runs the click handler, also for the item already shown
bool type(Widget& text_box, const std::string& whole_text);
// A key goes to the window's handler first, then to the focused control's.
bool key(Widget& window, int code, int shift);
bool focus(Widget& control); // by Tab, which also finds labels that answer to a click
bool open(Widget& list);     // a menu or a combo box shows its list
bool close(Widget& window);  // by its frame

constexpr int enter = 13;
constexpr int shift_key = 1, ctrl_key = 2, alt_key = 4; // bits of a shift state

} // namespace zol::view::operator_acts
