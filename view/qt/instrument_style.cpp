#include "view/qt/instrument_style.h"

#include "view/qt/colours.h"
#include "view/qt/face.h"
#include "view/qt/fit.h"
#include "view/qt/instrument_parts.h"
#include "view/qt/large_figures.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QStyleFactory>
#include <QStyleOptionSlider>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

// The size of the mark of an option or check box relative to its height: 13 of 20 pixels at design
// size.
constexpr double mark_share = 0.65;

int mark_side(const QWidget& widget) { return std::max(9, qRound(mark_share * widget.height())); }

// Space between the edge of a list and its text, and the width of its arrow.
int list_indent(int height) { return std::max(6, qRound(0.28 * height)); }
int list_arrow_width(int height) { return std::max(12, qRound(0.7 * height)); }

// The place of the text of a closed list, or of its arrow.
QRect list_part(const QRect& all, QStyle::SubControl part) {
    const int arrow = list_arrow_width(all.height());
    if (part == QStyle::SC_ComboBoxArrow) return all.adjusted(all.width() - arrow, 0, 0, 0);
    return all.adjusted(list_indent(all.height()), 2, -arrow, -2);
}

// The line height of a part that the toolkit lays out itself.
int line_of(const QWidget* widget) {
    return QFontMetrics(widget ? widget->font() : QApplication::font("QDialog")).height();
}

constexpr int unchanged = -1;

// Sizes in boxes, menus and lists that do not follow the font in the toolkit. `unchanged` for
// others.
int size_by_type(QStyle::PixelMetric metric, const QWidget* widget) {
    const int line = line_of(widget);
    switch (metric) {
    case QStyle::PM_MessageBoxIconSize: return qRound(2.2 * line);
    case QStyle::PM_LayoutLeftMargin:
    case QStyle::PM_LayoutTopMargin:
    case QStyle::PM_LayoutRightMargin:
    case QStyle::PM_LayoutBottomMargin: return qRound(0.8 * line);
    case QStyle::PM_LayoutHorizontalSpacing:
    case QStyle::PM_LayoutVerticalSpacing: return qRound(0.4 * line);
    case QStyle::PM_ScrollBarExtent: return std::max(12, qRound(0.8 * line));
    case QStyle::PM_ScrollBarSliderMin: return qRound(1.6 * line);
    case QStyle::PM_SmallIconSize:
    case QStyle::PM_LineEditIconSize: return qRound(0.9 * line);
    case QStyle::PM_MenuBarItemSpacing: return 0;
    default: return unchanged;
    }
}

} // namespace

InstrumentStyle::InstrumentStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

int InstrumentStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        if (widget && widget->inherits("QCheckBox")) return mark_side(*widget);
        break;
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        if (widget && widget->inherits("QRadioButton")) return mark_side(*widget);
        break;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        if (widget) return face::ring_room(*widget) + face::scaled(5, *widget);
        break;
    case PM_FocusFrameHMargin: // left and right of a list entry
        if (widget && widget->inherits("QListView")) return line_of(widget) / 3;
        break;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    default:
        if (const int size = size_by_type(metric, widget); size != unchanged) return size;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int InstrumentStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* more) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

// In layouts, sizes follow the font: buttons of boxes, rows of the contents, entries of menus and
// lists.
QSize InstrumentStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                        const QSize& size, const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    const int line = option ? option->fontMetrics.height() : 0;
    switch (type) {
    case CT_PushButton: return plain.expandedTo({6 * line, 2 * line});
    case CT_MenuBarItem: return {size.width() + qRound(1.5 * line), qRound(1.6 * line)};
    case CT_MenuItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (item && item->menuItemType == QStyleOptionMenuItem::Separator)
            return {plain.width(), line / 2};
        return {plain.width() + line, std::max(plain.height(), qRound(1.5 * line))};
    }
    case CT_LineEdit: return plain.expandedTo({0, qRound(1.6 * line)});
    case CT_ItemViewItem:
        if (widget && widget->inherits("QListWidget")) return plain + QSize(0, line / 2);
        return plain.expandedTo({0, qRound(1.4 * line)});
    default: return plain;
    }
}

namespace {

// The place of the focus ring around the text of an option or a check box.
QRect ring_around_text(const QStyle& style, const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const bool is_option = button.inherits("QRadioButton");
    const auto element = is_option ? QStyle::SE_RadioButtonContents : QStyle::SE_CheckBoxContents;
    const QRect contents = style.subElementRect(element, &option, &button);
    const int room = face::ring_room(button) + face::scaled(3, button);
    const int text =
        style
            .itemTextRect(option.fontMetrics, contents,
                          line_breaks(option.fontMetrics, option.text, contents.width()), true,
                          option.text)
            .width();
    const QRect ring(contents.left() - room, 0, text + 2 * room, button.height());
    return ring.intersected(button.rect());
}

} // namespace

// The text of a field keeps a distance from the edge. The caption of a button is centred above its
// lower edge.
QRect InstrumentStyle::subElementRect(SubElement element, const QStyleOption* option,
                                      const QWidget* widget) const {
    const QRect plain = QProxyStyle::subElementRect(element, option, widget);
    if (!widget) return plain;
    switch (element) {
    case SE_PushButtonContents:
        return button_top(option->rect, option->state & State_Sunken, option->state & State_Enabled,
                          widget);
    case SE_LineEditContents: {
        const auto* line = qobject_cast<const QLineEdit*>(widget);
        if (!line || !line->hasFrame()) return plain;
        const int air = face::ring_room(*widget) + face::scaled(3, *widget);
        return plain.adjusted(air, 0, -air, 0);
    }
    default: return plain;
    }
}

