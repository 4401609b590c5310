// The Qt control for each kind of widget.
#pragma once

#include "view/qt/label_part.h"
#include "view/widget.h"

#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QSlider>
#include <QWidget>

#include <vector>

namespace zol::view::qt {

// Builds the control and ties what the operator does with it to its model. `parent` owns it.
QWidget* make_control(Widget& model, QWidget& parent);

// A slider with ticks and a marked stretch from its lower end.
class SliderFace : public QSlider {
  public:
    SliderFace(Widget& model, QWidget& parent);
    void mark_stretch(int length);
};

// A text on its own ground, or the title of a value. With the focus, Enter and Space stand for the
// click that it answers to.
class LabelFace : public QLabel {
  public:
    LabelFace(Widget& model, QWidget& parent);
    const LabelRole& role() const { return role_; }
    // The text as drawn: a title has its unit behind it.
    QString text_on_screen() const;

  private:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QRect text_place() const;
    void draw_ground(QPainter& painter, bool focused) const;
    void draw_title(QPainter& painter) const;
    void draw_heading(QPainter& painter) const;
    QColor ink_on_window() const;

    Widget& model_;
    const LabelRole role_;
};

// A group: its heading over a rule, and what is drawn behind its controls.
class FrameFace : public QGroupBox {
  public:
    FrameFace(const Widget& model, QWidget& parent);
    // Whether a button of the window opens the frame as a panel.
    static bool names_panel(const Widget& frame);

  private:
    void paintEvent(QPaintEvent* event) override;

    const Widget& model_;
    const bool is_panel_;
};

// A round lamp in its background colour.
class LampFace : public QWidget {
  public:
    LampFace(const Widget& model, QWidget& parent)
        : QWidget(&parent), stands_for_another_(model.parent->kind == Kind::frame) {}

  private:
    void paintEvent(QPaintEvent* event) override;
    const bool stands_for_another_;
};

// Strokes in a widget's own twips as of before scaling, drawn at the size that it has now.
class StrokePen {
  public:
    // `painter` draws on a surface of `size` pixels for this widget.
    StrokePen(QPainter& painter, const Widget& model, const QSize& size);
    // Returns what was drawn on, in pixels.
    QRect draw(const Stroke& stroke);

  private:
    QPainter& painter_;
    double x_scale_, y_scale_;
};

// A drawing surface: a trace that a pen draws from left to right, over a faint grid and under its
// title. When the drawing is cleared, the bars of the sweep before stay, dimmed, until the pen
// comes near: it clears a gap of two bars ahead of itself. The surface keeps what was drawn, scales
// it with itself, and paints only what is new.
class PictureFace : public QWidget {
  public:
    PictureFace(const Widget& model, QWidget& parent);
    void draw_new_strokes();

  private:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void start_canvas();
    void begin_sweep();
    void draw_backdrop(QPainter& painter) const;
    void draw_texts(QPainter& painter) const;
    QRect clear_for(QPainter& painter, const Stroke& bar);

    const Widget& model_;
    QPixmap backdrop_, canvas_;
    std::vector<Stroke> sweep_, before_; // this sweep's strokes, and those of the one before
    std::size_t taken_ = 0;              // how many of the model's strokes are on the canvas
};

} // namespace zol::view::qt
