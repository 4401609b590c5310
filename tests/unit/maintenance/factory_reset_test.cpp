// The factory reset: the question, the unit's own reset, and the factory values that follow it.
#include "maintenance/factory_reset.h"

#include "tests/support/frames.h"
#include "tests/support/image_oracle.h"
#include "tests/support/logic_fixture.h"
#include "tests/support/mirror_oracle.h"
#include "view/windows/form1.h"

#include <map>
#include <utility>

namespace zol::tests {
namespace {

using view::Answer;

constexpr std::size_t all_values = 38 + 48; // parameters and correction cells

// After a reset command at 400 ms that the unit answers.
std::vector<Timed> expected_writes() {
    std::vector<Timed> writes;
    std::int64_t ms = 400 + 600 + 1200 + 1800;
    for (const auto& value : oracle::factory_values) {
        writes.push_back(At(ms, Write(value.parameter, value.value)));
        ms += 100;
    }
    for (const int cell : oracle::correction_cells()) {
        writes.push_back(At(ms, Write(cell, oracle::correction_cell_value)));
        ms += 300;
    }
    return writes;
}

class FactoryReset : public LogicTest {
  protected:
    static constexpr const char* question = "Reset the control unit to factory values?";
    static constexpr const char* done = "FINE RESET ECU";
    static constexpr int done_ms = 22'200;

    void answer_question(Answer answer, int after_ms = 0) {
        screen.answer_message(question, answer, after_ms);
        operator_clicks(form1::mnu_reset_centralina);
    }
    void reset(int after_ms = 0) {
        screen.answer_message(question, Answer::yes, after_ms);
        screen.answer_message(done, Answer::ok, after_ms);
        operator_clicks(form1::mnu_reset_centralina);
    }
    // The first read of the reset gives this, the next ones what the unit sends.
    void first_reply_is(const link::Bytes& bytes) {
        port->alter = [bytes, used = false](link::Bytes own) mutable {
            return std::exchange(used, true) ? own : bytes;
        };
    }
    std::vector<std::int64_t> times_of_commands() const {
        std::vector<std::int64_t> times;
        for (const Timed& each : timed())
            if (each.frame == Send(5)) times.push_back(each.ms);
        return times;
    }
    void expect_all_values_in_unit() {
        for (const Timed& write : expected_writes())
            EXPECT_EQ(unit->parameter(write.frame.number), write.frame.value)
                << "PAR_" << write.frame.number;
    }
};

TEST_F(FactoryReset, SendsTheFactoryValuesAfterTheCommand) {
    start_quietly();
    reset();
    run_for(40'000);
    std::vector<Timed> expected = expected_writes();
    ASSERT_EQ(expected.size(), all_values);
    expected.insert(expected.begin(), At(400, Send(5)));
    EXPECT_EQ(timed(), expected);
    expect_all_values_in_unit();
}

TEST_F(FactoryReset, AsksFirst) {
    start_quietly();
    answer_question(Answer::yes);
    run_for(done_ms - 1);
    ASSERT_EQ(screen.message_boxes.size(), 1u);
    EXPECT_EQ(screen.message_boxes[0].title, "");
    EXPECT_EQ(screen.message_boxes[0].buttons, view::Buttons::yes_no);
    EXPECT_EQ(screen.message_boxes[0].icon, view::Icon::question);
}

TEST_F(FactoryReset, IsRefusedByEnterAlone) {
    start_quietly();
    answer_question(Answer::no);
    ASSERT_EQ(screen.message_boxes.size(), 1u);
    EXPECT_TRUE(screen.message_boxes[0].no_by_default);
}

TEST_F(FactoryReset, EndsWithAnInformation) {
    start_quietly();
    follow({&form1::Form1});
    reset();
    run_for(done_ms);
    ASSERT_EQ(screen.message_boxes.size(), 2u);
    EXPECT_EQ(screen.message_boxes[1].text, done);
    EXPECT_EQ(screen.message_boxes[1].title, "");
    EXPECT_EQ(screen.message_boxes[1].buttons, view::Buttons::ok);
    EXPECT_EQ(screen.message_boxes[1].icon, view::Icon::information);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "22200 Form1 normal pointer"));
}

// Another handler that ends meanwhile takes the hourglass away. It comes back after the question
// and after the unit's restart, and stays until the final box is answered.
TEST_F(FactoryReset, SetsTheHourglassAgainAtItsStages) {
    start_quietly();
    follow({&form1::Form1});
    const auto take_hourglass_away = [this] {
        inside_program([] { view::set_pointer(form1::Form1, view::Pointer::normal); });
    };
    reset(1000);
    take_hourglass_away();
    run_for(1000);
    take_hourglass_away();
    run_for(30'000);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "0 Form1 normal pointer",
                                     "1000 Form1 hourglass", "1000 Form1 normal pointer",
                                     "5000 Form1 hourglass", "24200 Form1 normal pointer"));
}

TEST_F(FactoryReset, AnswerNoSendsNothing) {
    start_connected();
    follow({&form1::Form1});
    answer_question(Answer::no, 1000);
    run_for(2000);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1000 Form1 normal pointer"));
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_THAT(frames_in(5000), IsEmpty());
}

