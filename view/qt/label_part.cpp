#include "view/qt/label_part.h"

#include "view/windows/style.h"

#include <algorithm>

namespace zol::view::qt {
namespace {

constexpr double live_points = 20; // the smallest font size of a live value

bool is_value(const Widget& w) {
    constexpr double value_points = 12;
    return w.kind == Kind::label && w.design.font_bold && w.design.font_size >= value_points &&
           w.design.back != windows::paper;
}

bool stands_on(const Widget& title, const Widget& value) {
    const Place &upper = title.design.place, &lower = value.design.place;
    return title.kind == Kind::label && title.parent == value.parent && is_value(value) &&
           upper.left == lower.left && upper.top + upper.height == lower.top;
}

bool makes_tile(const Widget& title, const Widget& value) {
    return title.design.back == windows::field && value.design.back == windows::field &&
           value.design.font_size < live_points;
}

bool is_heading(const Widget& label) {
    constexpr double heading_points = 10;
    const Look& look = label.design;
    return look.back == windows::paper && look.font_size == heading_points && look.font_bold &&
           look.align == Align::left;
}

} // namespace

LabelRole label_role(const Widget& label) {
    if (label.kind != Kind::label) return {};
    if (label.design.fore == windows::graphite) return {LabelPart::record};
    if (is_heading(label)) return {LabelPart::heading};
    for (const Widget* other : label.window->controls) {
        if (stands_on(label, *other))
            return {makes_tile(label, *other) ? LabelPart::tile_title : LabelPart::title, other};
        if (stands_on(*other, label) && makes_tile(*other, label)) return {LabelPart::tile_value};
    }
    return {};
}

TitleTexts title_texts(const Widget& title, const Widget& value) {
    const QString text = QString::fromStdString(title.look.text);
    if (const auto gap = text.indexOf("  "); gap > 0)
        return {text.left(gap).trimmed(), text.mid(gap).trimmed()};
    const QString name = QString::fromStdString(value.help.name);
    const auto comma = name.lastIndexOf(", ");
    const bool live = title.design.back == windows::field;
    return {text.trimmed(), live && comma > 0 ? name.mid(comma + 2) : QString()};
}

} // namespace zol::view::qt
