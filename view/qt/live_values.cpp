#include "view/qt/live_values.h"

#include "view/qt/colours.h"
#include "view/qt/controls.h"
#include "view/qt/face.h"
#include "view/qt/window_face.h"
#include "view/timers.h"
#include "view/windows/form1.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace zol::view::qt {
namespace {

constexpr std::int64_t fresh_for_us = 1'500'000;

// A pause mark: two bars of this height.
void draw_pause_mark(QPainter& painter, const QPointF& corner, double height, const QColor& ink) {
    const double bar = height * 0.3;
    for (const double x : {0.0, 2 * bar})
        painter.fillRect(QRectF(corner + QPointF(x, 0), QSizeF(bar, height)), ink);
}

// In the upper right corner of a label.
void draw_corner_mark(QPainter& painter, const QWidget& face, double height, const QColor& ink) {
    const double margin = std::max<double>(face::scaled(2, face), height * 0.4);
    draw_pause_mark(painter, {face.width() - margin - 0.9 * height, margin}, height, ink);
}

// After the title at the left, because a text may be at the right.
void draw_title_mark(QPainter& painter, const PictureFace& face, const QColor& ink) {
    const QRect title = face.title_place();
    const double height = face.fontMetrics().capHeight();
    const double top = QRectF(title).center().y() - height / 2;
    draw_pause_mark(painter, {title.right() + 1.0 + height, top}, height, ink);
}

QPainterPath veiled_shape(const QWidget& face, bool is_lamp) {
    if (const auto* label = dynamic_cast<const LabelFace*>(&face)) return label->ground_shape();
    QPainterPath shape;
    if (is_lamp) { // its corners may belong to the next lamp
        const double side = std::min(face.width(), face.height());
        shape.addEllipse(QRectF(face.rect()).center(), side / 2, side / 2);
    } else {
        shape.addRect(face.rect());
    }
    return shape;
}

// The size of the mark of a value: the title of a tile has the mark of its value.
double mark_height(const QWidget& value) {
    return std::max<double>(face::scaled(7, value), value.height() * 0.18);
}

QColor faded_ink(const QWidget& face) {
    const QPalette& palette = face.palette();
    return faded_on(palette.color(QPalette::Active, face.backgroundRole()),
                    palette.color(QPalette::Active, face.foregroundRole()));
}

// Covers what is drawn with the translucent background, so that a text looks disabled.
void draw_veil(QPainter& painter, const QWidget& face, bool is_lamp) {
    const bool is_label = dynamic_cast<const LabelFace*>(&face) != nullptr;
    if (is_label && !face.isEnabled()) return; // a disabled text is pale already
    const QPalette& palette = face.palette();
    // The background of a lamp is its light, so its parent's is used.
    const QColor ground = is_lamp ? face.parentWidget()->palette().color(QPalette::Window)
                                  : palette.color(QPalette::Active, face.backgroundRole());
    const QColor ink = palette.color(QPalette::Active, face.foregroundRole());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(is_label ? faded_share(ground, ink) : 0.5);
    painter.fillPath(veiled_shape(face, is_lamp), ground);
    painter.setOpacity(1);
}

// The title of a tile stays as it is, but has the mark of the value below it.
void draw_stale(QWidget& face, const QWidget& value) {
    QPainter painter(&face);
    const bool is_lamp = face.objectName().startsWith("led_rpm");
    const auto* label = dynamic_cast<const LabelFace*>(&face);
    const LabelPart part = label ? label->role().part : LabelPart::plain;
    if (part != LabelPart::tile_title) draw_veil(painter, face, is_lamp);
    if (const auto* trace = dynamic_cast<const PictureFace*>(&face))
        draw_title_mark(painter, *trace, faded_ink(face));
    else if (label && part != LabelPart::tile_value)
        draw_corner_mark(painter, face, mark_height(part == LabelPart::tile_title ? value : face),
                         faded_ink(face));
}

// The upper part of the tile that a value is in, or null.
const Widget* tile_title_of(const Widget& value) {
    for (const Widget* other : value.window->controls)
        if (const LabelRole role = label_role(*other);
            role.part == LabelPart::tile_title && role.value == &value)
            return other;
    return nullptr;
}

} // namespace

LiveValues::LiveValues(const WindowFace& main_window)
    : window_(main_window), shape2_colour_(form1::Shape2.look.back) {
    std::vector<const Widget*> with_speed{&form1::Label_carburante};
    for (const Widget& lamp : form1::led_rpm.all())
        with_speed.push_back(&lamp);
    add(form1::Label_rpm, with_speed);
    add(form1::Label_lambda, {&form1::Picture1});
    for (const Widget* value :
         {&form1::Label_tinj, &form1::LabeL_pressure, &form1::Label_temp, &form1::label_liv2,
          &form1::Label20, &form1::Label_ktar, &form1::Label_ct, &form1::Label1, &form1::Label13,
          &form1::Label14, &form1::Label42, &form1::Label49, &form1::Label_level_attuale,
          &form1::label_lambda_2, &form1::Label_stato})
        add(*value);
    expiry_.setSingleShot(true);
    connect(&expiry_, &QTimer::timeout, this, [this] { catch_up(); });
}

void LiveValues::add(const Widget& source, const std::vector<const Widget*>& followers) {
    Value value{&source, {window_.control(source)}, now_us(), source.times_set};
    for (const Widget* follower : followers)
        value.faces.push_back(window_.control(*follower));
    if (const Widget* title = tile_title_of(source)) value.faces.push_back(window_.control(*title));
    for (QWidget* face : value.faces)
        face->installEventFilter(this);
    values_.push_back(value);
}

void LiveValues::catch_up() {
    const std::int64_t now = now_us();
    const bool telegram_came = form1::Shape2.look.back != shape2_colour_;
    shape2_colour_ = form1::Shape2.look.back;
    std::int64_t next_us = Platform::forever;
    for (Value& value : values_) {
        if (telegram_came || value.source->times_set != value.times_set) value.last_read_us = now;
        value.times_set = value.source->times_set;
        const std::int64_t left_us = value.last_read_us + fresh_for_us - now;
        const bool stale = left_us <= 0;
        if (!stale) next_us = std::min(next_us, left_us);
        if (stale == value.stale) continue;
        value.stale = stale;
        for (QWidget* face : value.faces)
            face->update();
    }
    if (next_us != Platform::forever && !expiry_.isActive())
        expiry_.start(static_cast<int>(next_us / 1000) + 1);
}

bool LiveValues::is_stale(const Widget& control) const {
    QWidget* face = window_.control(control);
    return std::ranges::any_of(values_, [face](const Value& value) {
        return value.stale && std::ranges::find(value.faces, face) != value.faces.end();
    });
}

bool LiveValues::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Paint) return false;
    for (const Value& value : values_) {
        if (!value.stale || std::ranges::find(value.faces, watched) == value.faces.end()) continue;
        watched->event(event); // the control paints itself first
        draw_stale(*static_cast<QWidget*>(watched), *window_.control(*value.source));
        return true;
    }
    return false;
}

} // namespace zol::view::qt
