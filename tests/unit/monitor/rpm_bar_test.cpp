// The bar of lamps for the engine speed: which are lit, and in which colour.
#include "monitor/rpm_bar.h"

#include "tests/support/replies.h"
#include "view/windows/form1.h"

#include <limits>

namespace zol::tests {
namespace {

using view::Colour;

// One letter for each lamp, from the left: g, y, r, or a dot for an unlit one.
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

// The bar lit up to this lamp. There is no lamp 33.
std::string lit_up_to(int last) {
    std::string letters;
    for (int lamp = 0; lamp <= 41; ++lamp)
        if (lamp != 33) letters += lamp > last ? '.' : lamp <= 27 ? 'g' : lamp <= 37 ? 'y' : 'r';
    return letters;
}

struct Row {
    double low, high; // rpm; `high` is in the next row
    int last_lamp;
};

// The whole table. Where two rows overlap, the first one counts: so there is no row of lamp 24.
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

class RpmBar : public ReplyTest {
  protected:
    void start_without_polling() {
        start_scripted();
        stop_polling();
    }
    void rpm_says(const std::string& caption, int ms) {
        inside_program([&] { view::set_text(form1::Label_rpm, caption); });
        run_for(ms);
    }
};

TEST_F(RpmBar, RowHoldsFromItsLowerEndToBelowItsUpperEnd) {
    for (const Row& row : table())
        for (const double rpm :
             {row.low, (row.low + row.high) / 2, row.high - 1, row.high - 0.001}) {
            monitor::show_rpm(rpm);
            EXPECT_EQ(bar(), lit_up_to(row.last_lamp)) << rpm << " rpm";
        }
}

TEST_F(RpmBar, NoLampIsLitAtRest) {
    for (const double rpm : {0.0, -1.0, -9000.0}) {
        monitor::show_rpm(2000);
        monitor::show_rpm(rpm);
        EXPECT_EQ(bar(), lit_up_to(-1)) << rpm;
    }
}

TEST_F(RpmBar, ImpossibleSpeedLightsTheWholeBar) {
    monitor::show_rpm(std::numeric_limits<double>::max());
    EXPECT_EQ(bar(), std::string(28, 'g') + std::string(9, 'y') + std::string(4, 'r'));
}

TEST_F(RpmBar, Lamp24IsNeverTheLast) {
    for (int rpm = 0; rpm < 10000; ++rpm) {
        monitor::show_rpm(rpm);
        ASSERT_NE(bar(), lit_up_to(24)) << rpm;
    }
}

// The other lamps keep the colour that they had.
TEST_F(RpmBar, ColouringLightsItsZonesOnly) {
    const auto coloured = [](Colour before, int count, Colour colour) {
        for (view::Widget& lamp : form1::led_rpm.all())
            lamp.look.back = before;
        monitor::colora_led(count, colour);
        return bar();
    };
    const std::string green_zone(28, 'g'), yellow_zone(9, 'y');
    EXPECT_EQ(coloured(view::red, 2, view::green), "ggg" + std::string(38, 'r'));
    EXPECT_EQ(coloured(view::red, 30, view::green), std::string(31, 'g') + std::string(10, 'r'))
        << "green knows no upper zone";
    EXPECT_EQ(coloured(view::red, 0, view::yellow), green_zone + std::string(13, 'r'));
    EXPECT_EQ(coloured(view::red, 41, view::yellow), green_zone + std::string(13, 'y'));
    EXPECT_EQ(coloured(view::green, 0, view::red), green_zone + yellow_zone + "gggg");
    EXPECT_EQ(coloured(view::green, 44, view::red), lit_up_to(44));
    for (const Colour other : {view::white, view::black, Colour{254}, view::system_colour})
        EXPECT_EQ(coloured(view::green, 44, other), std::string(41, 'g'));
}

TEST_F(RpmBar, FollowsTheLabelEvery300Milliseconds) {
    start_without_polling();
    EXPECT_EQ(form1::Timer_rpm.interval_ms(), 300);
    rpm_says("2400", 300);
    EXPECT_EQ(bar(), lit_up_to(28));
    rpm_says(" 1 9 99,5 rpm", 300);
    EXPECT_EQ(bar(), lit_up_to(26)) << "read leniently: 1999";
    rpm_says("no number", 300);
    EXPECT_EQ(bar(), lit_up_to(-1));
}

TEST_F(RpmBar, OnlyLampsThatChangeArePainted) {
    start_without_polling();
    rpm_says("850", 600);
    std::vector<std::string> painted;
    screen.on_changed = [&](view::Widget& widget, view::Aspect) {
        if (widget.name == "led_rpm") painted.push_back(view::full_name(widget));
    };
    run_for(3000);
    EXPECT_THAT(painted, testing::IsEmpty());
    rpm_says("960", 600);
    EXPECT_THAT(painted, testing::ElementsAre("led_rpm(11)", "led_rpm(12)"));
}

TEST_F(RpmBar, ExitButtonStopsIt) {
    start_scripted();
    EXPECT_TRUE(form1::Timer_rpm.is_on());
    operator_clicks(form1::Command_exit);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
}

} // namespace
} // namespace zol::tests