TEST_F(FactoryReset, LeavesPollingStopped) {
    start_quietly();
    reset();
    run_for(40'000);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(FactoryReset, LeavesTheWidgetsAsTheyWere) {
    start_quietly();
    view::set_text(form1::Text_max_tank, "4711");
    reset();
    run_for(40'000);
    EXPECT_EQ(text(form1::Text_max_tank), "4711");
}

TEST_F(FactoryReset, AcceptsRepliesOf5Or6Bytes) {
    start_quietly();
    const std::pair<std::size_t, bool> lengths[] = {{4, false}, {5, true}, {6, true}, {7, false}};
    for (const auto& [length, accepted] : lengths) {
        SCOPED_TRACE(length);
        mark();
        first_reply_is(of_length(frame_bytes(5), length));
        reset();
        run_for(40'000);
        EXPECT_EQ(times_of_commands().at(0), 400);
        EXPECT_EQ(times_of_commands().size() == 1, accepted);
        if (!accepted) {
            EXPECT_EQ(times_of_commands().at(1), 400 + 600 + 400);
        }
    }
}

TEST_F(FactoryReset, RepeatsTheCommandAfterAWrongEcho) {
    start_quietly();
    first_reply_is(frame_bytes(3, {0}));
    reset();
    run_for(40'000);
    EXPECT_GE(times_of_commands().size(), 2u);
    EXPECT_EQ(writes().size(), all_values);
}

TEST_F(FactoryReset, AsksASilentUnitOnceASecond) {
    start_quietly();
    port->silent = true;
    reset();
    run_for(600'000);
    EXPECT_EQ(frames(), std::vector(600, Send(5)));
    EXPECT_TRUE(busy(form1::Form1));
    port->silent = false;
    run_for(40'000);
    EXPECT_EQ(writes().size(), all_values);
}

// Nothing empties the receive buffer: the telegram comes before the reply.
TEST_F(FactoryReset, LeftOverTelegramCostsTheFirstReply) {
    start_during_a_poll();
    reset();
    run_for(60'000);
    EXPECT_GE(times_of_commands().size(), 2u);
    EXPECT_EQ(writes().size(), all_values);
}

// After the connection dialog the watchdog restarts the polling during the reset.
TEST_F(FactoryReset, WritesAllValuesWhileThePollingRuns) {
    start_connected();
    app::state.no_reread = true;
    form1::Timer6.on();
    reset();
    run_for(60'000);
    EXPECT_EQ(screen.message_boxes.size(), 2u);
    expect_all_values_in_unit();
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(FactoryReset, WaitsForACablePulledBeforeTheReply) {
    start_quietly();
    reset();
    run_for(500);
    port->unplugged = true;
    run_for(20'000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_TRUE(busy(form1::Form1));
    port->unplugged = false;
    run_for(40'000);
    EXPECT_EQ(writes().size(), all_values);
    EXPECT_FALSE(busy(form1::Form1));
}

TEST_F(FactoryReset, DoesNotNoticeACablePulledDuringTheWrites) {
    start_quietly();
    reset();
    run_for(4450);
    port->unplugged = true;
    run_for(1000);
    port->unplugged = false;
    run_for(40'000);
    std::vector<Timed> expected = expected_writes();
    std::erase_if(expected, [](const Timed& write) { return write.ms > 4450 && write.ms <= 5450; });
    ASSERT_EQ(expected.size(), all_values - 10);
    expected.insert(expected.begin(), At(400, Send(5)));
    EXPECT_EQ(timed(), expected);
    EXPECT_EQ(screen.message_boxes.size(), 2u);
}

TEST_F(FactoryReset, WaitsForAClosedPortWithoutABox) {
    start_quietly();
    port->close();
    reset();
    run_for(10'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(screen.message_boxes.size(), 1u);
    inside_program([this] { port->open(); });
    run_for(40'000);
    EXPECT_EQ(writes().size(), all_values);
}

class FactoryResetClosed : public FactoryReset, public testing::WithParamInterface<int> {};

TEST_P(FactoryResetClosed, ClosingTheMainWindowStopsTheFrames) {
    start_quietly();
    answer_question(Answer::yes);
    run_for(GetParam());
    forget_wire();
    operator_closes(form1::Form1, 600ms);
    EXPECT_TRUE(time.ended());
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
}

// In the wait before command 5, after it, in the restart, during the values, during the cells.
INSTANTIATE_TEST_SUITE_P(AtAnyMoment, FactoryResetClosed,
                         testing::Values(100, 700, 2000, 5000, 15'000));

TEST_F(FactoryReset, SetsTheMirrorsOfItsValuesOnly) {
    start_quietly();
    std::map<int, double> expected;
    for (const auto& row : oracle::mirrors_of_parameters) {
        link::mirrors.*row.mirror = -1;
        expected[row.parameter] = -1;
    }
    for (const auto& value : oracle::factory_values)
        if (value.mirror) expected[value.mirror] = value.value;
    reset();
    run_for(40'000);
    for (const auto& row : oracle::mirrors_of_parameters)
        EXPECT_EQ(link::mirrors.*row.mirror, expected[row.parameter]) << "PAR_" << row.parameter;
}

TEST_F(FactoryReset, AsksWithTheMenuItemWithoutALanguageFile) {
    start_quietly();
    app::state.current_language = "xx";
    view::set_text(form1::mnu_reset_centralina, "RESET CENTRALINA");
    screen.answer_message("RESET CENTRALINA", Answer::no);
    operator_clicks(form1::mnu_reset_centralina, 3000ms);
    EXPECT_THAT(frames(), IsEmpty());
}

// The unit's own reset alone. Nothing in the program calls it.
TEST_F(FactoryReset, UnitsOwnResetWritesNothing) {
    start_between_polls();
    follow({&form1::Form1});
    inside_program([] { maintenance::send_reset_only(); });
    run_for(5000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Send(5))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "800 Form1 normal pointer"));
    EXPECT_FALSE(app::state.poll_enabled);
}

} // namespace
} // namespace zol::tests
