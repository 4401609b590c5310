// What a label is for, as its place and look in the window's table tell: the view draws titles,
// headings and records in ways of their own.
#pragma once

#include "view/widget.h"

#include <QString>

namespace zol::view::qt {

enum class LabelPart {
    plain,
    title,      // directly above a value, on the window's ground
    tile_title, // the upper part of a dark tile
    tile_value, // the lower part of that tile
    heading,    // of a group without a frame
    record,     // the service line at the foot of the window
};

struct LabelRole {
    LabelPart part = LabelPart::plain;
    const Widget* value = nullptr; // of a title
};

LabelRole label_role(const Widget& label);

// A title and its unit. The unit is that of the title's text, behind two blanks, else that of a
// live value's spoken name.
struct TitleTexts {
    QString title, unit;
};
TitleTexts title_texts(const Widget& title, const Widget& value);

} // namespace zol::view::qt
