// What the view adds when it draws: states that differ on each background, titles, records, and
// sizes that follow the screen.
#include "tests/windows/window_fixture.h"
#include "view/qt/colours.h"
#include "view/qt/face.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/frm_splash.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetricsF>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>

namespace zol::view {
namespace {

using namespace test_window;
namespace look = qt::face;

class Face : public WindowFixture {
  protected:
    Face() { open(Sample); }
    // The control with the part of its window that is visible at its round corners.
    QImage picture(Widget& w) const {
        const QWidget& control = face(w);
        const QRect place(control.mapTo(&top(*w.window), QPoint(0, 0)), control.size());
        return top(*w.window).grab(place).toImage();
    }
    static QColor middle(const QImage& image) {
        return image.pixelColor(image.width() / 2, image.height() / 2);
    }
    static int colourful_pixels(const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y).saturation() > 80;
        return count;
    }
    // The number of colour changes along a line above the caption.
    static int changes_along_top(const QImage& image) {
        int changes = 0;
        for (int x = 8; x < image.width() - 8; ++x)
            changes += image.pixel(x, 5) != image.pixel(x - 1, 5);
        return changes;
    }
    void give_focus(Widget& w) { face(w).setFocus(Qt::TabFocusReason); }
};

TEST_F(Face, DisabledFlashingButtonIsHatchedWithoutColour) {
    set_text(Command1, "");
    set_back(Command1, red);
    settle();
    const QImage enabled = picture(Command1);
    set_enabled(Command1, false);
    settle();
    const QImage disabled = picture(Command1);
    EXPECT_GT(colourful_pixels(enabled), enabled.width() * enabled.height() / 2);
    EXPECT_EQ(colourful_pixels(disabled), 0);
    EXPECT_EQ(changes_along_top(enabled), 0);
    EXPECT_GT(changes_along_top(disabled), 8) << "hatched";
    EXPECT_EQ(face(Command1).palette().color(QPalette::Button), QColor(255, 0, 0));
}

TEST_F(Face, DisabledSteelButtonIsFlatWithoutLowerEdge) {
    const auto lower_edge = [&] {
        const QImage image = picture(Command1);
        return image.pixelColor(image.width() / 2, image.height() - 2);
    };
    set_back(Command1, rgb(192, 192, 192));
    set_text(Command1, "");
    settle();
    EXPECT_LT(lower_edge().lightness(), middle(picture(Command1)).lightness() - 20);
    set_enabled(Command1, false);
    settle();
    EXPECT_EQ(lower_edge(), middle(picture(Command1)));
    EXPECT_EQ(changes_along_top(picture(Command1)), 0) << "not hatched";
}

TEST_F(Face, DisabledCaptionIsPalerOnEachBackground) {
    for (const Colour ground : {windows::paper, windows::claret}) {
        set_back(Sample, ground);
        set_back(Command1, windows::steel);
        set_text(Command1, "IIIIII");
        const auto contrast_of_caption = [&] {
            settle();
            const QImage image = picture(Command1);
            const QColor top = image.pixelColor(image.width() / 2, 5);
            double most = 1;
            for (int x = 6; x < image.width() - 6; ++x)
                most = std::max(most, qt::contrast(top, image.pixelColor(x, image.height() / 2)));
            return most;
        };
        set_enabled(Command1, true);
        const double enabled = contrast_of_caption();
        set_enabled(Command1, false);
        EXPECT_LT(contrast_of_caption(), enabled - 1) << ground;
    }
}

TEST_F(Face, FocusRingIsVisibleOnEachBackground) {
    for (const Colour ground : {windows::paper, windows::claret, windows::slate, windows::field,
                                white, black, red, green, yellow}) {
        set_back(Sample, ground);
        settle();
        const QColor on = qt::to_qcolor(ground);
        for (Widget* widget : {&Command1, &Text1, &Combo1}) {
            give_focus(*widget);
            const int width = look::scaled(look::ring_px, face(*widget));
            const QImage window = top(Sample).grab().toImage();
            const QPoint edge =
                face(*widget).mapTo(&top(Sample), QPoint(face(*widget).width() / 2, 0));
            for (int y = 0; y < width; ++y)
                EXPECT_GE(qt::contrast(window.pixelColor(edge + QPoint(0, y)), on), 3)
                    << full_name(*widget) << " on " << ground << " at " << y;
            EXPECT_EQ(window.pixelColor(edge + QPoint(0, width)), on)
                << full_name(*widget) << ": the gap shows the ground";
        }
    }
}

TEST_F(Face, PressedButtonLosesItsLowerEdge) {
    set_text(Command1, "");
    const auto lower_edge = [&] {
        const QImage image = picture(Command1);
        return image.pixelColor(image.width() / 2, image.height() - 3);
    };
    EXPECT_NE(lower_edge(), middle(picture(Command1)));
    face<QAbstractButton>(Command1).setDown(true);
    EXPECT_EQ(lower_edge(), middle(picture(Command1)));
}

TEST_F(Face, EachColourPairIsLegible) {
    const std::vector<std::pair<QColor, QColor>> pairs{
        {look::ground, look::ink},
        {look::ground, look::secondary},
        {look::ground, look::accent},
        {look::steel, look::ink},
        {look::panel_open, look::ink},
        {look::field_ground, look::ink},
        {look::field_ground, look::accent},
        {look::field_ground, look::waiting},
        {look::accent, look::chosen_ink},
        {look::waiting, look::chosen_ink},
        {look::of(windows::chalk), look::ink},
        {look::of(windows::straw), look::ink},
        {look::of(windows::field), look::of(windows::cream)},
        {look::of(windows::claret), look::of(windows::cream)},
        {look::of(windows::slate), look::of(windows::cream)},
        {look::of(windows::slate), look::trace_title},
        {look::ground, look::of(windows::graphite)},
        {look::of(red), look::readable(look::of(red), look::ink)},
        {look::of(red), qt::legible_on(look::of(red), look::of(windows::graphite))}};
    for (const auto& [ground, ink] : pairs)
        EXPECT_GE(qt::contrast(ground, ink), 4.5)
            << ground.name().toStdString() << " and " << ink.name().toStdString();
}

TEST_F(Face, DigitsHaveEqualWidths) {
    const QFontMetricsF metrics(QApplication::font());
    for (const QChar figure : QString("0123456789"))
        EXPECT_EQ(metrics.horizontalAdvance(figure), metrics.horizontalAdvance('0'));
    EXPECT_EQ(QApplication::font().families().first(), "Roboto Condensed");
}

// The result of a port test.
TEST_F(Face, TextOnRedIsDrawnInBlack) {
    set_back(Label1, red);
    set_fore(Label1, windows::ink);
    set_text(Label1, "IIIII");
    // Large letters have pixels of their full colour.
    top(Sample).resize(top(Sample).size() * 3);
    settle();
    const QImage image = picture(Label1);
    int darkest = 255;
    for (int x = 0; x < image.width(); ++x)
        darkest = std::min(darkest, image.pixelColor(x, image.height() / 2).red());
    EXPECT_LT(darkest, 20);
}

// All six titles look alike, also the one with another background in its table.
TEST_F(Face, TitleOfALiveValueHasWindowBackground) {
    open(form1::Form1);
    for (Widget* title : {&form1::lbl_rpm, &form1::lbl_tinj, &form1::lbl_press, &form1::lbl_temp,
                          &form1::lbl_lambda, &form1::Label22}) {
        const QImage window = top(form1::Form1).grab().toImage();
        const QPoint corner = face(*title).mapTo(&top(form1::Form1), QPoint(0, 0));
        EXPECT_EQ(window.pixelColor(corner), look::ground) << title->name;
    }
    EXPECT_EQ(face(form1::lbl_rpm).palette().color(QPalette::Window), QColor(64, 0, 0));
}

TEST_F(Face, TitleOfLowContrastHasTheUsualTextColour) {
    open(form1::Form1);
    const auto darkest = [&] {
        settle();
        const QImage image = face(form1::lbl_rpm).grab().toImage();
        int least = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width() / 2; ++x)
                least = std::min(least, qGray(image.pixel(x, y)));
        return least;
    };
    set_fore(form1::lbl_rpm, rgb(200, 200, 120));
    EXPECT_LT(darkest(), 80);
    set_fore(form1::lbl_rpm, rgb(0, 110, 0)); // 5.6 : 1
    settle();
    const QImage legible = face(form1::lbl_rpm).grab().toImage();
    bool green = false;
    for (int y = 0; y < legible.height(); ++y)
        for (int x = 0; x < legible.width(); ++x) {
            const QColor pixel = legible.pixelColor(x, y);
            green |= pixel.green() > pixel.red() + 40;
        }
    EXPECT_TRUE(green);
}

