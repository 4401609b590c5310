// Live values in a large font are drawn from cached images of their digits, and must look the same.
#include "view/qt/instrument_style.h"
#include "view/qt/large_figures.h"

#include <QImage>
#include <QPainter>
#include <QStyleFactory>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace zol::view::qt {
namespace {

QImage drawn(const QStyle& style, const QString& text, double points, int width, int flags) {
    QImage image(width, 150, QImage::Format_RGB32);
    image.fill(QColor(64, 0, 0));
    QFont font;
    font.setBold(true);
    font.setPointSizeF(points);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(64, 0, 0));
    palette.setColor(QPalette::WindowText, QColor(255, 243, 214));
    QPainter painter(&image);
    painter.setFont(font);
    painter.translate(0, 7);
    style.drawItemText(&painter, QRect(3, 5, width - 6, 120), flags | Qt::AlignVCenter, palette,
                       true, text, QPalette::WindowText);
    return image;
}

// Equal pixels; blending twice may round a colour by 1 of 255.
bool same_pixels(const QImage& one, const QImage& other) {
    const auto near = [](int a, int b) { return std::abs(a - b) <= 1; };
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y), b = other.pixelColor(x, y);
            if (!near(a.red(), b.red()) || !near(a.green(), b.green()) || !near(a.blue(), b.blue()))
                return false;
        }
    return true;
}

// Our style draws this like the toolkit's style, the first and the second time.
bool looks_the_same(const QString& text, double points, int width, int flags) {
    const std::unique_ptr<QStyle> toolkit(QStyleFactory::create("Fusion"));
    const InstrumentStyle ours;
    const QImage wanted = drawn(*toolkit, text, points, width, flags);
    return same_pixels(drawn(ours, text, points, width, flags), wanted) &&
           same_pixels(drawn(ours, text, points, width, flags), wanted);
}

TEST(LargeFigures, LookLikeTextDrawnByTheToolkit) {
    for (const char* number : {"0", "17", "654", "3208", "98765"})
        for (const double points : {30.0, 51.2, 51.1723, 64.0})
            for (const int width : {318, 319, 401})
                EXPECT_TRUE(looks_the_same(number, points, width, Qt::AlignHCenter))
                    << number << " in " << points << " points on " << width << " pixels";
}

TEST(LargeFigures, AreCachedOnlyForLargeNumbers) {
    QImage image(400, 150, QImage::Format_RGB32);
    QPainter painter(&image);
    const auto kept = [&](const QString& text, int pixels) {
        QFont font;
        font.setPixelSize(pixels);
        painter.setFont(font);
        return draw_large_figures(painter, image.rect(), Qt::AlignCenter, text, Qt::black);
    };
    EXPECT_TRUE(kept("1480", 68));
    EXPECT_FALSE(kept("1480", 64));
    EXPECT_FALSE(kept("---", 68));
    EXPECT_FALSE(kept("", 68));
    EXPECT_FALSE(kept("148014801480", 68)) << "too long for its place";
    painter.scale(2, 2);
    EXPECT_FALSE(kept("1480", 68));
}

TEST(LargeFigures, KeepTheirAlignment) {
    for (const Qt::AlignmentFlag side : {Qt::AlignLeft, Qt::AlignRight})
        EXPECT_TRUE(looks_the_same("1480", 60, 400, side));
}

// More images than the cache holds.
TEST(LargeFigures, LookRightAfterTheCacheWasFull) {
    for (int number = 1000; number < 10000; number += 487)
        for (const int width : {318, 331, 344, 357})
            EXPECT_TRUE(looks_the_same(QString::number(number), 51.2, width, Qt::AlignHCenter))
                << number;
}

} // namespace
} // namespace zol::view::qt
