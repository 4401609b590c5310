// The toolkit's side of the view: what a screen must be able to do. view/qt and view/headless
// are the two there are.
#pragma once

#include "view/view.h"

namespace zol::view {

// Which part of a widget's look changed.
enum class Aspect {
    text,
    tip, // also those of a list's items
    help,
    colours,
    value,
    range,
    items,
    visible,
    enabled,
    pointer,
    checked,
    tab_stop,
    edit_marker,
    place,
    font,
    window_state,
    drawing,
};

struct Screen {
    virtual ~Screen() = default;
    // The window's widgets stand at their design; its load handler runs after this.
    virtual void window_loaded(Widget& window) = 0;
    virtual void window_shown(Widget& window, bool shown) = 0;
    virtual void window_unloaded(Widget& window) = 0;
    // Called for windows that are loaded, and only when the aspect really changed.
    virtual void changed(Widget& widget, Aspect aspect) = 0;
    virtual void focus_moved(Widget& control_or_window) = 0;
    virtual Answer message_box(const MessageBox& box) = 0;
    virtual std::string input_box(const std::string& prompt, const std::string& title) = 0;
    virtual Colour colour_box(Colour start) = 0;
    virtual void show_manual(const std::string& file, const std::string& topic) = 0;
    virtual ScreenSize size() = 0;
};

// The state of the view other than the looks of its widgets.
struct ViewState {
    Screen* screen = nullptr;
    std::vector<Widget*> shown; // the active window is the last
    const Widget* focus = nullptr;
    int acts_running = 0; // of the operator, one inside the other
};
inline ViewState view_state;

// The screen in use. It must be set before a window is loaded.
void use_screen(Screen& screen);

} // namespace zol::view