TEST_F(Face, BackgroundOfARecordIsAsWideAsItsText) {
    open(form1::Form1);
    set_visible(form1::lbl_ore, true);
    set_text(form1::lbl_ore, "Time On GAS: 41 hour");
    set_back(form1::lbl_ore, red);
    settle();
    const QImage window = top(form1::Form1).grab().toImage();
    const auto at = [&](double share) {
        const QWidget& record = face(form1::lbl_ore);
        const QPoint point(qRound(record.width() * share), record.height() - 3);
        return window.pixelColor(record.mapTo(&top(form1::Form1), point));
    };
    EXPECT_EQ(at(0.05), QColor(255, 0, 0));
    EXPECT_EQ(at(0.95), look::ground);
    EXPECT_TRUE(face(form1::lbl_ore).font().bold());
    EXPECT_GT(face(form1::lbl_ore).font().pointSizeF(), face(form1::lbl_min).font().pointSizeF());
}

TEST_F(Face, LampOfTheTankIndicatorIsHollow) {
    open(form1::Form1);
    set_visible(form1::Frame_impostazioni, true);
    settle();
    Widget& lamp = form1::Shape1[3];
    const QPoint centre = face(lamp).mapTo(&top(form1::Form1), face(lamp).rect().center());
    EXPECT_EQ(top(form1::Form1).grab().toImage().pixelColor(centre), look::ground);
    EXPECT_GT(colourful_pixels(picture(lamp)), 20) << "with its colour around";
}

