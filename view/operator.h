// Delivers the operator's acts (clicks, keys, drags ...) to the widgets' handlers. The toolkit
// calls these functions for real input, tests call them directly.
//
// An act returns true when it is done and its handler, if there is one, has run. It returns false
// and does nothing if the widget is hidden or disabled, itself or through its frame, menu or
// window, or if too many acts are running.
#pragma once

#include "view/widget.h"

namespace zol::view::operator_acts {

// A handler pumps events while it waits, so the next act runs inside it. At most this many acts may
// be nested; further ones are dropped, because a flood of keys would otherwise exhaust the stack.
// An act takes about 1.2 KiB of the 8 MiB stack (measured without optimisation). The limit is far
// lower than the stack allows because each nested act still sends its writes after the flood, for
// about a second each; it is as high as the number of repeats of a key held for one second. Closing
// a window does not count: a window closes once, however often it is asked to.
constexpr int deepest_acts = 30;

// Whether the Tab key reaches the widget. True also for a label with a click handler.
bool takes_focus_by_tab(const Widget& widget);

// Button, option, check box, label, menu item or text box. Gives the focus to a control that takes
// it.
bool click(Widget& widget);
bool double_click(Widget& widget);
// One step of a drag that is not finished: sets the slider's value and runs `scroll` if the value
// changed, but not `change`. The value is limited to the range in the slider's design.
bool drag_on(Widget& slider, double value);
// The end of a drag, and a whole drag or a key or wheel step. Runs `change` if the value differs
// from `before` (the value when the drag began), then always `click`. `drag_to` runs `scroll`
// first. If end_drag() returns false, a slider that can be used goes back to `before`.
bool end_drag(Widget& slider, double before);
bool drag_to(Widget& slider, double value);
// Selects an item from 0 and runs the click handler, also if the item was selected already. False
// if the list has no such item.
bool choose(Widget& combo, int index);
// Replaces the text of a text box. Runs no handler.
bool type(Widget& text_box, const std::string& whole_text);
// Runs the window's key handler first, then that of the focused control.
bool key(Widget& window, int code, int shift);
bool focus(Widget& control); // by Tab; see takes_focus_by_tab
bool open(Widget& list);     // a menu or a combo box, before its list is shown
bool close(Widget& window);  // by its title bar

constexpr int enter = 13;                               // a key code
constexpr int shift_key = 1, ctrl_key = 2, alt_key = 4; // bits of a shift state

} // namespace zol::view::operator_acts
