// Time on gas, the date of the last check, and the two software versions.
#include "maintenance/service_records.h"

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace zol::tests {
namespace {

using maintenance::Date;
using testing::EndsWith;

class ServiceRecords : public LogicTest {
  protected:
    ServiceRecords() : LogicTest({.family = 2}) { today_is({17, 5, 2024}); }
    ~ServiceRecords() override { maintenance::calendar_state.today = maintenance::local_date; }

    static void today_is(Date date) {
        maintenance::calendar_state.today = [date] { return date; };
    }
    void start_with_records() {
        for (const auto& [number, value] :
             {std::pair{27, 123}, {28, 45}, {29, 9}, {39, 8}, {40, 12}})
            set_parameter(number, value);
        start_quietly();
    }
    static const std::string& line() { return text(form1::lbl_ore); }
};

TEST_F(ServiceRecords, LineShowsTimeOnGasAndDateOfLastCheck) {
    start_with_records();
    EXPECT_EQ(line(), "Time On GAS:    123 hour - 45 min    - Date Last Check : 9 / 8 / 20012  ");
    EXPECT_TRUE(view::visible(form1::lbl_ore));
    EXPECT_TRUE(view::enabled(form1::mnu_check_car));
}

TEST_F(ServiceRecords, YearOf0InTheImageReads2000) {
    set_parameter(40, 0);
    start_connected();
    EXPECT_THAT(line(), EndsWith(" / 2000  "));
}

TEST_F(ServiceRecords, ResetOfTheCheckWritesTheDate) {
    start_with_records();
    operator_clicks(form1::mnu_reset_check, 5000ms);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(29, 17)), At(900, Write(39, 5)),
                                     At(1400, Write(40, 24))));
    EXPECT_EQ(unit->parameter(29), 17);
    EXPECT_EQ(unit->parameter(39), 5);
    EXPECT_EQ(unit->parameter(40), 24);
}

TEST_F(ServiceRecords, LineShowsTheNewDateAfterTheWrites) {
    start_with_records();
    follow({&form1::Form1, &form1::lbl_ore});
    operator_clicks(form1::mnu_reset_check, 1899ms);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(1);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_EQ(line(), "Time On GAS:    123 hour - 45 min    - Date Last Check : 17 / 5 / 2024  ");
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1900 lbl_ore says " + line(),
                                     "1900 Form1 normal pointer"));
    EXPECT_EQ(ms_until([] { return !form1::Timer2.is_on(); }), 2300) << "it waits once more";
}

TEST_F(ServiceRecords, YearMirrorKeepsItsValue) {
    start_with_records();
    operator_clicks(form1::mnu_reset_check, 5000ms);
    EXPECT_EQ(link::mirrors.last_check_day, 17);
    EXPECT_EQ(link::mirrors.last_check_month, 5);
    EXPECT_EQ(link::mirrors.last_check_year_text, "2024");
    EXPECT_EQ(link::mirrors.last_check_year, 12);
    EXPECT_EQ(link::mirrors.hours_on_gas, 123);
}

class ServiceResetBetweenPolls : public ServiceRecords {};

TEST_F(ServiceResetBetweenPolls, NoPollComesBeforeTheWritesOfTheCheck) {
    start_between_polls();
    operator_clicks(form1::mnu_reset_check, 1000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(29, 17), Write(39, 5)));
}

TEST_F(ServiceResetBetweenPolls, NoPollComesBeforeTheWritesOfTheTime) {
    start_between_polls();
    operator_clicks(form1::mnu_reset_time_ongas, 1000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(27, 0), Write(28, 0)));
}

struct Day {
    const char* name;
    Date date;
    int two_digits;
    const char* shown;
};

class ServiceCalendar : public ServiceRecords, public testing::WithParamInterface<Day> {};

TEST_P(ServiceCalendar, ResetOfTheCheckTakesToday) {
    const Date& date = GetParam().date;
    today_is(date);
    start_with_records();
    operator_clicks(form1::mnu_reset_check, 5000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(29, date.day), Write(39, date.month),
                                      Write(40, GetParam().two_digits)));
    EXPECT_THAT(line(), EndsWith(std::string("Date Last Check : ") + GetParam().shown + "  "));
}

INSTANTIATE_TEST_SUITE_P(OnThe, ServiceCalendar,
                         testing::Values(Day{"LeapDay", {29, 2, 2028}, 28, "29 / 2 / 2028"},
                                         Day{"LastOfTheYear", {31, 12, 2099}, 99, "31 / 12 / 2099"},
                                         Day{"NextCentury", {1, 1, 2100}, 0, "1 / 1 / 2100"},
                                         Day{"EarlyYear", {3, 4, 2007}, 7, "3 / 4 / 2007"}),
                         [](const auto& day) { return std::string(day.param.name); });

TEST_F(ServiceRecords, ResetOfTheTimeOnGasLeavesTheDate) {
    start_with_records();
    follow({&form1::Form1});
    operator_clicks(form1::mnu_reset_time_ongas, 1399ms);
    EXPECT_EQ(link::mirrors.hours_on_gas, 123);
    run_for(1);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    run_for(3000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(27, 0)), At(900, Write(28, 0))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1400 Form1 normal pointer"));
    EXPECT_EQ(line(), "Time On GAS:    0 hour - 0 min    - Date Last Check : 9 / 8 / 20012  ");
    EXPECT_EQ(unit->parameter(27), 0);
    EXPECT_EQ(unit->parameter(29), 9);
}

// A reset switches the polling timer on without the permission to poll: its next tick stops it.
TEST_F(ServiceRecords, ResetLeavesPollingStopped) {
    start_with_records();
    for (view::Widget* item : {&form1::mnu_reset_check, &form1::mnu_reset_time_ongas}) {
        operator_clicks(*item, 10'000ms);
        EXPECT_FALSE(app::state.poll_enabled);
        EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    }
    EXPECT_EQ(writes().size(), frames().size());
}

TEST_F(ServiceRecords, LineShowsTheNewDateThoughFramesWereLost) {
    start_with_records();
    port->unplugged = true;
    operator_clicks(form1::mnu_reset_check, 5000ms);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_THAT(line(), testing::HasSubstr("17 / 5 / 2024"));
}

TEST_F(ServiceRecords, LineStopsBlinkingAfterTheFirstCheck) {
    start_with_records();
    link::mirrors.last_check_day = 0;
    const view::Colour first = form1::lbl_ore.look.back;
    run_for(2000);
    EXPECT_NE(first == view::red, form1::lbl_ore.look.back == view::red);
    operator_clicks(form1::mnu_reset_check, 5000ms);
    EXPECT_EQ(form1::lbl_ore.look.back, form1::Form1.look.back);
    run_for(2000);
    EXPECT_EQ(form1::lbl_ore.look.back, form1::Form1.look.back);
}

TEST_F(ServiceRecords, VersionBoxNamesToolAndUnit) {
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
TEST_F(ServiceRecords, TodayIsTheDayOfTheTimeZone) {
    for (const char* zone : {"XXX-14", "XXX+12"}) {
        ::setenv("TZ", zone, 1);
        ::tzset();
        std::string before, seen, after;
        do { // midnight may come between two looks at the clock
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
