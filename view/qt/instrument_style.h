// Draws buttons, marks, sliders, fields, lists, menus and boxes, and shows which control is under
// the pointer, pressed, focused, disabled or has an edit mark, and whose panel is open. Sizes
// follow the window (view/qt/face.h). The style only draws: it depends on no widget data but the
// two properties below and `edit_marker`.
#pragma once

#include <QProxyStyle>

namespace zol::view::qt {

// A property of a button: its panel is open.
constexpr const char* panel_open_property = "panel_open";
// A property of a slider: the number of steps from the lowest value to the marker.
constexpr const char* marked_stretch_property = "marked_stretch";

class InstrumentStyle : public QProxyStyle {
  public:
    InstrumentStyle();

  private:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette,
                      bool enabled, const QString& text, QPalette::ColorRole ink) const override;
};

} // namespace zol::view::qt