TEST_F(Face, WindowsNotScaledByTheLogicFollowTheScreen) {
    open(form2::Form2);
    const QSize pixels = top(form2::Form2).screen()->size();
    const double scale = std::min(pixels.width() / 675.0, pixels.height() / 600.0);
    ASSERT_GT(scale, 1.1);
    EXPECT_NEAR(top(form2::Form2).width(), 400 * scale, 2);
}

TEST_F(Face, SpaceBetweenMenuTitlesIsScaled) {
    open(form1::Form1);
    auto* bar = top(form1::Form1).findChild<QMenuBar*>();
    const auto gap_in_letters = [&] {
        const QAction* first = bar->actions().first();
        const double text = bar->fontMetrics().horizontalAdvance(first->text());
        return (bar->actionGeometry(const_cast<QAction*>(first)).width() - text) /
               bar->fontMetrics().height();
    };
    const double before = gap_in_letters();
    top(form1::Form1).resize(top(form1::Form1).size() * 3);
    settle();
    EXPECT_GT(before, 1);
    EXPECT_NEAR(gap_in_letters(), before, 0.3);
}

TEST_F(Face, MovieHasNoTip) {
    open(form1::Form1);
    EXPECT_EQ(face(form1::ShockwaveFlash1).toolTip(), "");
}

} // namespace
} // namespace zol::view
