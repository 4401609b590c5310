// The interface to the toolkit: what a screen must be able to do. It has two implementations:
// view/qt/ shows real windows, view/headless/ shows nothing and records the calls.
//
// view.cpp changes the widgets' data first and then calls the screen. A screen shows the data; the
// rules of assignment are in view.cpp.
#pragma once

#include "view/view.h"

#include <map>
#include <string>
#include <vector>

namespace zol::view {

// Which part of a widget's look changed.
enum class Aspect {
    text,
    tip, // of the widget, or of the items of a combo box; also the items' notes
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
    // Called when the window's widgets have their designed looks, before its load handler runs.
    virtual void window_loaded(Widget& window) = 0;
    virtual void window_shown(Widget& window, bool shown) = 0;
    virtual void window_unloaded(Widget& window) = 0;
    // Called for windows that are loaded, and only when the aspect really changed.
    virtual void changed(Widget& widget, Aspect aspect) = 0;
    virtual void focus_moved(Widget& control_or_window) = 0;
    // The boxes, view.h. Each call returns when the box is closed and pumps events until then.
    virtual Answer message_box(const MessageBox& box) = 0;
    virtual std::string input_box(const std::string& prompt, const std::string& title) = 0;
    virtual Colour colour_box(Colour start) = 0;
    virtual void show_manual(const std::string& file, const std::string& topic) = 0;
    virtual ScreenSize size() = 0; // in twips
};

// The state of the view other than the looks of its widgets.
struct ViewState {
    Screen* screen = nullptr;
    std::vector<Widget*> shown; // windows; the last one is active
    const Widget* focus = nullptr;
    std::vector<const Widget*> acts;              // of the operator, nested in each other
    std::map<std::string, std::string> box_texts; // by their English
};
inline ViewState view_state;

// Sets the screen, which must outlive the program. Must be called before a window is loaded.
void use_screen(Screen& screen);

} // namespace zol::view
