#include "view/qt/fit.h"

#include "view/qt/controls.h"
#include "view/qt/face.h"

#include <QApplication>
#include <QComboBox>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleOption>

#include <algorithm>

namespace zol::view::qt {
namespace {

// The area in which the style draws the text of this widget, without its padding.
QSize room_for_text(const Widget& model, const QWidget& face) {
    QStyleOptionButton button;
    button.initFrom(&face);
    const auto inside = [&](QStyle::SubElement element) {
        return face.style()->subElementRect(element, &button, &face).size();
    };
    switch (model.kind) {
    case Kind::command_button: // the focus ring does not touch the text
        return inside(QStyle::SE_PushButtonContents) - QSize(2 * face::ring_room(face) + 4, 2);
    case Kind::option_button: return inside(QStyle::SE_RadioButtonContents) - QSize(2, 0);
    case Kind::check_box: return inside(QStyle::SE_CheckBoxContents) - QSize(2, 0);
    case Kind::frame: return face.size();
    case Kind::text_box: { // without margins and cursor
        QStyleOptionFrame frame;
        frame.initFrom(&face);
        const auto contents =
            face.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &face);
        return {contents.width() - 6, face.height() - 4};
    }
    case Kind::combo_box: {
        QStyleOptionComboBox combo;
        combo.initFrom(&face);
        return face.style()
                   ->subControlRect(QStyle::CC_ComboBox, &combo, QStyle::SC_ComboBoxEditField,
                                    &face)
                   .size() -
               QSize(4, 0);
    }
    default: {
        const bool record = label_role(model).part == LabelPart::record;
        const int air = record ? 2 * face::scaled(face::record_air_px, face) : 0;
        return face.size() - QSize(2 + air, 0);
    }
    }
}

bool breaks_lines(Kind kind) {
    return kind == Kind::label || kind == Kind::command_button || kind == Kind::option_button ||
           kind == Kind::check_box;
}

bool is_number(const std::string& text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The texts that must fit in the font of the widget.
QStringList texts_of(const Widget& model, const QWidget& face) {
    constexpr double read_from_afar_points = 12;
    switch (model.kind) {
    case Kind::combo_box: {
        QStringList items;
        for (const std::string& item : model.look.items)
            items += QString::fromStdString(item);
        return items;
    }
    // The font does not change while a number is typed; no parameter has more digits.
    case Kind::text_box: return face.inherits("QLineEdit") ? QStringList{"0000000"} : QStringList();
    case Kind::label:
        // A live value keeps its font size when it gets another digit.
        if (model.look.font_size >= read_from_afar_points && is_number(model.look.text) &&
            model.look.text.size() < 5)
            return {"00000"};
        return {static_cast<const LabelFace&>(face).text_on_screen()};
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box:
    case Kind::frame: return {QString::fromStdString(model.look.text)};
    default: return {};
    }
}

bool fits(const QFont& font, const QString& text, const QSize& room, bool breaks) {
    const QFontMetrics metrics(font);
    const int spare = metrics.height() - qCeil(letters_height(font));
    if (!breaks)
        return metrics.horizontalAdvance(text) <= room.width() &&
               metrics.height() - spare <= room.height();
    const int flags = line_breaks(metrics, text, room.width());
    if (flags == Qt::TextWrapAnywhere) return false; // only where nothing else fits
    const QRect used = metrics.boundingRect(QRect(0, 0, room.width(), 0), flags, text);
    return used.width() <= room.width() && used.height() - spare <= room.height();
}

// The tables are made for 96 dots per inch. A pixel size that ignores the screen's resolution keeps
// text and place in proportion.
QFont sized(QFont font, double points, const QWidget& face) {
    font.setPointSizeF(std::max(least_points, points) * 96.0 / face.logicalDpiY());
    return font;
}

// Sets each property of the font, because a control would inherit an unset one from its frame.
QFont ranked(const Widget& model, QFont font) {
    if (!model.look.font_name.empty()) font.setFamily(QString::fromStdString(model.look.font_name));
    font.setWeight(model.look.font_bold ? QFont::Bold : QFont::Normal);
    font.setStretch(QFont::AnyStretch);
    font.setCapitalization(QFont::MixedCase);
    font.setLetterSpacing(QFont::PercentageSpacing, 100);
    const LabelPart part = label_role(model).part;
    if (model.kind == Kind::command_button)
        face::rank_as_button(font);
    else if (part == LabelPart::title || part == LabelPart::tile_title)
        face::rank_as_title(font);
    else if (part == LabelPart::record)
        font.setWeight(QFont::Bold);
    else if (model.kind == Kind::frame && FrameFace::names_panel(model))
        face::rank_as_button(font);
    else if (part == LabelPart::heading || model.kind == Kind::frame)
        face::rank_as_heading(font);
    return font;
}

double share_of_rank(const Widget& model) {
    constexpr double heading_points = 10, design_points = 8.25;
    switch (label_role(model).part) {
    case LabelPart::heading: return face::heading_share * design_points / heading_points;
    case LabelPart::record: return face::record_share;
    default: break;
    }
    if (model.kind == Kind::command_button) return face::button_share;
    const bool group = model.kind == Kind::frame && !FrameFace::names_panel(model);
    return group ? face::heading_share : 1;
}

} // namespace

QFont largest_font(const QFont& plain, double points, const QWidget& face,
                   const std::function<bool(const QFont&)>& will_do) {
    constexpr int widths_percent[] = {90, 80, 70, 60, 50};
    for (double p = points;; p -= 0.5) {
        QFont font = sized(plain, p, face);
        if (will_do(font)) return font;
        if (p > least_points && p > points * 0.75) continue;
        for (const int width : widths_percent) {
            font.setStretch(width);
            if (will_do(font)) return font;
        }
        if (p <= least_points) return font;
    }
}

double letters_height(const QFont& font) {
    // From the top of an accented capital to the bottom of a descender.
    constexpr double letters_share = 1.18;
    return std::min<double>(QFontMetrics(font).height(),
                            letters_share * QFontInfo(font).pixelSize());
}

int line_breaks(const QFontMetrics& metrics, const QString& text, int width) {
    int widest = 0;
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts))
        widest = std::max(widest, metrics.horizontalAdvance(word));
    return widest > width ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
}

void fit_text(const Widget& model, QWidget& face, double points) {
    const QStringList texts = texts_of(model, face);
    const bool breaks = breaks_lines(model.kind);
    const QSize room = room_for_text(model, face).expandedTo({1, 1});
    const QFont font = largest_font(
        ranked(model, face::font()), points * share_of_rank(model), face, [&](const QFont& f) {
            return std::all_of(texts.begin(), texts.end(), [&](const QString& text) {
                return text.isEmpty() || fits(f, text, room, breaks);
            });
        });
    if (face.font() != font) face.setFont(font);
}

void fit_menu_bar(QMenuBar& bar, double points, int width) {
    const QFont font = largest_font(face::font(), points, bar, [&](const QFont& f) {
        if (bar.font() != f) bar.setFont(f);
        return bar.sizeHint().width() <= width;
    });
    if (bar.font() != font) bar.setFont(font);
}

} // namespace zol::view::qt
