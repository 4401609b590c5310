// Scales a window that was designed for a screen of 675 by 600 pixels to the present screen.
#pragma once

#include "view/widget.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zol::app {

// A property that a control may have. Positions and sizes are in twips, font sizes in points.
enum class Property {
    left,
    top,
    width,
    height,
    border_width,
    font_size,
    font_bold,
    x1,
    y1,
    x2,
    y2
};

// A control as the scaling sees it. `get` returns nothing for a property that the control lacks,
// and `set` of it has no effect; a control may also refuse a value, and then `get` returns the old
// one. So an error in one step does not stop the scaling.
struct Resizable {
    std::string type_name; // "Line" has end points, "PictureBox" has a picture
    std::function<std::optional<double>(Property)> get;
    std::function<void(Property, double)> set;
    std::function<void(const std::string&)> set_font_name;
    // Stretches the control's picture by these factors; empty if it has none.
    std::function<void(double width_factor, double height_factor)> stretch_picture;
};

struct ScalableWindow {
    std::string& tag;
    double frame_height; // height of title bar and menu bar, twips
    Resizable window;
    std::vector<Resizable> controls; // in the order of the window's table
};

// The factors of the last window that was scaled; 1 before the first.
struct ScaleFactors {
    double width = 1, height = 1;
};
inline ScaleFactors scale_factors;

// The design's screen of 675 by 600 pixels, in twips.
constexpr double design_width = 10125, design_height = 9000;
// The tag of a window that has been scaled: it is not scaled again.
constexpr const char* already_scaled = "ResizeON";

// Scales the window to a screen of this size in twips. On a screen of exactly the design size,
// window and tag do not change.
void scale_window(ScalableWindow& window, double screen_width, double screen_height);

// Scales a window of the program to the screen in use.
void Module_Resize(view::Widget& window);

} // namespace zol::app
