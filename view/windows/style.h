// What the tables of all windows share: the palette, and one function for each kind of row, which
// gives it colours, font and alignment. It does not say how these are drawn: see view/qt/face.h.
#pragma once

#include "view/widget.h"

#include <string>
#include <string_view>
#include <utility>

namespace zol::windows {

using view::Align;
using view::Colour;
using view::Design;
using view::Kind;
using view::Place;
using view::Pointer;
using view::rgb;
using view::Widget;
using view::WidgetArray;
using view::window;

constexpr Colour paper = rgb(236, 238, 240); // background of the windows, the toolkit's default too
constexpr Colour ink = rgb(34, 40, 45);
constexpr Colour cream = rgb(255, 243, 214); // text on a dark background
constexpr Colour chalk = rgb(250, 251, 252); // background of small values
constexpr Colour steel = rgb(192, 192, 192); // command buttons
constexpr Colour claret = rgb(154, 0, 0);    // connection dialog and parameter window
constexpr Colour slate = rgb(18, 22, 26);    // drawing surface
constexpr Colour straw = rgb(255, 236, 160); // the status line of the tuning run
constexpr Colour graphite = rgb(79, 89, 81); // service records
constexpr Colour field = view::dark_red;     // background of the live values

// A plain text with the background of the window.
inline Design caption(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::label, name, parent, place, std::move(text)).colours(paper, ink);
}

// The title of a live value. It is placed directly above the value, without a gap.
inline Design title(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::label, name, parent, place, std::move(text))
        .colours(field, cream)
        .aligned(Align::centre);
}

// A live value in a large font, readable from a distance.
inline Design figure(std::string_view name, Widget& parent, Place place, std::string text,
                     double points) {
    return title(name, parent, place, std::move(text)).font(points, true);
}

// A value in a small font.
inline Design reading(std::string_view name, Widget& parent, Place place, std::string text,
                      double points = 10) {
    return control(Kind::label, name, parent, place, std::move(text))
        .colours(chalk, ink)
        .aligned(Align::centre)
        .font(points, true);
}

inline Design button(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::command_button, name, parent, place, std::move(text))
        .colours(steel, ink)
        .pointer(Pointer::custom);
}

inline Design option(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::option_button, name, parent, place, std::move(text)).colours(paper, ink);
}

inline Design group(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::frame, name, parent, place, std::move(text)).colours(paper, ink);
}

// An entry field for a number.
inline Design entry(std::string_view name, Widget& parent, Place place) {
    return control(Kind::text_box, name, parent, place).colours(view::white, ink).font(10);
}

// Vertical sliders have their lowest value at the top.
inline Design slider(std::string_view name, Widget& parent, Place place) {
    return control(Kind::slider, name, parent, place).colours(paper, ink);
}

} // namespace zol::windows
