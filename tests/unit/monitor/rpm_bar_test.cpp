// The bar of lamps: which are lit at which speed, and in which colour.
#include "monitor/rpm_bar.h"

#include "tests/support/replies.h"
#include "view/windows/form1.h"

#include <limits>

namespace zol::tests {
namespace {

using view::Colour;

// The bar as one letter a lamp, from the left: g, y, r, or a dot for an unlit one.
std::string bar() {
    std::string letters;
    for (const view::Widget& lamp : form1::led_rpm.all()) {
        const Colour colour = lamp.look.back;
        letters += colour == view::green              ? 'g'
                   : colour == view::yellow           ? 'y'
                   : colour == view::red              ? 'r'
                   : colour == form1::Form1.look.back ? '.'
                                                      : '?';
    }
    return letters;
}

// The bar lit up to `last`, in zones; index 33 is not there.
std::string lit_up_to(int last) {
    std::string letters;
    for (int lamp = 0; lamp <= 41; ++lamp)
        if (lamp != 33) letters += lamp > last ? '.' : lamp <= 27 ? 'g' : lamp <= 37 ? 'y' : 'r';
    return letters;
}

struct Row {
    double low, high; // rpm, the upper one not included
    int last_lamp;
};

// The whole table; where two rows meet, the first that fits wins.
std::vector<Row> table() {
    std::vector<Row> rows = {{0.5, 400, 0}};
    for (int i = 0; i < 23; ++i)
        rows.push_back({400.0 + 50 * i, 450.0 + 50 * i, i + 1});
    rows.insert(rows.end(), {{1550, 1700, 25}, {1700, 2000, 26}, {2000, 2400, 27}});
    for (int i = 0; i < 14; ++i)
        rows.push_back({2400.0 + 400 * i, 2800.0 + 400 * i, 28 + i});
    rows.insert(rows.end(), {{8000, 8500, 42}, {8500, 9000, 43}, {9000, 70000, 44}});
    return rows;
}

class RpmBar : public ReplyBench {};

TEST_F(RpmBar, EachRowOfTheTableHoldsFromItsLowerEndToJustBelowItsUpperEnd) {
    for (const Row& row : table()) {
        const double middle = (row.low + row.high) / 2;
        for (const double rpm : {row.low, middle, row.high - 1, row.high - 0.001}) {
            monitor::show_rpm(rpm);
            EXPECT_EQ(bar(), lit_up_to(row.last_lamp)) << rpm << " rpm";
        }
    }
}

TEST_F(RpmBar, AtRestNoLampIsLit) {
    for (const double rpm : {0.0, -1.0, -9000.0}) {
        monitor::show_rpm(2000);
        monitor::show_rpm(rpm);
        EXPECT_EQ(bar(), std::string(41, '.')) << rpm;
    }
}

TEST_F(RpmBar, AnImpossibleSpeedLightsTheWholeBar) {
    monitor::show_rpm(std::numeric_limits<double>::max());
    EXPECT_EQ(bar(), std::string(28, 'g') + std::string(9, 'y') + std::string(4, 'r'));
}

TEST_F(RpmBar, TheStateWithTwentyFourNeverOccurs) {
    monitor::show_rpm(1549);
    EXPECT_EQ(bar(), lit_up_to(23));
    monitor::show_rpm(1550);
    EXPECT_EQ(bar(), lit_up_to(25));
    for (int rpm = 0; rpm < 10000; ++rpm) {
        monitor::show_rpm(rpm);
        ASSERT_NE(bar(), lit_up_to(24)) << rpm;
    }
}

TEST_F(RpmBar, TheColoursChangeAt2400And6400) {
    monitor::show_rpm(2399);
    EXPECT_EQ(bar(), lit_up_to(27));
    monitor::show_rpm(2400);
    EXPECT_EQ(bar(), lit_up_to(28));
    EXPECT_EQ(form1::led_rpm[28].look.back, view::yellow);
    monitor::show_rpm(6399);
    EXPECT_EQ(form1::led_rpm[37].look.back, view::yellow);
    EXPECT_EQ(form1::led_rpm[38].look.back, form1::Form1.look.back);
    monitor::show_rpm(6400);
    EXPECT_EQ(form1::led_rpm[38].look.back, view::red);
}

TEST_F(RpmBar, ColouringLightsItsZonesAndLeavesTheOtherLampsAlone) {
    const auto all_to = [](Colour colour) {
        for (view::Widget& lamp : form1::led_rpm.all())
            lamp.look.back = colour;
    };
    all_to(view::red);
    monitor::colora_led(2, view::green);
    EXPECT_EQ(bar(), "ggg" + std::string(38, 'r'));
    monitor::colora_led(30, view::green);
    EXPECT_EQ(bar(), std::string(31, 'g') + std::string(10, 'r')) << "green knows no upper zone";
    all_to(view::red);
    monitor::colora_led(0, view::yellow);
    EXPECT_EQ(bar(), std::string(28, 'g') + std::string(13, 'r'));
    monitor::colora_led(41, view::yellow);
    EXPECT_EQ(bar(), std::string(28, 'g') + std::string(13, 'y'));
    all_to(view::green);
    monitor::colora_led(0, view::red);
    EXPECT_EQ(bar(), std::string(28, 'g') + std::string(9, 'y') + std::string(4, 'g'));
    monitor::colora_led(44, view::red);
    EXPECT_EQ(bar(), lit_up_to(44));
    all_to(view::green);
    for (const Colour other : {view::white, view::black, Colour{254}, view::system_colour})
        monitor::colora_led(44, other);
    EXPECT_EQ(bar(), std::string(41, 'g'));
}

TEST_F(RpmBar, TheBarFollowsTheLabelEvery300Milliseconds) {
    start_scripted();
    inside_program([] { form1::Timer_stato_sistema.off(); });
    app::state.poll_enabled = false;
    run_for(1000);
    inside_program([] { view::set_text(form1::Label_rpm, "2400"); });
    run_for(300);
    EXPECT_EQ(bar(), lit_up_to(28));
    inside_program([] { view::set_text(form1::Label_rpm, " 1 9 99,5 rpm"); });
    run_for(300);
    EXPECT_EQ(bar(), lit_up_to(26)) << "read leniently: 1999";
    inside_program([] { view::set_text(form1::Label_rpm, "no number"); });
    run_for(300);
    EXPECT_EQ(bar(), lit_up_to(-1));
    EXPECT_EQ(form1::Timer_rpm.interval_ms(), 300);
}

TEST_F(RpmBar, OnlyLampsThatChangeArePaintedAnew) {
    start_scripted();
    inside_program([] { form1::Timer_stato_sistema.off(); });
    app::state.poll_enabled = false;
    run_for(1000);
    inside_program([] { view::set_text(form1::Label_rpm, "850"); });
    run_for(600);
    std::vector<std::string> painted;
    screen.on_changed = [&](view::Widget& widget, view::Aspect) {
        if (widget.name == "led_rpm") painted.push_back(view::full_name(widget));
    };
    run_for(3000);
    EXPECT_THAT(painted, testing::IsEmpty());
    inside_program([] { view::set_text(form1::Label_rpm, "960"); });
    run_for(600);
    EXPECT_THAT(painted, testing::ElementsAre("led_rpm(11)", "led_rpm(12)"));
}

TEST_F(RpmBar, TheExitButtonStopsTheBar) {
    start_scripted();
    EXPECT_TRUE(form1::Timer_rpm.is_on());
    operator_clicks(form1::Command_exit);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
}

} // namespace
} // namespace zol::tests
