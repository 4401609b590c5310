// The look that the window tables share: one palette, and one row for each kind of part.
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

constexpr Colour paper =
    rgb(229, 233, 237); // ground of the windows, and the default one of the toolkit
constexpr Colour ink = view::black;
constexpr Colour cream = rgb(255, 243, 214); // figures on a dark field
constexpr Colour chalk = rgb(250, 251, 252); // ground of a quiet reading
constexpr Colour steel = rgb(192, 192, 192); // command buttons
constexpr Colour claret = rgb(154, 0, 0);    // connection dialog and parameter window
constexpr Colour slate = rgb(18, 22, 26);    // drawing surface
constexpr Colour straw = rgb(255, 236, 160); // the status line of the tuning run
constexpr Colour graphite = rgb(79, 89, 81); // service records
constexpr Colour field = view::dark_red;     // ground of the live values

// A quiet text on the window's ground.
inline Design caption(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::label, name, parent, place, std::move(text)).colours(paper, ink);
}

// The title of a live value; it stands directly above it, so that the two make one tile.
inline Design title(std::string_view name, Widget& parent, Place place, std::string text) {
    return control(Kind::label, name, parent, place, std::move(text))
        .colours(field, cream)
        .aligned(Align::centre);
}

// A live value to be read from afar.
inline Design figure(std::string_view name, Widget& parent, Place place, std::string text,
                     double points) {
    return title(name, parent, place, std::move(text)).font(points, true);
}

// A value that is read from close by.
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

// Upright sliders have their lowest value at the top.
inline Design slider(std::string_view name, Widget& parent, Place place) {
    return control(Kind::slider, name, parent, place).colours(paper, ink);
}

} // namespace zol::windows
