// What a widget is: a name, a kind, and a look that the logic sets and the screen shows.
//
// The windows (view/windows/) are tables of widgets. The logic changes a widget only through
// view.h, so that the rules of assignment hold and the screen is notified of each change. Nothing
// here depends on a toolkit.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zol::view {

enum class Kind {
    window,
    menu,      // opens a list: a top-level menu or a submenu
    menu_item, // runs a handler or shows a tick
    separator,
    label,
    command_button,
    option_button,
    check_box,
    text_box,
    combo_box,
    frame,
    slider,
    progress_bar,
    shape,   // a lamp: a circle filled with its background colour
    picture, // a drawing surface
    movie,   // decoration, drawn by the toolkit
};

// How much of a window's designed height is not available to its controls, in twips. Without menus
// it is the title bar; with menus it is title bar, menu bar and the unused strip at the bottom of
// the screen.
constexpr double frame_without_menu = 405, frame_and_foot_with_menu = 990;

// A colour with red in the low byte: r + 256 g + 65536 b.
using Colour = std::int32_t;
constexpr Colour rgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }
constexpr Colour red = 255;
constexpr Colour green = 65280;
constexpr Colour yellow = 65535;
constexpr Colour dark_red = 64;
constexpr Colour light_red = 8421631; // an entry field in which a number is being typed
constexpr Colour white = 16777215;
constexpr Colour black = 0;
// The toolkit's default colour for this kind of widget.
constexpr Colour system_colour = -1;

// `custom` is the control's own pointer, a pointing hand.
enum class Pointer { normal = 0, hourglass = 11, custom = 99 };
enum class WindowState { normal = 0, minimised = 1, maximised = 2 };
enum class Align { left, centre, right };

// Left, top, width and height in twips (15 to a pixel before scaling), relative to the parent.
struct Place {
    double left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Place&) const = default;
};

// One stroke on a drawing surface, in twips before scaling: a line between two points, or a filled
// rectangle with the two points as opposite corners.
struct Stroke {
    enum class Shape { line, filled_rectangle } shape;
    double x1, y1, x2, y2;
    Colour colour;
    bool operator==(const Stroke&) const = default;
};

// What a list shows at the right of an item. Pale: there is nothing to choose.
struct ItemNote {
    std::string text;
    bool pale = false;
    bool operator==(const ItemNote&) const = default;
};

// Everything about a widget that can change. Members that a kind does not use keep their default.
struct Look {
    std::string text; // caption, content of a text box, title of a window
    std::string tip;
    Colour back = system_colour;
    Colour fore = system_colour;
    double value = 0; // slider, progress bar; option button and check box: 0 or 1
    double min = 0, max = 100;
    int small_change = 1, large_change = 1, tick_every = 0;
    double selection_length = 0; // slider: length of the highlighted range from its lower end
    bool vertical = false;
    std::vector<std::string> items;     // combo box
    std::vector<std::string> item_tips; // combo box: one for each item, or none at all
    std::vector<ItemNote> item_notes;   // combo box: one for each item, or none at all
    int list_index = -1;                // combo box: the selected item from 0, -1 for none
    bool visible = true;
    bool enabled = true;
    bool checked = false; // menu item
    bool tab_stop = true;
    bool edit_marker = false; // text box: cleared, a number is being typed
    Pointer pointer = Pointer::normal;
    Place place;
    double font_size = 8.25; // points
    bool font_bold = false;
    std::string font_name;
    Align align = Align::left;
    WindowState state = WindowState::normal;
    std::string tag;             // window: set once it has been scaled (app/window_scaling.h)
    std::vector<Stroke> strokes; // drawing surface; on a frame they are drawn under its controls
};

// Handlers of the operator's acts and of the widget's own events. An empty one means that the event
// is ignored.
struct Handlers {
    std::function<void()> click; // button, option, check box, label, menu item, text box; slider:
                                 // the end of a drag
    std::function<void()> double_click; // label
    std::function<void()> change;       // slider value, label text, combo selection
    std::function<void()> scroll;       // slider while it is moved by the operator
    std::function<void()> got_focus;
    std::function<void()> opens;                  // menu, combo box: the list is about to be shown
    std::function<void(int code, int shift)> key; // a window's runs before the focused control's
    std::function<void()> load, activate, deactivate, closing, unload; // windows
};

inline void run(const std::function<void()>& handler) {
    if (handler) handler();
}

// A key of the keyboard, as its cap reads, and what it does.
struct KeyHint {
    std::string key, does;
    bool operator==(const KeyHint&) const = default;
};

