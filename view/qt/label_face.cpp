#include "view/operator.h"
#include "view/qt/colours.h"
#include "view/qt/controls.h"
#include "view/qt/face.h"
#include "view/timers.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace zol::view::qt {

LabelFace::LabelFace(Widget& model, QWidget& parent)
    : QLabel(&parent), model_(model), role_(label_role(model)) {}

void LabelFace::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (model_.on.click) post([this_label = &model_] { operator_acts::click(*this_label); });
        if (model_.on.double_click)
            post([this_label = &model_] { operator_acts::double_click(*this_label); });
        break;
    default: QLabel::keyPressEvent(event);
    }
}

QString LabelFace::text_on_screen() const {
    if (role_.part != LabelPart::title) return text();
    const auto [title, unit] = title_texts(model_, *role_.value);
    return unit.isEmpty() ? title : title + "  " + unit;
}

bool LabelFace::shows_focus() const {
    return hasFocus() && operator_acts::takes_focus_by_tab(model_);
}

void LabelFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (model_.look.back != system_colour) draw_ground(painter);
    if (role_.part == LabelPart::title)
        draw_title(painter);
    else if (role_.part == LabelPart::heading)
        draw_heading(painter);
    else
        style()->drawItemText(&painter, text_place(),
                              static_cast<int>(alignment()) | Qt::TextWordWrap, palette(),
                              isEnabled(), text(), foregroundRole());
    if (shows_focus()) face::draw_ring(painter, rect(), face::ground_of(*this), *this);
}

// The text of a service record has padding, because it has a background at times.
QRect LabelFace::text_place() const {
    const bool record = role_.part == LabelPart::record;
    return rect().adjusted(record ? face::scaled(face::record_air_px, *this) : 0, 0, 0, 0);
}

// The title and the value of a tile form one rectangle: only its outer corners are round. The
// background of a record is only as wide as its text.
QPainterPath LabelFace::ground_shape() const {
    const int room = shows_focus() ? face::ring_room(*this) : 0;
    QRect place = rect().adjusted(room, room, -room, -room);
    if (role_.part == LabelPart::record) {
        const int air = face::scaled(face::record_air_px, *this);
        const int wanted = fontMetrics().horizontalAdvance(text().trimmed()) + 2 * air;
        place.setWidth(std::min(place.width(), text().trimmed().isEmpty() ? 0 : wanted));
    }
    const double radius = face::corner_px * face::measure(*this);
    QPainterPath shape;
    shape.setFillRule(Qt::WindingFill);
    shape.addRoundedRect(place, radius, radius);
    const int half = place.height() / 2;
    if (role_.part == LabelPart::tile_title) shape.addRect(place.adjusted(0, half, 0, 0));
    if (role_.part == LabelPart::tile_value) shape.addRect(place.adjusted(0, 0, 0, -half));
    return shape;
}

void LabelFace::draw_ground(QPainter& painter) const {
    const QColor ground = palette().color(backgroundRole());
    if (ground == face::ground_of(*this) || role_.part == LabelPart::title) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(ground_shape(), ground);
    painter.restore();
}

// The colour of the table if it is legible on the window's background; the table chose it for
// another background.
QColor LabelFace::ink_on_window() const {
    constexpr double least_contrast = 4.5;
    const QColor ground = face::ground_of(*this);
    const QColor own = palette().color(QPalette::Active, foregroundRole());
    const QColor ink = contrast(ground, own) >= least_contrast ? own : face::ink;
    return isEnabled() ? ink : faded_on(ground, ink);
}

void LabelFace::draw_title(QPainter& painter) const {
    const auto [title, unit] = title_texts(model_, *role_.value);
    painter.setPen(ink_on_window());
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine;
    painter.drawText(rect(), flags | Qt::AlignLeft, title);
    if (unit.isEmpty()) return;
    QFont quiet = font();
    quiet.setWeight(QFont::Normal);
    quiet.setLetterSpacing(QFont::PercentageSpacing, 100);
    painter.setFont(quiet);
    painter.setPen(isEnabled() ? face::secondary
                               : faded_on(face::ground_of(*this), face::secondary));
    painter.drawText(rect(), flags | Qt::AlignRight, unit);
}

void LabelFace::draw_heading(QPainter& painter) const {
    painter.setPen(ink_on_window());
    face::draw_heading(painter, QRect(0, 0, width(), fontMetrics().height()), text(), *this);
}

} // namespace zol::view::qt
