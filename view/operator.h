// The operator's acts, as a screen reports them. Each keeps the rule that what is hidden or
// disabled, itself or by its frame, menu or window, does not answer: then false comes back and
// nothing happens.
#pragma once

#include "view/widget.h"

namespace zol::view::operator_acts {

bool reachable(const Widget& widget);

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
