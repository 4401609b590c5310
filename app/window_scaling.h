// Refits a window that was drawn for a screen of 675 by 600 pixels to the screen it finds.
#pragma once

#include "view/widget.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zol::app {

// What the engine may find on a control. Positions and sizes are twips, sizes of type points.
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

// A control as the engine sees it. A property that it lacks reads as nothing, and writing it does
// nothing; a property that it refuses reads after the write as it was before. So an error in one
// step never stops the pass.
struct Resizable {
    std::string type_name; // "Line" has end points, "PictureBox" a picture
    std::function<std::optional<double>(Property)> get;
    std::function<void(Property, double)> set;
    std::function<void(const std::string&)> set_font_name;
    // A picture to be stretched to so many twips; empty where there is none.
    std::function<void(double width_factor, double height_factor)> stretch_picture;
};

struct ScalableWindow {
    std::string& tag;
    double frame_height; // what title bar and menu take of the window's height
    Resizable window;
    std::vector<Resizable> controls; // in the order of the window's collection
};

// The factors of the last call that scaled a window. 1 before the first.
struct ScaleFactors {
    double width = 1, height = 1;
};
inline ScaleFactors scale_factors;

constexpr double design_width = 10125, design_height = 9000; // 675 x 15, 600 x 15
constexpr const char* already_scaled = "ResizeON";

// The arithmetic. A screen of exactly the design size leaves window and tag untouched.
void scale_window(ScalableWindow& window, double screen_width, double screen_height);

// The same for a window of the program, on the screen in use.
void Module_Resize(view::Widget& window);

} // namespace zol::app
