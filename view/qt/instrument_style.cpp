#include "view/qt/instrument_style.h"

#include "view/qt/colours.h"
#include "view/qt/fit.h"
#include "view/qt/instrument_parts.h"
#include "view/qt/large_figures.h"

#include <QLineEdit>
#include <QStyleFactory>
#include <QStyleOptionSlider>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

// The share of an option line's height that its mark takes: 13 of 20 pixels at design size.
constexpr double mark_share = 0.65;

int mark_side(const QWidget& widget) { return std::max(9, qRound(mark_share * widget.height())); }

// Between the edge of a list and its text; its arrow takes a larger share of the height.
int list_indent(int height) { return std::max(3, qRound(0.15 * height)); }
int list_arrow_width(int height) { return std::max(12, qRound(0.7 * height)); }

// The text of a list and the arrow beside it.
QRect list_part(const QRect& all, QStyle::SubControl part) {
    const int arrow = list_arrow_width(all.height());
    if (part == QStyle::SC_ComboBoxArrow) return all.adjusted(all.width() - arrow, 0, 0, 0);
    return all.adjusted(list_indent(all.height()), 2, -arrow, -2);
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
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    default: break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int InstrumentStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* more) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

// What stands in a layout gets its size from the type: buttons of boxes, rows of the contents.
QSize InstrumentStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                        const QSize& size, const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    const int line = option ? option->fontMetrics.height() : 0;
    if (type == CT_PushButton) return plain.expandedTo({6 * line, 2 * line});
    const bool list = widget && widget->inherits("QListWidget");
    if (type == CT_ItemViewItem && list) return plain + QSize(0, line / 2);
    return plain;
}

// The text of a field keeps off its edge.
QRect InstrumentStyle::subElementRect(SubElement element, const QStyleOption* option,
                                      const QWidget* widget) const {
    const QRect plain = QProxyStyle::subElementRect(element, option, widget);
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    if (element != SE_LineEditContents || !line || !line->hasFrame()) return plain;
    const int air = qRound(0.12 * option->rect.height());
    return plain.adjusted(air, 0, -air, 0);
}

// The handle and, through its middle, the groove; ticks have their room beside them.
QRect InstrumentStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                      SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && (part == SC_ComboBoxArrow || part == SC_ComboBoxEditField))
        return list_part(option->rect, part);
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const bool ours = part == SC_SliderGroove || part == SC_SliderHandle;
    if (control != CC_Slider || !ours || !slider || !widget)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const SliderPlaces places = slider_places(*slider, magnification(*widget));
    return part == SC_SliderGroove ? places.groove : places.handle;
}

void InstrumentStyle::drawControl(ControlElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    switch (element) {
    case CE_ProgressBarGroove: draw_progress_trough(*painter, *option); return;
    case CE_ProgressBarContents:
        if (bar) draw_progress(*painter, *bar);
        return;
    default: QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void InstrumentStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand: draw_button(*painter, *option, widget); return;
    case PE_IndicatorRadioButton: draw_option_mark(*painter, *option); return;
    case PE_IndicatorCheckBox: draw_check_mark(*painter, *option); return;
    case PE_FrameLineEdit: draw_field_edge(*painter, *option, widget); return;
    case PE_FrameFocusRect:
        // A button shows its focus on its edge.
        if (widget && widget->inherits("QPushButton")) return;
        draw_focus_line(*painter, option->rect);
        return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void InstrumentStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                         QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_Slider && slider && widget) {
        draw_slider(*painter, *slider, magnification(*widget),
                    widget->property(marked_stretch_property).toInt());
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control != CC_ComboBox) return;
    draw_list_arrow(*painter, *option, list_part(option->rect, SC_ComboBoxArrow));
    if (option->state & State_HasFocus) draw_focus_ring(*painter, option->rect, 1);
}

// Captions break their lines, on buttons and options as on labels. A text that its ground would
// swallow is drawn in black or white: service records on the red that warns of them, or a text
// colour chosen as dark as the fields.
void InstrumentStyle::drawItemText(QPainter* painter, const QRect& place, int flags,
                                   const QPalette& palette, bool enabled, const QString& text,
                                   QPalette::ColorRole ink) const {
    QPalette legible = palette;
    if (enabled && ink == QPalette::WindowText)
        legible.setColor(ink, legible_on(palette.color(QPalette::Window), palette.color(ink)));
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
