#include "view/qt/colours.h"
#include "view/qt/controls.h"
#include "view/qt/face.h"

#include <QPainter>

#include <algorithm>

namespace zol::view::qt {

FrameFace::FrameFace(const Widget& model, QWidget& parent)
    : QGroupBox(&parent), model_(model), is_panel_(names_panel(model)) {}

bool FrameFace::names_panel(const Widget& frame) {
    return std::any_of(frame.window->controls.begin(), frame.window->controls.end(),
                       [&](const Widget* w) { return w->panel == &frame; });
}

// A heading with a line under it, and no box. The heading of a panel has no line and is grey: its
// button names the panel already, and there are groups with headings inside.
void FrameFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ground = palette().color(backgroundRole());
    QColor ink = palette().color(QPalette::Active, foregroundRole());
    if (is_panel_) ink = face::secondary;
    painter.setPen(isEnabled() ? ink : faded_on(ground, ink));
    const QString caption = title().replace("&&", "&");
    const QRect line(0, 0, width(), fontMetrics().height());
    if (is_panel_)
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
    else
        face::draw_heading(painter, line, caption, *this);
    StrokePen pen(painter, model_, size());
    for (const Stroke& stroke : model_.look.strokes)
        pen.draw(stroke);
}

} // namespace zol::view::qt
