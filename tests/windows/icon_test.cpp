// The program's icon.
#include "tests/windows/window_fixture.h"

#include <QApplication>
#include <QIcon>

namespace zol::view {
namespace {

using namespace test_window;

class ProgramIcon : public WindowFixture {};

TEST_F(ProgramIcon, EveryWindowHasItInDesktopSizes) {
    open(Sample);
    open(Dialog);
    for (Widget* window : {&Sample, &Dialog})
        for (const int side : {16, 24, 32, 48, 128}) {
            const QImage picture = top(*window).windowIcon().pixmap(side, side).toImage();
            ASSERT_EQ(picture.size(), QSize(side, side));
            EXPECT_GT(picture.pixelColor(side / 2, side / 2).alpha(), 250) << side;
        }
}

TEST_F(ProgramIcon, ShowsTheFlameInEachSize) {
    for (const int side : {16, 24, 32, 48, 128}) {
        const QImage picture = QApplication::windowIcon().pixmap(side, side).toImage();
        const auto seen = [&](double x, double y) {
            return picture.pixelColor(static_cast<int>(x * side), static_cast<int>(y * side));
        };
        EXPECT_GT(seen(0.5, 0.3).blue(), seen(0.5, 0.3).red() + 60) << side;
        EXPECT_GT(seen(0.54, 0.6).green(), seen(0.54, 0.6).blue() + 60) << side;
        EXPECT_LT(seen(0.12, 0.5).lightness(), 80) << "the background, at " << side;
    }
}

TEST_F(ProgramIcon, HasTheNameOfTheDesktopEntry) {
    EXPECT_EQ(QGuiApplication::desktopFileName(), "zol-injection");
}

} // namespace
} // namespace zol::view
