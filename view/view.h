// The functions with which the logic reads and changes widgets, windows and boxes. Every change of
// a widget goes through here.
//
// Assigning follows these rules: a slider rejects a value outside its range. An option button, a
// check box and a slider with Widget::changes_on_assignment run their handler inside the assignment
// that changes them. A label runs its change handler when its text really changes.
#pragma once

#include "view/widget.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zol::view {

// Reading.
inline const std::string& text(const Widget& w) { return w.look.text; }
inline double value(const Widget& w) { return w.look.value; }
inline bool selected(const Widget& w) { return w.look.value != 0; } // option button, check box
inline bool visible(const Widget& w) { return w.look.visible; }
inline bool enabled(const Widget& w) { return w.look.enabled; }
inline bool checked(const Widget& w) { return w.look.checked; }

// Appearance.
void set_text(Widget& w, const std::string& text);
void set_tip(Widget& w, const std::string& tip);
void set_help(Widget& w, const Help& help);
void set_back(Widget& w, Colour colour);
void set_fore(Widget& w, Colour colour);
void set_visible(Widget& w, bool visible);
void set_enabled(Widget& w, bool enabled);
void set_pointer(Widget& w, Pointer pointer);
void set_checked(Widget& menu_item, bool checked);
void set_tab_stop(Widget& w, bool tab_stop);
void set_edit_marker(Widget& text_box, bool marked);
void set_selection_length(Widget& slider, double length);
void set_place(Widget& w, const Place& place);
void set_font(Widget& w, double points, bool bold);

// Values. A value outside the slider's range and an index outside the list are rejected: the widget
// keeps its value and the call returns false.
//
// The two functions that run a handler can take seconds, because a handler may send frames and
// wait.

// Sets a slider. Runs its change handler if the value changes and the slider has
// Widget::changes_on_assignment.
bool set_value_and_run_handler(Widget& slider, double value);
// Switches an option button on, and the others of its parent off, or sets a check box. Runs the
// click handler before it returns, if an option button is switched on or the check box changes.
void select_and_run_handler(Widget& option_or_check, bool on = true);
// Sets a slider or progress bar, and switches an option button on. Neither runs a handler.
bool place_value(Widget& slider_or_bar, double value);
void place_selected(Widget& option);
// Limits the value to the new range.
void set_range(Widget& slider_or_bar, double min, double max);
void set_items(Widget& combo, std::vector<std::string> items); // leaves nothing selected
// One tip for each item. set_items() removes them.
void set_item_tips(Widget& combo, const std::vector<std::string>& tips);
void set_item_notes(Widget& combo, const std::vector<ItemNote>& notes); // likewise
bool set_list_index(Widget& combo, int index); // runs no handler; -1 selects none

// Whether the operator can use the widget: its window is shown, and neither the widget nor any of
// its parents is hidden or disabled.
bool reachable(const Widget& widget);

// Focus. A hidden or disabled control is not given the focus; the call then has no effect. A window
// as the argument takes the focus away from its controls. Runs the got_focus handler.
void set_focus(Widget& control_or_window);
const Widget* focus(); // null if no control or window has it

// Drawing, in twips of the surface before scaling.
void draw_line(Widget& picture, double x1, double y1, double x2, double y2, Colour colour);
void fill_rectangle(Widget& picture, double x1, double y1, double x2, double y2, Colour colour);
void clear_drawing(Widget& picture);

// Windows. Loading gives the window's widgets and timers their designed state and runs the load
// handler; it has no effect on a loaded window. Unloading runs the closing and unload handlers and
// hides the window. The pump delivers a window's activation after it was shown, and after another
// window of the program, which was active, was hidden or unloaded. The active window's deactivate
// handler runs when another window is shown and when it is hidden or unloaded itself.
void load(Widget& window);
void show(Widget& window);
void hide(Widget& window);
void unload(Widget& window);
// Shows the window and pumps until it is hidden or unloaded.
void show_modal(Widget& window);
void set_window_state(Widget& window, WindowState state);

// Boxes. Each call returns when the operator has closed the box. Timers, serial line and handlers
// run meanwhile.
enum class Buttons { ok, yes_no };
enum class Icon { none, information, question, exclamation };
enum class Answer { ok, yes, no };
struct MessageBox {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::none;
    bool no_by_default = false; // Enter alone answers No
};
Answer message_box(const MessageBox& box); // closed by its title bar: ok, or no
std::string input_box(const std::string& prompt, const std::string& title); // cancelled: empty
Colour colour_box(Colour start);                                            // cancelled: `start`
// What the toolkit's own boxes say, in the operator's language, by their English: "Yes", "No".
// Boxes that open from now on use it; what is missing stays English.
void offer_box_texts(std::map<std::string, std::string> texts);

// Opens the manual's page `topic`, such as "de/index.htm". The pages are in the folder "manual"
// next to `file`, which need not exist. Has no effect if the page cannot be shown.
void show_manual(const std::string& file, const std::string& topic);

// The screen's size in twips.
struct ScreenSize {
    double width, height;
};
ScreenSize screen_size();

// Gives every widget its designed look, unloads every window without running handlers, and takes
// the focus away. Handlers stay connected. For tests.
void reset();

} // namespace zol::view
