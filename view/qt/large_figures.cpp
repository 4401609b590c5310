// The toolkit keeps pictures of letters, but of none larger than 64 pixels: their outlines are
// fitted to the pixels and filled anew each time, five sixths of what showing a status telegram
// costs on a large screen. A number has ten figures only, so theirs are kept here.
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
    QPointF corner; // where the picture stands
};

// The figure that begins at `at`, on the base line.
Figure draw_figure(const QPainter& like, const QColor& ink, QChar sign, const QPointF& at) {
    constexpr int margin = 3; // for what reaches over the figure's own room
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

// One for each place too: type stands on fractions of pixels, and its outlines are rounded there.
const Figure& figure(const QPainter& painter, const QColor& ink, QChar sign, const QPointF& at) {
    using Key = std::tuple<QString, int, QRgb, QChar, double, double>;
    static std::map<Key, Figure> figures;
    constexpr std::size_t plenty = 150; // ten figures in numbers of one to five
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
    // Kept pixels suit pixels, one to one.
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
    // A type that sets figures closer than they are broad is the toolkit's to set.
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
