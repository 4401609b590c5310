#include "view/qt/live_values.h"

#include "view/qt/colours.h"
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

// A pause mark: two bars in the upper right corner.
void draw_pause_mark(QPainter& painter, const QWidget& face, const QColor& ink, double share) {
    const double height = std::max(7.0, face.height() * share);
    const double bar = height * 0.3, margin = std::max(2.0, height * 0.4);
    const QPointF corner(face.width() - margin - 3 * bar, margin);
    for (const double x : {0.0, 2 * bar})
        painter.fillRect(QRectF(corner + QPointF(x, 0), QSizeF(bar, height)), ink);
}

// Covers what is drawn with the translucent background, so that a text looks disabled.
void draw_veil(QWidget& face, bool is_lamp) {
    const auto* label = qobject_cast<const QLabel*>(&face);
    const QPalette& palette = face.palette();
    // The background of a lamp is its light, so its parent's is used.
    const QColor ground = is_lamp ? face.parentWidget()->palette().color(QPalette::Window)
                                  : palette.color(QPalette::Active, face.backgroundRole());
    const QColor ink = palette.color(QPalette::Active, face.foregroundRole());
    QPainter painter(&face);
    if (!label || face.isEnabled()) { // a disabled text is pale already
        painter.setOpacity(label ? faded_share(ground, ink) : 0.5);
        QPainterPath outline;
        if (is_lamp) { // its corners may belong to the next lamp
            const double side = std::min(face.width(), face.height());
            outline.addEllipse(QRectF(face.rect()).center(), side / 2, side / 2);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.fillPath(outline, ground);
        } else {
            // The corners of a tile may be round; there is no text in them.
            const double radius = label ? face.height() / 16.0 : 0;
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(ground);
            painter.drawRoundedRect(face.rect(), radius, radius);
        }
        painter.setOpacity(1);
    }
    if (!is_lamp) draw_pause_mark(painter, face, faded_on(ground, ink), label ? 0.18 : 0.09);
}

} // namespace

LiveValues::LiveValues(const WindowFace& main_window) : shape2_colour_(form1::Shape2.look.back) {
    std::vector<const Widget*> lamps;
    for (const Widget& lamp : form1::led_rpm.all())
        lamps.push_back(&lamp);
    add(main_window, form1::Label_rpm, lamps);
    add(main_window, form1::Label_lambda, {&form1::Picture1});
    for (const Widget* value :
         {&form1::Label_tinj, &form1::LabeL_pressure, &form1::Label_temp, &form1::label_liv2,
          &form1::Label_carburante, &form1::Label20, &form1::Label_ktar, &form1::Label_ct,
          &form1::Label1, &form1::Label13, &form1::Label14, &form1::Label42, &form1::Label49,
          &form1::Label_level_attuale, &form1::label_lambda_2, &form1::Label_stato})
        add(main_window, *value);
    expiry_.setSingleShot(true);
    connect(&expiry_, &QTimer::timeout, this, [this] { catch_up(); });
}

void LiveValues::add(const WindowFace& main_window, const Widget& source,
                     const std::vector<const Widget*>& followers) {
    Value value{&source, {main_window.control(source)}, now_us(), source.times_set};
    for (const Widget* follower : followers)
        value.faces.push_back(main_window.control(*follower));
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
    return std::any_of(values_.begin(), values_.end(),
                       [&](const Value& value) { return value.source == &control && value.stale; });
}

bool LiveValues::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Paint) return false;
    for (const Value& value : values_) {
        if (!value.stale || std::ranges::find(value.faces, watched) == value.faces.end()) continue;
        watched->event(event); // the control paints itself first
        auto& face = *static_cast<QWidget*>(watched);
        draw_veil(face, face.objectName().startsWith("led_rpm"));
        return true;
    }
    return false;
}

} // namespace zol::view::qt
