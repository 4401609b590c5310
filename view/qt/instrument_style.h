// How buttons, marks, sliders, fields, lists, menus and boxes are drawn: in sizes that grow with
// the window (view/qt/face.h), and so that it shows what is pointed at, pressed, focused, disabled,
// on view or waiting for a number.
#pragma once

#include <QProxyStyle>

namespace zol::view::qt {

// Set on a button by its window: the panel that it opens is on view.
constexpr const char* on_view_property = "on_view";
// Set on a slider: how many of its steps from the lowest value on are marked.
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
