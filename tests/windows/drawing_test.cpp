// What is painted, and when it is not repainted.
#include "tests/windows/window_fixture.h"

#include <QLabel>
#include <QPaintEvent>

namespace zol::view {
namespace {

using namespace test_window;

// Counts the paint events of a widget and the area that they cover.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& face) : face_(face) { face.installEventFilter(this); }
    ~PaintWatch() override { face_.removeEventFilter(this); }
    int count = 0;
    QRect area;

  private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
            area |= static_cast<QPaintEvent*>(event)->rect();
        }
        return false;
    }
    QWidget& face_;
};

class Drawing : public WindowFixture {
  protected:
    Drawing() {
        open(Sample);
        run_for(50);
    }
    // The colour of a point of the control, in twips.
    QColor pixel(Widget& w, double x_twips, double y_twips) {
        const QImage image = top(Sample).grab().toImage();
        const QSize size = face(w).size();
        const QPoint at(static_cast<int>(x_twips / w.design.place.width * size.width()),
                        static_cast<int>(y_twips / w.design.place.height * size.height()));
        return image.pixelColor(face(w).mapTo(&top(Sample), at));
    }
};

TEST_F(Drawing, ShapesAreDrawnAtTheirCoordinates) {
    draw_line(Picture1, 0, 750, 3000, 750, red);
    fill_rectangle(Picture1, 600, 750, 660, 150, green);
    EXPECT_EQ(pixel(Picture1, 1500, 755), QColor(255, 0, 0));
    EXPECT_EQ(pixel(Picture1, 630, 400), QColor(0, 255, 0));
    EXPECT_EQ(pixel(Picture1, 630, 1000), QColor(0, 0, 0));
    clear_drawing(Picture1);
    EXPECT_NE(pixel(Picture1, 630, 400), QColor(0, 255, 0));
    fill_rectangle(Picture1, 0, 0, 100, 100, red);
    EXPECT_EQ(pixel(Picture1, 50, 50), QColor(255, 0, 0));
}

TEST_F(Drawing, DrawingIsScaledWithItsSurface) {
    fill_rectangle(Picture1, 1500, 0, 3000, 1500, green);
    top(Sample).resize(top(Sample).size() * 2);
    settle();
    EXPECT_EQ(pixel(Picture1, 2900, 1400), QColor(0, 255, 0));
    EXPECT_EQ(pixel(Picture1, 100, 100), QColor(0, 0, 0));
}

TEST_F(Drawing, NewBarRepaintsOnlyItsOwnArea) {
    PaintWatch watch(face(Picture1));
    fill_rectangle(Picture1, 600, 750, 660, 150, green);
    settle();
    EXPECT_EQ(watch.count, 1);
    EXPECT_LT(watch.area.width(), 32) << "with the gap ahead of it";
}

TEST_F(Drawing, LampIsACircleInItsColour) {
    EXPECT_EQ(pixel(Lamp, 150, 150), QColor(255, 0, 0));
    set_back(Lamp, green);
    settle();
    EXPECT_EQ(pixel(Lamp, 150, 150), QColor(0, 255, 0));
    EXPECT_EQ(pixel(Lamp, 5, 5), pixel(Sample, 8900, 7900))
        << "the corners have the window's colour";
}

TEST_F(Drawing, LampThatIsOffIsAnEmptyRing) {
    set_back(Lamp, Sample.look.back);
    settle();
    const QColor hole = pixel(Lamp, 150, 150), edge = pixel(Lamp, 6, 150);
    EXPECT_GE(hole.lightness(), pixel(Sample, 8900, 7900).lightness());
    EXPECT_LT(edge.lightness(), hole.lightness() - 20);
}

TEST_F(Drawing, UnchangedLampIsNotRepaintedAfterATick) {
    PaintWatch watch(face(Lamp));
    set_back(Lamp, Sample.look.back);
    set_back(Lamp, red);
    settle();
    EXPECT_EQ(watch.count, 0);
    set_back(Lamp, yellow);
    settle();
    EXPECT_EQ(watch.count, 1);
}

TEST_F(Drawing, SettingTheSameValueDoesNotRepaint) {
    set_text(Label1, "850");
    set_value_and_run_handler(ProgressBar1, 20);
    settle();
    PaintWatch label(face(Label1)), bar(face(ProgressBar1));
    set_text(Label1, "850");
    set_fore(Label1, Label1.look.fore);
    set_value_and_run_handler(ProgressBar1, 20);
    settle();
    EXPECT_EQ(label.count, 0);
    EXPECT_EQ(bar.count, 0);
}

TEST_F(Drawing, LongTextGetsASmallerFont) {
    auto& label = face<QLabel>(Label1);
    const double design = label.font().pointSizeF();
    set_text(Label1, "Interruttore temperatura");
    EXPECT_LT(label.font().pointSizeF(), design);
    EXPECT_LE(label.fontMetrics()
                  .boundingRect(QRect(0, 0, label.width() - 2, 0), Qt::TextWordWrap, label.text())
                  .height(),
              label.height());
    set_text(Label1, "850");
    EXPECT_DOUBLE_EQ(label.font().pointSizeF(), design);
}

TEST_F(Drawing, MovieRunsOnlyWhileItIsVisible) {
    PaintWatch watch(face(Movie));
    run_until([&] { return watch.count >= 2; });
    set_visible(Movie, false);
    settle();
    watch.count = 0;
    run_for(250);
    EXPECT_EQ(watch.count, 0);
}

} // namespace
} // namespace zol::view
