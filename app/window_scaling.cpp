#include "app/window_scaling.h"

#include "app/numbers.h"
#include "view/view.h"

namespace zol::app {
namespace {

using view::frame_without_menu;
constexpr double frame_with_menu = 690; // height of title bar and menu bar, twips
// Height that controls cannot use: title bar, menu bar and a strip at the bottom of the screen, in
// twips.
constexpr double unusable_without_menu = 705, unusable_with_menu = view::frame_and_foot_with_menu;
constexpr double least_font_size = 4.5; // points
// A combo box derives its height from its font: so many twips a point, plus a border.
constexpr double list_twips_per_point = 28, list_border_twips = 84;
// Converts a picture's units into twips.
constexpr double picture_twips = 0.572;

void multiply(const Resizable& control, Property property, double factor) {
    if (const auto value = control.get(property)) control.set(property, *value * factor);
}

void enlarge(const Resizable& control) {
    const auto height = control.get(Property::height);
    multiply(control, Property::width, scale_factors.width);
    multiply(control, Property::height, scale_factors.height);
    multiply(control, Property::font_size, scale_factors.height);
    if (!height) return;
    // The font is scaled after the height, so that this check sees how the control reacted to its
    // height.
    const double wanted_height = *height * scale_factors.height;
    const auto reached = control.get(Property::height);
    if (reached && *reached < wanted_height * 0.9)
        control.set(Property::font_size,
                    (wanted_height - list_border_twips) / list_twips_per_point);
}

void shrink(const Resizable& control) {
    const auto size = control.get(Property::font_size);
    if (size) {
        const double wanted_size = *size * scale_factors.height;
        control.set(Property::font_size, wanted_size);
        // A font that exists in fixed sizes only is replaced by one that can have any size.
        const auto reached = control.get(Property::font_size);
        if (reached && *reached > wanted_size * 1.1) {
            control.set_font_name("Arial");
            control.set(Property::font_size, wanted_size);
        }
    }
    multiply(control, Property::width, scale_factors.width);
    multiply(control, Property::height, scale_factors.height);
    const auto reached = control.get(Property::font_size);
    if (reached && *reached < least_font_size) {
        control.set(Property::font_size, least_font_size);
        control.set(Property::font_bold, 0);
    }
}

void scale_control(const Resizable& control) {
    multiply(control, Property::left, scale_factors.width);
    multiply(control, Property::top, scale_factors.height);
    multiply(control, Property::border_width, scale_factors.width);
    // A width factor of exactly 1 also uses shrink(): its fonts still follow the height.
    if (scale_factors.width > 1)
        enlarge(control);
    else
        shrink(control);
    if (control.type_name == "Line") {
        multiply(control, Property::x1, scale_factors.width);
        multiply(control, Property::y1, scale_factors.height);
        multiply(control, Property::x2, scale_factors.width);
        multiply(control, Property::y2, scale_factors.height);
    }
    if (control.type_name == "PictureBox" && control.stretch_picture)
        control.stretch_picture(scale_factors.width * picture_twips,
                                scale_factors.height * picture_twips);
}

double* place_member(view::Place& place, Property property) {
    switch (property) {
    case Property::left: return &place.left;
    case Property::top: return &place.top;
    case Property::width: return &place.width;
    case Property::height: return &place.height;
    default: return nullptr;
    }
}

bool has_font(view::Kind kind) {
    return kind != view::Kind::shape && kind != view::Kind::picture && kind != view::Kind::movie &&
           kind != view::Kind::progress_bar && kind != view::Kind::slider;
}

std::optional<double> read(const view::Widget& widget, Property property) {
    view::Place place = widget.look.place;
    if (const double* member = place_member(place, property)) return *member;
    if (!has_font(widget.kind)) return std::nullopt;
    if (property == Property::font_size) return widget.look.font_size;
    if (property == Property::font_bold) return widget.look.font_bold ? 1 : 0;
    return std::nullopt;
}

void write(view::Widget& widget, Property property, double value) {
    view::Place place = widget.look.place;
    const bool list = widget.kind == view::Kind::combo_box;
    if (double* member = place_member(place, property)) {
        if (list && property == Property::height) return;
        *member = value;
        view::set_place(widget, place);
    } else if (has_font(widget.kind) && property == Property::font_size) {
        view::set_font(widget, value, widget.look.font_bold);
        if (!list) return;
        place.height = value * list_twips_per_point + list_border_twips;
        view::set_place(widget, place);
    } else if (has_font(widget.kind) && property == Property::font_bold) {
        view::set_font(widget, widget.look.font_size, value != 0);
    }
}

Resizable resizable(view::Widget& widget) {
    return {.type_name = widget.kind == view::Kind::picture ? "PictureBox" : "",
            .get = [&widget](Property property) { return read(widget, property); },
            .set = [&widget](Property property, double value) { write(widget, property, value); },
            .set_font_name = [](const std::string&) {}, // every font here can have any size
            .stretch_picture = nullptr};                // a drawing surface scales its own strokes
}

} // namespace

void scale_window(ScalableWindow& it, double screen_width, double screen_height) {
    if (screen_width == design_width && screen_height == design_height) return;
    if (it.tag == already_scaled) return;
    it.tag = already_scaled;
    const bool without_menu = it.frame_height == frame_without_menu;
    const double unusable = without_menu ? unusable_without_menu : unusable_with_menu;
    scale_factors.width = round_half_even(screen_width) / design_width;
    scale_factors.height = round_half_even(screen_height - unusable) / (design_height - unusable);
    multiply(it.window, Property::width, scale_factors.width);
    multiply(it.window, Property::top, scale_factors.height);
    multiply(it.window, Property::left, scale_factors.width);
    multiply(it.window, Property::height, scale_factors.height);
    for (const Resizable& control : it.controls)
        scale_control(control);
}

void Module_Resize(view::Widget& window) {
    const view::ScreenSize screen = view::screen_size();
    ScalableWindow scalable{window.look.tag,
                            window.menus.empty() ? frame_without_menu : frame_with_menu,
                            resizable(window),
                            {}};
    for (view::Widget* control : window.controls)
        scalable.controls.push_back(resizable(*control));
    scale_window(scalable, screen.width, screen.height);
}

} // namespace zol::app
