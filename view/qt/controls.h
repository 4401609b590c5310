// The Qt control for each kind of widget (`Kind`), and the classes of those that the view draws
// itself. A control passes input to its model through the pump and never changes the model itself;
// mirror.h sets it from the model.
#pragma once

#include "view/qt/label_part.h"
#include "view/widget.h"

#include <QGroupBox>
#include <QLabel>
#include <QPainterPath>
#include <QPixmap>
#include <QSlider>
#include <QWidget>

#include <vector>

namespace zol::view::qt {

// Builds the control and connects its input signals to the model. `parent` owns it. Text, colours
// and state are not set yet: see mirror_all().
QWidget* make_control(Widget& model, QWidget& parent);

// A slider with ticks and a marker at the end of the marked part of its range.
class SliderFace : public QSlider {
  public:
    SliderFace(Widget& model, QWidget& parent);
    // Marks the range from the lowest value to `length` above it; 0 removes the marker.
    void mark_stretch(int length);
};

// A text with an optional background, or the title of a value. If it has the focus, Enter and Space
// run its click or double-click handler.
class LabelFace : public QLabel {
  public:
    LabelFace(Widget& model, QWidget& parent);
    const LabelRole& role() const { return role_; }
    // The text as drawn: that of a title includes its unit.
    QString text_on_screen() const;
    // The shape that it fills with its background colour.
    QPainterPath ground_shape() const;

  private:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QRect text_place() const;
    bool shows_focus() const;
    void draw_ground(QPainter& painter) const;
    void draw_title(QPainter& painter) const;
    void draw_heading(QPainter& painter) const;
    QColor ink_on_window() const;

    Widget& model_;
    const LabelRole role_;
};

// A group: its heading with a line under it, and the strokes drawn behind its controls.
class FrameFace : public QGroupBox {
  public:
    FrameFace(const Widget& model, QWidget& parent);
    // Whether the frame is a panel, that is, a button of the window opens it.
    static bool names_panel(const Widget& frame);

  private:
    void paintEvent(QPaintEvent* event) override;

    const Widget& model_;
    const bool is_panel_;
};

// A round lamp, lit in its background colour.
class LampFace : public QWidget {
  public:
    LampFace(const Widget& model, QWidget& parent)
        : QWidget(&parent), shows_car_indicator_(model.parent->kind == Kind::frame) {}

  private:
    void paintEvent(QPaintEvent* event) override;
    const bool shows_car_indicator_;
};

// Draws strokes, given in the widget's unscaled twips, at the widget's present size.
class StrokePen {
  public:
    // `painter` draws on a surface of `size` pixels for `model`.
    StrokePen(QPainter& painter, const Widget& model, const QSize& size);
    // Returns the changed area in pixels.
    QRect draw(const Stroke& stroke);

  private:
    QPainter& painter_;
    double x_scale_, y_scale_;
};

// A drawing surface: a pen draws a trace from left to right over a faint grid, with a title above.
// One pass of the pen is a sweep. When the drawing is cleared, the bars of the previous sweep stay
// dimmed until the pen reaches them; the pen clears a gap of two bars ahead of itself. The drawing
// is cached in a pixmap: only new strokes are drawn, and a new size draws it again.
class PictureFace : public QWidget {
  public:
    PictureFace(const Widget& model, QWidget& parent);
    void draw_new_strokes();
    // Where its title is drawn.
    QRect title_place() const;

  private:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void start_canvas();
    void begin_sweep();
    void draw_backdrop(QPainter& painter) const;
    void draw_texts(QPainter& painter) const;
    QRect text_line() const;
    QRect clear_for(QPainter& painter, const Stroke& bar);

    const Widget& model_;
    QPixmap backdrop_, canvas_;
    std::vector<Stroke> sweep_, before_; // strokes of this sweep and of the previous one
    std::size_t taken_ = 0;              // number of the model's strokes on the canvas
};

} // namespace zol::view::qt
