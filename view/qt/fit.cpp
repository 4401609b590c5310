#include "view/qt/fit.h"

#include <QFontMetrics>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace zol::view::qt {
namespace {

// What the style draws around or beside a caption, in pixels.
QSize trimmings(Kind kind, const QWidget& face) {
    const auto mark = [&face](QStyle::PixelMetric side, QStyle::PixelMetric gap) {
        return QSize(face.style()->pixelMetric(side, nullptr, &face) +
                         face.style()->pixelMetric(gap, nullptr, &face) + 3,
                     0);
    };
    switch (kind) {
    case Kind::command_button: return {10, 6};
    case Kind::option_button:
        return mark(QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_RadioButtonLabelSpacing);
    case Kind::check_box: return mark(QStyle::PM_IndicatorWidth, QStyle::PM_CheckBoxLabelSpacing);
    case Kind::frame: return {16, 0};
    default: return {2, 0};
    }
}

QFont font_of(const Look& look, const QWidget& face, double points) {
    QFont font = face.font();
    if (!look.font_name.empty()) font.setFamily(QString::fromStdString(look.font_name));
    font.setBold(look.font_bold);
    // Tables are laid out for 96 dots an inch, and text keeps its share of its place on any screen.
    font.setPointSizeF(std::max(least_points, points) * 96.0 / face.logicalDpiY());
    return font;
}

bool fits(const QFont& font, const QString& text, const QSize& room, bool wraps) {
    const QFontMetrics metrics(font);
    if (!wraps)
        return metrics.horizontalAdvance(text) <= room.width() && metrics.height() <= room.height();
    const QRect area(0, 0, room.width(), 0);
    const QRect used = metrics.boundingRect(area, Qt::TextWordWrap, text);
    return used.width() <= room.width() && used.height() <= room.height();
}

} // namespace

void fit_text(const Widget& model, QWidget& face, double points) {
    QFont font = font_of(model.look, face, points);
    const bool has_caption = model.kind == Kind::label || model.kind == Kind::command_button ||
                             model.kind == Kind::option_button || model.kind == Kind::check_box ||
                             model.kind == Kind::frame;
    if (has_caption && !model.look.text.empty()) {
        const QString text = QString::fromStdString(model.look.text);
        const QSize room = (face.size() - trimmings(model.kind, face)).expandedTo({1, 1});
        // A label that is high enough for two lines of its smallest font breaks its text.
        const bool wraps = model.kind == Kind::label;
        const QSize tall = model.kind == Kind::frame ? QSize(room.width(), 1000) : room;
        for (double p = points; p > least_points && !fits(font, text, tall, wraps); p -= 0.5)
            font = font_of(model.look, face, p - 0.5);
    }
    if (face.font() != font) face.setFont(font);
}

} // namespace zol::view::qt
