// The role of a label, derived from its place and design in its window's table. The view draws
// titles, headings and service records differently.
#pragma once

#include "view/widget.h"

#include <QString>

namespace zol::view::qt {

enum class LabelPart {
    plain,
    title,      // directly above a value, drawn on the window's background
    tile_title, // the upper part of a dark tile
    tile_value, // the lower part of that tile
    heading,    // of a group without a frame
    record,     // a service record at the bottom of the main window
};

struct LabelRole {
    LabelPart part = LabelPart::plain;
    const Widget* value = nullptr; // the value that a title belongs to, else null
};

// The role of a widget; `plain` for one that is no label.
LabelRole label_role(const Widget& label);

// Splits a title into text and unit. The unit is what follows two blanks in the text, else what
// follows the last comma in the accessible name of a live value.
struct TitleTexts {
    QString title, unit;
};
TitleTexts title_texts(const Widget& title, const Widget& value);

} // namespace zol::view::qt
