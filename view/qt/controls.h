// The Qt control for each kind of widget.
#pragma once

#include "view/widget.h"

#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QSlider>
#include <QWidget>

namespace zol::view::qt {

// Builds the control and ties what the operator does with it to its model. `parent` owns it.
QWidget* make_control(Widget& model, QWidget& parent);

// A slider with ticks and a marked stretch from its lower end.
class SliderFace : public QSlider {
  public:
    SliderFace(Widget& model, QWidget& parent);
    void mark_stretch(int length);
};

// A text. With the focus, Enter and Space stand for the click that it answers to.
class LabelFace : public QLabel {
  public:
    LabelFace(Widget& model, QWidget& parent) : QLabel(&parent), model_(model) {}

  private:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    Widget& model_;
};

// A group with its title on its upper edge, and what is drawn behind its controls.
class FrameFace : public QGroupBox {
  public:
    FrameFace(const Widget& model, QWidget& parent) : QGroupBox(&parent), model_(model) {}

  private:
    void paintEvent(QPaintEvent* event) override;
    void draw_edge(QPainter& painter) const;

    const Widget& model_;
};

// A round lamp in its background colour.
class LampFace : public QWidget {
  public:
    using QWidget::QWidget;

  private:
    void paintEvent(QPaintEvent* event) override;
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

// A drawing surface. It keeps what was drawn, scales it with itself, and paints only what is new.
class PictureFace : public QWidget {
  public:
    PictureFace(const Widget& model, QWidget& parent);
    void draw_new_strokes();

  private:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void start_anew();

    const Widget& model_;
    QPixmap canvas_;
    std::size_t drawn_ = 0; // how many of the model's strokes the canvas holds
};

} // namespace zol::view::qt
