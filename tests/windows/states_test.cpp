// What a control's state looks like: pointed at, pressed, focused, off, waiting, on view.
#include "tests/windows/qt_bench.h"
#include "view/qt/colours.h"
#include "view/windows/form1.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

namespace zol::view {
namespace {

using namespace test_window;

class States : public QtBench {
  protected:
    States() {
        open(Bench);
        run_for(50);
        face(Label1).setFocus();
    }
    QImage picture(Widget& w) const { return face(w).grab().toImage(); }
    // At rest, under the pointer, with the focus, and off: one picture each.
    std::vector<QImage> in_every_state(Widget& w) {
        std::vector<QImage> pictures;
        QWidget& control = face(w);
        control.clearFocus();
        control.setAttribute(Qt::WA_UnderMouse, false);
        pictures.push_back(picture(w));
        control.setAttribute(Qt::WA_UnderMouse, true);
        QHoverEvent move(QEvent::HoverMove, QPointF(1, 1), QPointF(1, 1), QPointF(0, 0));
        QApplication::sendEvent(&control, &move);
        pictures.push_back(picture(w));
        control.setAttribute(Qt::WA_UnderMouse, false);
        control.setFocus(Qt::TabFocusReason);
        pictures.push_back(picture(w));
        control.clearFocus();
        set_enabled(w, false);
        settle();
        pictures.push_back(picture(w));
        return pictures;
    }
    int handle_length(Widget& w) const {
        auto& slider = face<QSlider>(w);
        QStyleOptionSlider option;
        option.initFrom(&slider);
        option.minimum = slider.minimum();
        option.maximum = slider.maximum();
        option.orientation = slider.orientation();
        return slider.style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
            .width();
    }
};

TEST_F(States, AButtonAMarkAndAFieldShowWhetherTheyArePointedAtFocusedOrOff) {
    for (Widget* widget : {&Command1, &Option_a, &Check1, &Text1}) {
        const auto pictures = in_every_state(*widget);
        for (std::size_t a = 0; a < pictures.size(); ++a)
            for (std::size_t b = 0; b < a; ++b)
                EXPECT_NE(pictures[a], pictures[b]) << full_name(*widget) << a << " and " << b;
    }
}

TEST_F(States, ASliderShowsItsFocusAndThatItIsOff) {
    for (Widget* widget : {&Slider_flat, &Slider_tall}) {
        const auto pictures = in_every_state(*widget);
        EXPECT_NE(pictures[0], pictures[2]) << full_name(*widget);
        EXPECT_NE(pictures[0], pictures[3]) << full_name(*widget);
    }
}

TEST_F(States, AButtonHeldDownIsDarkerThanOneAtRest) {
    const QPoint middle(6, 6);
    const int at_rest = picture(Command1).pixelColor(middle).lightness();
    face<QAbstractButton>(Command1).setDown(true);
    EXPECT_LT(picture(Command1).pixelColor(middle).lightness(), at_rest - 20);
}

TEST_F(States, AFieldThatWaitsForItsNumberHasARedEdge) {
    set_edit_marker(Text1, true);
    settle();
    const QColor edge = picture(Text1).pixelColor(1, face(Text1).height() / 2);
    EXPECT_GT(edge.red(), 150);
    EXPECT_LT(edge.green(), 30);
    set_edit_marker(Text1, false);
    settle();
    EXPECT_NE(picture(Text1).pixelColor(1, face(Text1).height() / 2), edge);
}

// Service records on flashing red: grey letters that nobody could read.
TEST_F(States, ATextThatItsGroundWouldSwallowIsDrawnInBlackOrWhite) {
    const Colour graphite = rgb(79, 89, 81);
    const auto darkest = [&] {
        int least = 255;
        const QImage image = picture(Label1);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                least = std::min(least, image.pixelColor(x, y).red());
        return least;
    };
    set_text(Label1, "Time On GAS");
    set_fore(Label1, graphite);
    set_back(Label1, white);
    settle();
    EXPECT_GT(darkest(), 70) << "as told where it can be read";
    set_back(Label1, red);
    settle();
    EXPECT_LT(darkest(), 40);
    EXPECT_EQ(face(Label1).palette().color(QPalette::WindowText), QColor(79, 89, 81));
    EXPECT_EQ(qt::legible_on(QColor(64, 0, 0), QColor(60, 10, 0)), QColor(Qt::white));
    EXPECT_EQ(qt::legible_on(QColor(64, 0, 0), QColor(0, 255, 0)), QColor(0, 255, 0));
}

TEST_F(States, ASlidersHandleGrowsWithItsWindow) {
    const int before = handle_length(Slider_flat);
    top(Bench).resize(top(Bench).size() * 2);
    settle();
    EXPECT_NEAR(handle_length(Slider_flat), 2 * before, 3);
}

TEST_F(States, TheButtonOfThePanelOnViewIsMarked) {
    open(form1::Form1);
    const QImage at_first = picture(form1::Command_engine);
    const QImage other = picture(form1::Command_lambda);
    set_visible(form1::frame_engine, false);
    set_visible(form1::Frame_Lambda, true);
    settle();
    EXPECT_NE(picture(form1::Command_engine), at_first);
    EXPECT_NE(picture(form1::Command_lambda), other);
    set_visible(form1::Frame_Lambda, false);
    set_visible(form1::frame_engine, true);
    settle();
    EXPECT_EQ(picture(form1::Command_lambda), other);
}

TEST_F(States, TheTanksVoltagesStandOnAScale) {
    open(form1::Form1);
    set_visible(form1::Frame_impostazioni, true);
    settle();
    const QImage tank = picture(form1::Frame_tank); // judged between two lamps
    const double x_scale = tank.width() / form1::Frame_tank.design.place.width;
    const double y_scale = tank.height() / form1::Frame_tank.design.place.height;
    const int middle = qRound(2010 * y_scale), line = qRound(4140 * x_scale);
    int darkest = 255;
    for (int x = line - 2; x <= line + 2; ++x)
        darkest = std::min(darkest, tank.pixelColor(x, middle).lightness());
    EXPECT_LT(darkest, tank.pixelColor(line - 6, middle).lightness() - 40);
}

} // namespace
} // namespace zol::view
