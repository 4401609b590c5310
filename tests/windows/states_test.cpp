// The look of a control in each state: under the pointer, pressed, focused, disabled, waiting.
#include "tests/windows/window_fixture.h"
#include "view/qt/colours.h"
#include "view/windows/form1.h"
#include "view/windows/style.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenuBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

#include <map>

namespace zol::view {
namespace {

using namespace test_window;

class States : public WindowFixture {
  protected:
    States() {
        open(Sample);
        run_for(50);
        set_focus(Label1);
    }
    QImage picture(Widget& w) const { return face(w).grab().toImage(); }
    // Images in normal state, under the pointer, focused and disabled.
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
    QRect slider_part(Widget& w, QStyle::SubControl part) const {
        auto& slider = face<QSlider>(w);
        QStyleOptionSlider option;
        option.initFrom(&slider);
        option.minimum = slider.minimum();
        option.maximum = slider.maximum();
        option.sliderPosition = slider.value();
        option.orientation = slider.orientation();
        option.tickPosition = slider.tickPosition();
        return slider.style()->subControlRect(QStyle::CC_Slider, &option, part, &slider);
    }
    int handle_length(Widget& w) const { return slider_part(w, QStyle::SC_SliderHandle).width(); }

    // The background is the most frequent colour, the text the one with the highest contrast to it.
    static double contrast_of(const QImage& image) {
        std::map<QRgb, int> counts;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ++counts[image.pixel(x, y)];
        const auto ground =
            std::max_element(counts.begin(), counts.end(), [](const auto& a, const auto& b) {
                return a.second < b.second;
            })->first;
        double most = 1;
        for (const auto& [colour, count] : counts)
            most = std::max(most, qt::contrast(QColor(ground), QColor(colour)));
        return most;
    }
};

TEST_F(States, EachStateOfAControlLooksDifferent) {
    for (Widget* widget : {&Command1, &Option_a, &Check1, &Text1}) {
        const auto pictures = in_every_state(*widget);
        for (std::size_t a = 0; a < pictures.size(); ++a)
            for (std::size_t b = 0; b < a; ++b)
                EXPECT_NE(pictures[a], pictures[b]) << full_name(*widget) << a << " and " << b;
    }
}

TEST_F(States, FocusedOrDisabledSliderLooksDifferent) {
    for (Widget* widget : {&Slider_flat, &Slider_tall}) {
        const auto pictures = in_every_state(*widget);
        EXPECT_NE(pictures[0], pictures[2]) << full_name(*widget);
        EXPECT_NE(pictures[0], pictures[3]) << full_name(*widget);
    }
}

TEST_F(States, PressedButtonIsDarker) {
    const QPoint middle(6, 6);
    const int at_rest = picture(Command1).pixelColor(middle).lightness();
    face<QAbstractButton>(Command1).setDown(true);
    EXPECT_LT(picture(Command1).pixelColor(middle).lightness(), at_rest - 20);
}

TEST_F(States, FieldWithAnEditMarkerHasARedEdge) {
    set_edit_marker(Text1, true);
    settle();
    const QColor edge = picture(Text1).pixelColor(1, face(Text1).height() / 2);
    EXPECT_GT(edge.red(), 150);
    EXPECT_LT(edge.green(), 30);
    set_edit_marker(Text1, false);
    settle();
    EXPECT_NE(picture(Text1).pixelColor(1, face(Text1).height() / 2), edge);
}

// For example service records in grey on flashing red.
TEST_F(States, TextOfLowContrastIsDrawnInBlackOrWhite) {
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
    EXPECT_GT(darkest(), 70) << "unchanged if legible";
    set_back(Label1, red);
    settle();
    EXPECT_LT(darkest(), 40);
    EXPECT_EQ(face(Label1).palette().color(QPalette::WindowText), QColor(79, 89, 81));
    EXPECT_EQ(qt::legible_on(QColor(64, 0, 0), QColor(60, 10, 0)), QColor(Qt::white));
    EXPECT_EQ(qt::legible_on(QColor(64, 0, 0), QColor(0, 255, 0)), QColor(0, 255, 0));
}

// At three times the size, where letters have pixels of their full colour.
TEST_F(States, DisabledWindowIsPaleButLegible) {
    set_back(Sample, rgb(229, 233, 237));
    set_back(Text1, white);
    set_text(Text1, "3900");
    set_items(Combo1, {"Toroidal"});
    set_list_index(Combo1, 0);
    set_visible(Inside, false);
    set_back(Label1, rgb(64, 0, 0));
    set_fore(Label1, rgb(255, 243, 214));
    top(Sample).resize(top(Sample).size() * 3);
    settle();
    const QList<QWidget*> shown{
        &face(Label1), &face(Command1), &face(Option_a), &face(Check1),
        &face(Text1),  &face(Combo1),   &face(Frame1),   top(Sample).findChild<QMenuBar*>()};
    const auto contrasts = [&] {
        std::vector<double> all;
        for (QWidget* one : shown)
            all.push_back(contrast_of(one->grab().toImage()));
        return all;
    };
    const auto enabled = contrasts();
    set_enabled(Sample, false);
    settle();
    const auto disabled = contrasts();
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const std::string name = shown[i]->objectName().toStdString();
        EXPECT_GE(disabled[i], 4.5) << name;
        EXPECT_LT(disabled[i], enabled[i] - 1) << name;
    }
    for (const QColor& ground : {QColor(229, 233, 237), QColor(255, 0, 0), QColor(79, 89, 81)})
        for (const QColor& ink : {QColor(79, 89, 81), QColor(0, 0, 0), QColor(255, 0, 0)})
            EXPECT_GE(qt::contrast(ground, qt::faded_on(ground, ink)), 4.5);
}

TEST_F(States, EachTextIsLegibleInADisabledWindow) {
    for (Widget* window : program_windows()) {
        load(*window);
        for (Widget* w : window->controls) {
            if (w->look.text.empty()) continue;
            const Widget* on = w; // has the background colour
            while (on->look.back == system_colour && on->parent)
                on = on->parent;
            const QPalette palette = face(*w).palette();
            const QColor ink = palette.color(QPalette::Disabled, face(*w).foregroundRole());
            EXPECT_GE(qt::contrast(qt::to_qcolor(on->look.back), ink), 4.5)
                << window->name << "." << full_name(*w);
        }
        unload(*window);
    }
}

// The marker shows the value that was read last; the handle need not be there.
TEST_F(States, SliderMarkerIsNextToTheGroove) {
    for (Widget* widget : {&Slider_flat, &Slider_tall}) {
        const QImage plain = picture(*widget);
        set_selection_length(*widget, widget->look.max - widget->look.min);
        settle();
        const QImage marked = picture(*widget);
        const QRect handle = slider_part(*widget, QStyle::SC_SliderHandle);
        const QRect groove = slider_part(*widget, QStyle::SC_SliderGroove);
        int strays = 0, marks = 0;
        for (int y = 0; y < plain.height(); ++y)
            for (int x = 0; x < plain.width(); ++x) {
                if (plain.pixel(x, y) == marked.pixel(x, y)) continue;
                const bool before_groove =
                    widget->look.vertical ? x < groove.left() : y < groove.top();
                ++(before_groove && !handle.contains(x, y) ? marks : strays);
            }
        EXPECT_EQ(strays, 0) << full_name(*widget);
        EXPECT_GT(marks, 10) << full_name(*widget);
    }
}

TEST_F(States, EmptyProgressBarDiffersFromAFullOne) {
    for (const Colour ground : {rgb(18, 22, 26), rgb(229, 233, 237)}) {
        set_back(Sample, ground);
        const auto middle = [&] {
            settle();
            const QImage bar = picture(ProgressBar1);
            return bar.pixelColor(bar.width() / 2, bar.height() / 2);
        };
        set_value_and_run_handler(ProgressBar1, ProgressBar1.look.min);
        const QColor empty = middle();
        set_value_and_run_handler(ProgressBar1, ProgressBar1.look.max);
        EXPECT_LT(qt::contrast(empty, qt::to_qcolor(ground)), 2);
        EXPECT_GE(qt::contrast(empty, middle()), 3);
    }
}

TEST_F(States, KeyFocusControlsAreInvisible) {
    open(form1::Form1);
    for (Widget* widget : {&form1::Text2, &form1::cmd_focus}) {
        set_focus(*widget);
        settle();
        EXPECT_TRUE(face(*widget).hasFocus()) << full_name(*widget);
        const QImage window = top(form1::Form1).grab().toImage();
        const QPoint corner = face(*widget).mapTo(&top(form1::Form1), QPoint(0, 0));
        EXPECT_EQ(window.pixelColor(corner), qt::to_qcolor(windows::paper)) << full_name(*widget);
    }
}

TEST_F(States, FieldPaddingIsScaledWithTheWindow) {
    const auto arrow = [&] {
        QStyleOptionComboBox option;
        option.initFrom(&face(Combo1));
        return face(Combo1)
            .style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &face(Combo1))
            .width();
    };
    const auto indent = [&] {
        QStyleOptionFrame option;
        option.initFrom(&face(Text1));
        return face(Text1)
            .style()
            ->subElementRect(QStyle::SE_LineEditContents, &option, &face(Text1))
            .left();
    };
    const int arrow_before = arrow(), indent_before = indent();
    top(Sample).resize(top(Sample).size() * 2);
    settle();
    EXPECT_NEAR(arrow(), 2 * arrow_before, 2);
    EXPECT_GE(indent(), indent_before + 2);
}

TEST_F(States, SliderHandleIsScaledWithTheWindow) {
    const int before = handle_length(Slider_flat);
    top(Sample).resize(top(Sample).size() * 2);
    settle();
    EXPECT_NEAR(handle_length(Slider_flat), 2 * before, 3);
}

TEST_F(States, ButtonOfTheVisiblePanelIsMarked) {
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

TEST_F(States, TankVoltagesHaveAScale) {
    open(form1::Form1);
    set_visible(form1::Frame_impostazioni, true);
    settle();
    const QImage tank = picture(form1::Frame_tank); // measured between two lamps
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