// What assistive tools announce for a control, and its tip, in the operator's language. It is not
// part of the look, so loading a window keeps it.
struct Help {
    std::string name; // accessible name, with the unit; empty: the caption is the name
    std::string text; // what the control does; shown as its tip if `look.tip` is empty
    std::vector<KeyHint> keys = {}; // panel: the keys of its legend
    bool operator==(const Help&) const = default;
};

struct Widget;

// A widget as a window's table defines it. The setters return the design, so that a row is one
// expression.
struct Design {
    std::string_view name;
    Kind kind;
    Widget* parent; // null for a window; else the window, a frame or a menu
    Look look;
    int index = -1;                     // place in a control array, -1 outside one
    bool changes_on_assignment = false; // slider: an assignment from code runs its change handler
    const Widget* panel = nullptr;      // button: the panel that it shows

    Design& font(double points, bool bold = false) {
        look.font_size = points, look.font_bold = bold;
        return *this;
    }
    Design& colours(Colour back, Colour fore = system_colour) {
        look.back = back, look.fore = fore;
        return *this;
    }
    Design& fore(Colour colour) {
        look.fore = colour;
        return *this;
    }
    Design& aligned(Align align) {
        look.align = align;
        return *this;
    }
    Design& hidden() {
        look.visible = false;
        return *this;
    }
    Design& disabled() {
        look.enabled = false;
        return *this;
    }
    Design& pointer(Pointer pointer) {
        look.pointer = pointer;
        return *this;
    }
    Design& no_tab_stop() {
        look.tab_stop = false;
        return *this;
    }
    Design& range(double min, double max) {
        look.min = min, look.max = max;
        return *this;
    }
    Design& starts_at(double value) {
        look.value = value;
        return *this;
    }
    Design& steps(int small, int large, int tick_every = 0) {
        look.small_change = small, look.large_change = large, look.tick_every = tick_every;
        return *this;
    }
    Design& upright() {
        look.vertical = true;
        return *this;
    }
    Design& runs_change_on_assignment() {
        changes_on_assignment = true;
        return *this;
    }
    Design& opens(const Widget& frame) {
        panel = &frame;
        return *this;
    }
    Design& drawn(std::vector<Stroke> strokes) {
        look.strokes = std::move(strokes);
        return *this;
    }
    Design& at_index(int i) {
        index = i;
        return *this;
    }
    Design& tip(std::string text) {
        look.tip = std::move(text);
        return *this;
    }
};

Design window(std::string_view name, std::string text, Place place);
Design menu(std::string_view name, Widget& parent, std::string text);
Design menu_item(std::string_view name, Widget& parent, std::string text);
Design separator(std::string_view name, Widget& parent, std::string text = "-");
// Any other control. `parent` is the window or a frame of it.
Design control(Kind kind, std::string_view name, Widget& parent, Place place,
               std::string text = "");

struct Widget {
    explicit Widget(const Design& design);
    Widget(const Widget&) = delete;
    Widget& operator=(const Widget&) = delete;

    const std::string name; // without an index
    const int index;        // -1 outside a control array
    const Kind kind;
    Widget* const parent;
    Widget* const window;             // the window that it is in; for a window, itself
    const bool changes_on_assignment; // see Design, also for `panel`
    const Widget* const panel;
    const Look design;
    Look look;
    Help help;
    Handlers on;
    // How often its text was set, also to the one that it had: a value that is read again and again
    // is alive even if it stays the same.
    unsigned times_set = 0;

    // Windows only.
    bool loaded = false;
    bool shown = false;
    bool activation_due = false;
    bool unloading = false;
    std::vector<Widget*> controls; // in the order of the window's table, without menus
    std::vector<Widget*> menus;    // the whole menu tree, in order
};

// A control array: its elements are accessed by index. Indices may be missing.
class WidgetArray {
  public:
    // Builds one widget with `design(index)` for each index from `first` to `last`, except for the
    // index `missing`; -1 leaves none out.
    WidgetArray(int first, int last, int missing, const std::function<Design(int)>& design);

    Widget& operator[](int index); // the index must exist
    Widget* find(int index);       // null where there is none
    std::deque<Widget>& all() { return items_; }

  private:
    std::deque<Widget> items_;
};

// The name with the index of a control array, such as "Slider1(2)"; else the plain name.
std::string full_name(const Widget& widget);

// Every window of the program, in no particular order.
std::vector<Widget*>& all_windows();
// The control or menu item of that name, as full_name gives it; null where there is none.
Widget* find_widget(Widget& window, std::string_view full_name);

} // namespace zol::view
