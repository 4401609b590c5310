#include "view/qt/face.h"

#include "view/qt/colours.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace zol::view::qt::face {
namespace {

constexpr const char* measure_property = "measure";
constexpr double text_line_px = 19; // of plain text on a screen of 1366 by 768

} // namespace

QFont font() {
    QFont font(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
    font.setFamilies({"Roboto Condensed", "DejaVu Sans Condensed", font.family()});
    return font;
}

void rank_as_button(QFont& font) {
    if (!font.bold()) font.setWeight(QFont::Medium);
    font.setLetterSpacing(QFont::PercentageSpacing, capitals_spacing_percent);
}

void rank_as_heading(QFont& font) {
    rank_as_title(font);
    font.setCapitalization(QFont::AllUppercase);
    font.setLetterSpacing(QFont::PercentageSpacing, capitals_spacing_percent + 2);
}

void rank_as_title(QFont& font) {
    font.setWeight(QFont::DemiBold);
    font.setLetterSpacing(QFont::PercentageSpacing, capitals_spacing_percent);
}

double measure(const QWidget& widget) {
    const QVariant of_window = widget.window()->property(measure_property);
    if (of_window.isValid()) return of_window.toDouble();
    return std::max(0.7, QFontMetricsF(widget.font()).height() / text_line_px);
}

void set_measure(QWidget& window, double measure) {
    constexpr double least = 0.7;
    window.setProperty(measure_property, std::max(least, measure));
}

int scaled(double px, const QWidget& widget) { return std::max(1, qRound(px * measure(widget))); }

QColor ground_of(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    const QWidget& holder = parent ? *parent : widget;
    return holder.palette().color(holder.backgroundRole());
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return qRound(a + share * (b - a)); };
    return QColor(part(from.red(), to.red()), part(from.green(), to.green()),
                  part(from.blue(), to.blue()));
}

QColor readable(const QColor& on, const QColor& letters) {
    constexpr double least_contrast = 4.5;
    if (contrast(on, letters) >= least_contrast) return letters;
    return contrast(on, Qt::black) > contrast(on, Qt::white) ? Qt::black : Qt::white;
}

int ring_room(const QWidget& widget) {
    return scaled(ring_px, widget) + scaled(ring_gap_px, widget);
}

QColor ring_colour(const QColor& on) {
    constexpr double least_contrast = 3;
    if (contrast(on, accent) >= least_contrast) return accent;
    return contrast(on, light_accent) >= least_contrast ? light_accent : deep_accent;
}

void draw_ring(QPainter& painter, const QRect& place, const QColor& on, const QWidget& widget) {
    const double width = scaled(ring_px, widget);
    const double radius = corner_px * measure(widget) + width / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ring_colour(on), width));
    const double half = width / 2;
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), radius, radius);
    painter.restore();
}

void draw_heading(QPainter& painter, const QRect& line, const QString& text,
                  const QWidget& widget) {
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    const int thickness = scaled(1, widget);
    const int bottom = std::min(line.bottom() + 1 + thickness, widget.height());
    painter.fillRect(QRect(line.left(), bottom - thickness, line.width(), thickness), rule);
}

} // namespace zol::view::qt::face
