// Time on gas, the date of the last check, and the two software versions.
#include "maintenance/service_records.h"

#include "monitor/polling.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace zol::tests {
namespace {

using maintenance::Date;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class ServiceRecords : public Bench {
  protected:
    ServiceRecords() : Bench({.family = 2}) { it_is({17, 5, 2024}); }
    ~ServiceRecords() override { maintenance::calendar_state.today = maintenance::local_date; }

    static void it_is(Date date) {
        maintenance::calendar_state.today = [date] { return date; };
    }
    // A unit with these records, read and polled; then the polling has ended quietly.
    void start_with_records() {
        const std::pair<int, int> records[] = {{27, 123}, {28, 45}, {29, 9}, {39, 8}, {40, 12}};
        for (const auto& [number, value] : records)
            unit->set_parameter(number, static_cast<std::uint16_t>(value));
        start_connected();
        inside_program(monitor::stop_polling);
        run_for(1000);
        forget_wire();
    }
};

TEST_F(ServiceRecords, TheLineShowsTimeOnGasAndTheLastCheckWithItsOddYear) {
    start_with_records();
    EXPECT_EQ(view::text(form1::lbl_ore),
              "Time On GAS:    123 hour - 45 min    - Date Last Check : 9 / 8 / 20012  ");
    EXPECT_TRUE(view::visible(form1::lbl_ore));
    EXPECT_TRUE(view::enabled(form1::mnu_check_car));
}

TEST_F(ServiceRecords, AYearOfNoughtInTheImageReads2000) {
    unit->set_parameter(40, 0);
    start_connected();
    EXPECT_THAT(view::text(form1::lbl_ore), testing::EndsWith(" / 2000  "));
}

TEST_F(ServiceRecords, ResettingTheCheckWritesTodayInThreeWrites) {
    start_with_records();
    const auto clicked = now_ms();
    operator_clicks(form1::mnu_reset_check);
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre(Write(29, 17), Write(39, 5), Write(40, 24)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 400);
    EXPECT_THAT(gaps_between_writes(), ElementsAre(500, 500));
    EXPECT_EQ(unit->parameter(29), 17);
    EXPECT_EQ(unit->parameter(39), 5);
    EXPECT_EQ(unit->parameter(40), 24);
}

TEST_F(ServiceRecords, TheLineTakesTodayWithAllFourDigitsOfTheYear) {
    start_with_records();
    operator_clicks(form1::mnu_reset_check);
    run_for(1899); // three writes of 300 and 200 ms behind the first 400: not yet
    EXPECT_THAT(view::text(form1::lbl_ore), testing::HasSubstr(" 9 / 8 / 20012  "));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(1);
    EXPECT_EQ(view::text(form1::lbl_ore),
              "Time On GAS:    123 hour - 45 min    - Date Last Check : 17 / 5 / 2024  ");
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_EQ(link::mirrors.last_check_day, 17);
    EXPECT_EQ(link::mirrors.last_check_month, 5);
    EXPECT_EQ(link::mirrors.last_check_year_text, "2024");
    EXPECT_EQ(link::mirrors.last_check_year, 12);
    EXPECT_EQ(link::mirrors.hours_on_gas, 123);
    run_for(399);
    EXPECT_TRUE(form1::Timer2.is_on()); // it waits once more
    run_for(1);
    EXPECT_FALSE(form1::Timer2.is_on());
}

TEST_F(ServiceRecords, ClickedBetweenTwoPollsNoThirdComesBeforeTheWrites) {
    start_connected();
    while (!form1::Timer_stato_sistema.is_on())
        run_for(1);
    forget_wire();
    operator_clicks(form1::mnu_reset_check);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(29, 17), Write(39, 5)));
}

struct Day {
    const char* name;
    Date date;
    int two_digits;
    const char* shown;
};

class ServiceCalendar : public ServiceRecords, public testing::WithParamInterface<Day> {};

TEST_P(ServiceCalendar, TheCheckTakesTheDayAsItIs) {
    it_is(GetParam().date);
    start_with_records();
    operator_clicks(form1::mnu_reset_check);
    run_for(5000);
    const Date& date = GetParam().date;
    EXPECT_THAT(frames(), ElementsAre(Write(29, date.day), Write(39, date.month),
                                      Write(40, GetParam().two_digits)));
    EXPECT_THAT(view::text(form1::lbl_ore),
                testing::EndsWith(std::string("Date Last Check : ") + GetParam().shown + "  "));
}

