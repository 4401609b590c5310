// The toolkit caches glyph images only up to 64 pixels. Larger ones are rendered each time, which
// was five sixths of the time to show a status telegram on a large screen. Digits are few, so their
// images are cached here.
#include "view/qt/large_figures.h"

#include <QColor>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <map>
#include <tuple>

namespace zol::view::qt {
namespace {

constexpr int largest_kept_by_toolkit_px = 64;

bool is_number(const QString& text) {
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

struct Figure {
    QImage picture;
    QPointF corner; // of the picture, in pixels of the painter
};

// The digit that begins at `at`, on the base line.
Figure draw_figure(const QPainter& like, const QColor& ink, QChar sign, const QPointF& at) {
    constexpr int margin = 3; // a glyph may extend beyond its advance width
    const QFontMetricsF metrics(like.font(), like.device());
    const QRect room =
        QRectF(at.x(), at.y() - metrics.ascent(), metrics.horizontalAdvance(sign), metrics.height())
            .toAlignedRect()
            .adjusted(-margin, 0, margin, 0);
    QImage picture(room.size(), QImage::Format_ARGB32_Premultiplied);
    constexpr double inches_in_a_metre = 1 / 0.0254;
    picture.setDotsPerMeterX(qRound(like.device()->logicalDpiX() * inches_in_a_metre));
    picture.setDotsPerMeterY(qRound(like.device()->logicalDpiY() * inches_in_a_metre));
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.translate(-room.topLeft());
    painter.setFont(like.font());
    painter.setPen(ink);
    painter.drawText(at, QString(sign));
    return {picture, room.topLeft()};
}

// Cached for each place as well: text is placed at fractions of a pixel, which changes the
// rendering.
const Figure& figure(const QPainter& painter, const QColor& ink, QChar sign, const QPointF& at) {
    using Key = std::tuple<QString, int, QRgb, QChar, double, double>;
    static std::map<Key, Figure> figures;
    constexpr std::size_t plenty = 150; // ten digits at each place of numbers of one to five digits
    const Key key(painter.font().key(), painter.device()->logicalDpiY(), ink.rgba(), sign, at.x(),
                  at.y());
    const auto it = figures.find(key);
    if (it != figures.end()) return it->second;
    if (figures.size() >= plenty) figures.clear();
    return figures.emplace(key, draw_figure(painter, ink, sign, at)).first->second;
}

} // namespace

bool draw_large_figures(QPainter& painter, const QRect& place, int flags, const QString& text,
                        const QColor& ink) {
    // An image can only be copied to pixels of the same size.
    if (painter.paintEngine()->type() != QPaintEngine::Raster ||
        painter.deviceTransform().type() > QTransform::TxTranslate)
        return false;
    if (!is_number(text) || !(flags & Qt::AlignVCenter) ||
        painter.fontInfo().pixelSize() <= largest_kept_by_toolkit_px)
        return false;
    const QFontMetricsF metrics(painter.font(), painter.device());
    double breadth = 0;
    for (const QChar sign : text)
        breadth += metrics.horizontalAdvance(sign);
    // In a font with kerned digits the widths do not add up; the toolkit draws that.
    if (breadth > place.width() || breadth != metrics.horizontalAdvance(text)) return false;
    const double spare = place.width() - breadth;
    const double indent = flags & Qt::AlignRight ? spare : flags & Qt::AlignHCenter ? spare / 2 : 0;
    QPointF at(place.x() + indent,
               place.y() + (place.height() - metrics.height()) / 2 + metrics.ascent());
    for (const QChar sign : text) {
        const Figure& it = figure(painter, ink, sign, at);
        painter.drawImage(it.corner, it.picture);
        at.rx() += metrics.horizontalAdvance(sign);
    }
    return true;
}

} // namespace zol::view::qt
