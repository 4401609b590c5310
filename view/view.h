// What the logic asks of the screen. Every change of a widget goes through here.
//
// Assignments follow the widget's own rules: a slider rejects a value outside its range; sliders
// marked so in their table, option buttons and check boxes run their handlers inside an assignment
// that changes them; a label runs its change handler when its text really changes.
#pragma once

#include "view/widget.h"

#include <optional>

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

// Values. A slider value outside its range, and a list index outside the list, is rejected: the
// widget keeps what it has and false comes back.
//
// The two that run a handler can send frames and take seconds, because the handler does.
// A slider that is marked so in its table runs its change handler, if the value really changes.
bool set_value_and_run_handler(Widget& slider, double value);
// Switches an option button on (and the others of its parent off) or sets a check box; a change to
// on, and any change of a check box, runs the click handler before the call returns.
void select_and_run_handler(Widget& option_or_check, bool on = true);
// The same for a slider or a bar, and for an option button, without any handler.
bool place_value(Widget& slider_or_bar, double value);
void place_selected(Widget& option);
void set_range(Widget& slider_or_bar, double min, double max);
void set_items(Widget& combo, std::vector<std::string> items); // leaves nothing selected
// One tip for each item; they go with the items.
void set_item_tips(Widget& combo, const std::vector<std::string>& tips);
bool set_list_index(Widget& combo, int index); // runs no handler; -1 selects none

// Whether the operator can use it: its window is shown, and neither it nor any of its parents is
// hidden or disabled.
bool reachable(const Widget& widget);

// Focus. An invisible or disabled control refuses it, and nothing changes. A window as the argument
// takes the focus away from its controls.
void set_focus(Widget& control_or_window);
const Widget* focus();

// Drawing, in the surface's twips.
void draw_line(Widget& picture, double x1, double y1, double x2, double y2, Colour colour);
void fill_rectangle(Widget& picture, double x1, double y1, double x2, double y2, Colour colour);
void clear_drawing(Widget& picture);

// Windows. Loading puts the window's widgets and timers back to their design and runs its load
// handler; unloading runs the closing and unload handlers and hides it. Activation is delivered by
// the pump: after a window has been shown first, and after another window of the program gave way.
void load(Widget& window);
void show(Widget& window);
void hide(Widget& window);
void unload(Widget& window);
// Shows the window and pumps until it is gone.
void show_modal(Widget& window);
void set_window_state(Widget& window, WindowState state);

// Boxes. Timers and the line go on beneath them.
enum class Buttons { ok, yes_no };
enum class Icon { none, information, question, exclamation };
enum class Answer { ok, yes, no };
struct MessageBox {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::none;
};
Answer message_box(const MessageBox& box); // closed by its frame: ok, or no
std::string input_box(const std::string& prompt, const std::string& title); // cancelled: empty
Colour colour_box(Colour start);                                            // cancelled: `start`

// Opens the manual at `topic`; nothing happens where it cannot be shown.
void show_manual(const std::string& file, const std::string& topic);

// The screen's size in twips.
struct ScreenSize {
    double width, height;
};
ScreenSize screen_size();

// Every widget of every window back to its design, no window loaded, no focus. Handlers stay.
void reset();

} // namespace zol::view