INSTANTIATE_TEST_SUITE_P(OnThe, ServiceCalendar,
                         testing::Values(Day{"LeapDay", {29, 2, 2028}, 28, "29 / 2 / 2028"},
                                         Day{"LastOfTheYear", {31, 12, 2099}, 99, "31 / 12 / 2099"},
                                         Day{"NextCentury", {1, 1, 2100}, 0, "1 / 1 / 2100"},
                                         Day{"EarlyYear", {3, 4, 2007}, 7, "3 / 4 / 2007"}),
                         [](const auto& day) { return std::string(day.param.name); });

TEST_F(ServiceRecords, ResettingTheTimeOnGasLeavesTheDateAlone) {
    start_with_records();
    const auto clicked = now_ms();
    operator_clicks(form1::mnu_reset_time_ongas);
    run_for(1399);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    EXPECT_EQ(link::mirrors.hours_on_gas, 123);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    run_for(3000);
    EXPECT_THAT(frames(), ElementsAre(Write(27, 0), Write(28, 0)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 400);
    EXPECT_THAT(gaps_between_writes(), ElementsAre(500));
    EXPECT_EQ(view::text(form1::lbl_ore),
              "Time On GAS:    0 hour - 0 min    - Date Last Check : 9 / 8 / 20012  ");
    EXPECT_EQ(unit->parameter(27), 0);
    EXPECT_EQ(unit->parameter(29), 9);
}

// The timer comes back on, the permission does not: its next tick ends at once.
TEST_F(ServiceRecords, AfterAResetThePollingWaitsForSomebodyElse) {
    start_with_records();
    for (view::Widget* item : {&form1::mnu_reset_check, &form1::mnu_reset_time_ongas}) {
        operator_clicks(*item);
        run_for(10'000);
        EXPECT_FALSE(app::state.poll_enabled);
        EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    }
    EXPECT_EQ(writes().size(), frames().size());
}

TEST_F(ServiceRecords, TheLineShowsTheNewDateThoughEveryFrameWasLost) {
    start_with_records();
    port->unplugged = true;
    operator_clicks(form1::mnu_reset_check);
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_THAT(view::text(form1::lbl_ore), testing::HasSubstr("17 / 5 / 2024"));
}

TEST_F(ServiceRecords, TheLineFlashesRedUntilTheFirstCheck) {
    start_with_records();
    link::mirrors.last_check_day = 0;
    const view::Colour before = form1::lbl_ore.look.back;
    run_for(2000);
    const view::Colour behind = form1::lbl_ore.look.back;
    EXPECT_NE(before == view::red, behind == view::red);
    operator_clicks(form1::mnu_reset_check);
    run_for(5000);
    EXPECT_EQ(form1::lbl_ore.look.back, form1::Form1.look.back);
    run_for(2000);
    EXPECT_EQ(form1::lbl_ore.look.back, form1::Form1.look.back);
}

TEST_F(ServiceRecords, TheVersionBoxNamesToolAndUnit) {
    start_with_records();
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nVERSIONE=7.1\n");
    screen.answer_message("VERSION", view::Answer::ok);
    operator_clicks(form1::MNU_VERSIONE);
    ASSERT_EQ(screen.message_boxes.size(), 1u);
    EXPECT_EQ(screen.message_boxes[0].text, "EOBD SOFTWARE VERSION NUMBER: 9.9.20\r\r"
                                            "FIRMWARE VERSION NUMBER: 2.2.71");
    EXPECT_EQ(screen.message_boxes[0].title, "");
    EXPECT_EQ(screen.message_boxes[0].icon, view::Icon::information);
    EXPECT_EQ(screen.message_boxes[0].buttons, view::Buttons::ok);
    EXPECT_EQ(app::state.stored_version, "7.1");
}

std::string day_on_the_clock() {
    const std::time_t now = std::time(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%d/%m/%Y", std::localtime(&now));
    return text;
}

std::string day_of_the_tool() {
    const Date date = maintenance::local_date();
    char text[64];
    std::snprintf(text, sizeof text, "%02d/%02d/%d", date.day, date.month, date.year);
    return text;
}

// Fourteen hours east and twelve west of Greenwich: at least one of them has another day.
TEST_F(ServiceRecords, TodayIsTheDayOfTheComputersTimeZone) {
    for (const char* zone : {"XXX-14", "XXX+12"}) {
        ::setenv("TZ", zone, 1);
        ::tzset();
        std::string before, seen, after;
        do { // midnight may strike between two looks at the clock
            before = day_on_the_clock();
            seen = day_of_the_tool();
            after = day_on_the_clock();
        } while (before != after);
        EXPECT_EQ(seen, before) << zone;
    }
    ::unsetenv("TZ");
    ::tzset();
}

} // namespace
} // namespace zol::tests
