// The drawing surface as a trace: the pen, the gap ahead of it, and the previous sweep.
#include "tests/windows/window_fixture.h"
#include "view/qt/face.h"

namespace zol::view {
namespace {

using namespace test_window;

class TraceFace : public WindowFixture {
  protected:
    TraceFace() { open(Sample); }
    // Bars 60 twips wide at a distance of 100, upwards from the middle.
    static void draw_bars(int count) {
        for (int i = 0; i < count; ++i) {
            draw_line(Picture1, 0, 750, 3000, 750, red);
            fill_rectangle(Picture1, 100.0 * i, 750, 100.0 * i + 60, 400, green);
        }
    }
    QColor pixel(double x_twips, double y_twips) {
        settle();
        const QImage image = face(Picture1).grab().toImage();
        return image.pixelColor(static_cast<int>(x_twips / 3000 * image.width()),
                                static_cast<int>(y_twips / 1500 * image.height()));
    }
    QColor bar(int number) { return pixel(100 * number + 30, 560); }
    void start_second_sweep(int bars) {
        draw_bars(30);
        clear_drawing(Picture1);
        draw_bars(bars);
    }
};

TEST_F(TraceFace, LastSweepStaysDimmedAheadOfThePen) {
    start_second_sweep(5);
    EXPECT_EQ(bar(2), QColor(0, 255, 0));
    EXPECT_EQ(bar(20).red(), 0);
    EXPECT_GT(bar(20).green(), 50);
    EXPECT_LT(bar(20).green(), 150);
}

TEST_F(TraceFace, PenKeepsAGapOfTwoBarsAhead) {
    start_second_sweep(5);
    EXPECT_EQ(bar(4), QColor(0, 255, 0));
    for (const int cleared : {5, 6})
        EXPECT_EQ(bar(cleared), QColor(0, 0, 0)) << cleared;
    EXPECT_GT(bar(7).green(), 50);
    EXPECT_EQ(pixel(630, 751), QColor(255, 0, 0)) << "the centre line goes through";
}

// The main window does this when it becomes active. Nothing is cleared.
TEST_F(TraceFace, PenReturningWithoutAClearDimsTheSweep) {
    draw_bars(30);
    draw_bars(5);
    EXPECT_EQ(bar(4), QColor(0, 255, 0));
    EXPECT_EQ(bar(5), QColor(0, 0, 0));
    EXPECT_LT(bar(20).green(), 150);
}

TEST_F(TraceFace, NewSizeKeepsTheSweeps) {
    start_second_sweep(5);
    top(Sample).resize(top(Sample).size() * 2);
    EXPECT_EQ(bar(2), QColor(0, 255, 0));
    EXPECT_EQ(bar(6), QColor(0, 0, 0));
    EXPECT_GT(bar(20).green(), 50);
}

TEST_F(TraceFace, TitleAndCentreValueAreShown) {
    const auto inked = [&](double from, double to) {
        settle();
        const QImage image = face(Picture1).grab().toImage();
        int count = 0;
        for (int y = 2; y < image.height() / 5; ++y)
            for (int x = static_cast<int>(from * image.width()); x < to * image.width(); ++x)
                count += image.pixelColor(x, y).lightness() > 100;
        return count;
    };
    set_help(Picture1, {.name = "Lambda trace", .text = ""});
    EXPECT_GT(inked(0, 0.5), 10);
    EXPECT_EQ(inked(0.55, 1), 0);
    set_text(Picture1, "centre 400");
    EXPECT_GT(inked(0.55, 1), 10);
}

} // namespace
} // namespace zol::view