// The parts of a list and of a slider as they are drawn; a slider has space for its ticks.
QRect InstrumentStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                      SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && (part == SC_ComboBoxArrow || part == SC_ComboBoxEditField))
        return list_part(option->rect, part);
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const bool ours = part == SC_SliderGroove || part == SC_SliderHandle;
    if (control != CC_Slider || !ours || !slider || !widget)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const SliderPlaces places = slider_places(*slider, *widget);
    return part == SC_SliderGroove ? places.groove : places.handle;
}

namespace {

// The button with a text colour that is legible on the background as drawn.
QStyleOptionButton legible_button(const QStyleOptionButton& button, const QWidget* widget) {
    QStyleOptionButton legible = button;
    if (!widget) return legible;
    const QColor ground = button_ground(button, *widget);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor ink = button.palette.color(
            group == QPalette::Disabled ? QPalette::Active : group, QPalette::ButtonText);
        legible.palette.setColor(group, QPalette::ButtonText,
                                 group == QPalette::Disabled ? faded_on(ground, ink)
                                                             : face::readable(ground, ink));
    }
    return legible;
}

// Flat: the entry under the pointer or open is white on the accent.
void draw_menu_bar_entry(const QStyle& style, QPainter& painter,
                         const QStyleOptionMenuItem& entry) {
    const bool chosen = entry.state & QStyle::State_Selected;
    painter.fillRect(entry.rect, chosen ? face::accent : face::ground);
    QPalette palette = entry.palette;
    if (chosen) palette.setColor(QPalette::ButtonText, face::chosen_ink);
    style.drawItemText(&painter, entry.rect, Qt::AlignCenter | Qt::TextSingleLine, palette,
                       entry.state & QStyle::State_Enabled, entry.text, QPalette::ButtonText);
}

} // namespace

void InstrumentStyle::drawControl(ControlElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    switch (element) {
    case CE_ProgressBarGroove: draw_progress_trough(*painter, *option); return;
    case CE_ProgressBarContents:
        if (bar) draw_progress(*painter, *bar);
        return;
    case CE_PushButtonLabel:
        if (button) {
            const QStyleOptionButton legible = legible_button(*button, widget);
            QProxyStyle::drawControl(element, &legible, painter, widget);
        }
        return;
    case CE_MenuBarEmptyArea: painter->fillRect(option->rect, face::ground); return;
    case CE_MenuBarItem:
        if (entry) draw_menu_bar_entry(*this, *painter, *entry);
        return;
    default: QProxyStyle::drawControl(element, option, painter, widget);
    }
}

// Drawn in the size in which it is shown, so that it is sharp.
QIcon InstrumentStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                    const QWidget* widget) const {
    const QPixmap own = box_icon(icon, size_by_type(PM_MessageBoxIconSize, widget),
                                 widget ? widget->devicePixelRatioF() : 1);
    return own.isNull() ? QProxyStyle::standardIcon(icon, option, widget) : QIcon(own);
}

void InstrumentStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    switch (element) {
    case PE_PanelButtonCommand: draw_button(*painter, *option, widget); return;
    case PE_IndicatorRadioButton: draw_option_mark(*painter, *option, widget); return;
    case PE_IndicatorCheckBox: draw_check_mark(*painter, *option, widget); return;
    case PE_PanelLineEdit: draw_field(*painter, *option, widget); return;
    case PE_FrameLineEdit: return; // drawn with PE_PanelLineEdit
    case PE_Frame:
        painter->setPen(face::rule);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
    case PE_FrameFocusRect:
        // Buttons and lists draw their own focus ring.
        if (!widget || widget->inherits("QPushButton") || widget->inherits("QComboBox")) return;
        face::draw_ring(*painter, button ? ring_around_text(*this, *button) : option->rect,
                        face::ground_of(*widget), *widget);
        return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void InstrumentStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                         QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_Slider && slider && widget)
        draw_slider(*painter, *slider, *widget, widget->property(marked_stretch_property).toInt());
    else if (control == CC_ComboBox)
        draw_list_field(*painter, *option, list_part(option->rect, SC_ComboBoxArrow), widget);
    else if (control == CC_ScrollBar)
        draw_scroll_bar(*painter, *option,
                        subControlRect(control, option, SC_ScrollBarSlider, widget));
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

// Captions of buttons and options may have several lines, like labels. A text with little contrast
// to its background is drawn in black or white: service records on flashing red, or a text colour
// of the operator that is as dark as the fields.
void InstrumentStyle::drawItemText(QPainter* painter, const QRect& place, int flags,
                                   const QPalette& palette, bool enabled, const QString& text,
                                   QPalette::ColorRole ink) const {
    QPalette legible = palette;
    if (enabled && ink == QPalette::WindowText) {
        const QColor ground = palette.color(QPalette::Window), letters = palette.color(ink);
        // The program's own text colour is replaced below 4.5 : 1, one that was chosen below 2 : 1.
        legible.setColor(ink, letters == face::ink ? face::readable(ground, letters)
                                                   : legible_on(ground, letters));
    }
    if (!(flags & Qt::TextSingleLine)) {
        flags &= ~Qt::TextWordWrap;
        flags |= line_breaks(painter->fontMetrics(), text, place.width());
    }
    if (ink != QPalette::NoRole &&
        draw_large_figures(*painter, place, flags, text, legible.color(ink)))
        return;
    QProxyStyle::drawItemText(painter, place, flags, legible, enabled, text, ink);
}

} // namespace zol::view::qt
