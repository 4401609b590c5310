#include "view/qt/controls.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace zol::view::qt {

// A thin line around, broken by the title. The ground stays the palette's, untinted, so that labels
// with the same ground do not stand out as patches.
void FrameFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    draw_edge(painter);
    StrokePen pen(painter, model_, size());
    for (const Stroke& stroke : model_.look.strokes)
        pen.draw(stroke);
}

void FrameFace::draw_edge(QPainter& painter) const {
    constexpr int indent = 8, gap = 4;
    const QFontMetrics metrics(font());
    const QString caption = title().replace("&&", "&");
    const QColor ink =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole());
    const QColor ground = palette().color(backgroundRole());
    const int top = metrics.height() / 2;
    painter.setPen(QColor((ink.red() + 3 * ground.red()) / 4,
                          (ink.green() + 3 * ground.green()) / 4,
                          (ink.blue() + 3 * ground.blue()) / 4));
    painter.drawRect(0, top, width() - 1, height() - 1 - top);
    if (caption.isEmpty()) return;
    const QRect place(indent, 0, std::min(metrics.horizontalAdvance(caption), width() - 2 * indent),
                      metrics.height());
    painter.fillRect(place.adjusted(-gap, 0, gap, 0), ground);
    painter.setPen(ink);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
}

} // namespace zol::view::qt
