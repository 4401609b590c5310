#include "app/colours.h"

#include "app/app_state.h"
#include "app/settings_file.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace zol::app {
namespace {

// These labels take the panel colour as their background.
constexpr std::string_view panel_coloured[] = {
    "Label24",
    "Label46",
    "Label45",
    "Label25",
    "Label26",
    "Label_attenuazione",
    "Label12",
    "Label18",
    "Label5",
    "Label6",
    "Label7",
    "Label8",
    "Label9",
    "Label10",
    "Label11",
    "Label_led0",
    "Label_led1",
    "Label_led2",
    "Label_led3",
    "Label_led4",
    "Label_livello_att",
    "lbl_200",
    "lbl_201",
    "lbl_202",
    "lbl_203",
    "lbl_204",
    "lbl_205",
    "Label2",
    "Label3",
    "Label4",
    "Label20",
    "lbl204",
    "lbl205",
    "Lbl_fast",
    "lbl_low",
    "Label38",
    "Label39",
    "Label32",
    "Label_medio_closed_loop",
    "Label_lambda_open_loop",
    "Label33",
    "Label29",
    "Label21",
    "Label23",
    "Label22",
    "Label31",
};

// choose_text_colour() colours the labels of the first list only; the activation at the next start
// colours both.
constexpr std::string_view text_coloured_by_dialog[] = {
    "LabeL_pressure", "Label27", "Label_tinj",   "Label_temp", "Label_rpm",
    "lbl_lambda",     "lbl_rpm", "lbl_press",    "lbl_tinj",   "lbl_temp",
    "Label13",        "Label14", "Label_lambda",
};
constexpr std::string_view text_coloured_at_activation_only[] = {
    "Label20", "Label42", "Label49", "Label48", "Label44",
    "Label43", "Label1",  "Label19", "Label16",
};

template <std::size_t N>
bool holds(const std::string_view (&names)[N], const std::string& name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

} // namespace

std::optional<view::Colour> text_colour() {
    view::Colour colour = 0;
    const std::string& text = state.text_colour;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), colour);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (!whole || colour < 0 || colour > view::white) return std::nullopt;
    return colour;
}

void colour_dark_labels() {
    for (view::Widget* label : {&form1::Label1, &form1::Label16, &form1::Label19, &form1::Label20})
        view::set_back(*label, view::dark_red);
}

void colour_all_controls() {
    const auto fore = text_colour();
    for (view::Widget* control : form1::Form1.controls) {
        switch (control->kind) {
        case view::Kind::label:
            if (holds(panel_coloured, control->name)) view::set_back(*control, state.panel_colour);
            if (holds(text_coloured_by_dialog, control->name) ||
                holds(text_coloured_at_activation_only, control->name)) {
                if (fore) view::set_fore(*control, *fore);
            } else if (control->name == "lbl_ore") {
                view::set_fore(*control, view::rgb(79, 89, 81));
            }
            break;
        case view::Kind::command_button: view::set_back(*control, view::rgb(192, 192, 192)); break;
        case view::Kind::option_button:
        case view::Kind::frame:
        case view::Kind::check_box: view::set_back(*control, state.panel_colour); break;
        default: break;
        }
    }
    // Label20 is also in the list above; its dark background takes precedence.
    view::set_back(form1::Label20, view::dark_red);
}

void choose_text_colour() {
    // Where none is stored, the one that the labels have.
    const view::Colour on_view = form1::Label_rpm.look.fore;
    const view::Colour chosen = view::colour_box(text_colour().value_or(on_view));
    state.text_colour = std::to_string(chosen);
    for (view::Widget* control : form1::Form1.controls)
        if (control->kind == view::Kind::label && holds(text_coloured_by_dialog, control->name))
            view::set_fore(*control, chosen);
    write_text_colour(state.text_colour);
}

} // namespace zol::app
