// Ctrl+V: any parameter by its number.
#include "link/ecu_frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;

constexpr const char* number_prompt = "Digita il Parametro da Modificare";
constexpr const char* value_prompt = "Inserisci il valore da assegnare al Parametro : ";

class ParameterEdit : public WarmCar {
  protected:
    void edit(const std::string& number, const std::string& value) {
        screen.answer_input(number_prompt, number);
        screen.answer_input(value_prompt, value);
        operator_presses(Form1, 86, 2);
    }
    void edit_notes(const std::string& number, const std::string& value) {
        start_during_a_poll();
        follow({&Form1});
        edit(number, value);
    }
    void expect_hourglass_until(int ms) {
        EXPECT_THAT(changes,
                    ElementsAre("0 Form1 hourglass", std::to_string(ms) + " Form1 normal pointer"));
    }
    void expect_writes(const std::string& number, const std::string& value,
                       const std::vector<Frame>& expected) {
        SCOPED_TRACE(number.substr(0, 30) + ", " + value.substr(0, 30));
        mark();
        edit(number, value);
        run_for(2000);
        EXPECT_EQ(frames(), expected);
        EXPECT_EQ(writes(), expected);
        EXPECT_EQ(Form1.look.pointer, view::Pointer::normal);
    }
};

TEST_F(ParameterEdit, AsksForNumberThenValue) {
    edit_notes("101", "75");
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(1000);
    ASSERT_EQ(screen.input_boxes.size(), 2u);
    EXPECT_EQ(screen.input_boxes[0].prompt, number_prompt);
    EXPECT_EQ(screen.input_boxes[0].title, "Modifica Parametro");
    EXPECT_EQ(screen.input_boxes[1].prompt, value_prompt + std::string("101"));
    EXPECT_EQ(screen.input_boxes[1].title, "Modifica Parametro");
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(101, 75))));
    expect_hourglass_until(700);
    EXPECT_EQ(unit->parameter(101), 75);
}

TEST_F(ParameterEdit, HourglassIsShownDuringTheQuestions) {
    start_during_a_poll();
    follow({&Form1});
    screen.answer_input(number_prompt, "101", 1000);
    screen.answer_input("Parametro : 101", "1", 2000);
    operator_presses(Form1, 86, 2, 4000ms);
    EXPECT_THAT(timed(), ElementsAre(At(3000, Write(101, 1))));
    expect_hourglass_until(3700);
}

TEST_F(ParameterEdit, OnlyTheWatchdogRestartsThePolling) {
    start_during_a_poll();
    edit("101", "75");
    run_for(700);
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(100));
}

TEST_F(ParameterEdit, AnyTextIsReadLeniently) {
    start_during_a_poll();
    const std::string digits(10'000, '9'), letters(10'000, 'x'), zeros(10'000, '0');
    const std::tuple<std::string, std::string, std::vector<Frame>> entries[] = {
        {"12abc", "34 kg", {Write(12, 34)}},
        {"  1 2", "+7", {Write(12, 7)}},
        {"zw\u00f6lf", "\u4e94", {Write(0, 0)}},
        {"\u0661\u0662", "3\u20ac", {Write(0, 3)}},
        {"--5", "1", {Write(0, 1)}},
        {std::string("1\0002", 3), "1", {Write(1, 1)}},
        {letters, letters, {Write(0, 0)}},
        {digits, "1", {}},
        {"1", digits, {}},
        {"-" + digits, digits, {}},
        {zeros + "12", zeros + "3", {Write(12, 3)}},
    };
    for (const auto& [number, value, sent] : entries)
        expect_writes(number, value, sent);
}

TEST_F(ParameterEdit, FractionIsRoundedToEven) {
    start_during_a_poll();
    expect_writes("101", "2.5", {Write(101, 2)});
    expect_writes("101", "3.5", {Write(101, 4)});
    expect_writes("101", "3.49", {Write(101, 3)});
    expect_writes("101", "65535.5", {}); // 65536
    expect_writes("101", "65535.4", {Write(101, 65535)});
    expect_writes("100.5", "-0.5", {Write(100, 0)});
    EXPECT_EQ(screen.input_boxes.back().prompt, value_prompt + std::string("100.5"));
}

// Also of two empty boxes, which both count as 0.
TEST_F(ParameterEdit, EachPairOfEdgesIsSentIfItHasBytes) {
    start_during_a_poll();
    struct Edge {
        const char* text;
        int sent; // -1 for none
    };
    constexpr Edge edges[] = {{"", 0},          {"-1", -1},    {"0", 0},       {"0.5", 0},
                              {"1", 1},         {"2.5", 2},    {"107", 107},   {"125", 125},
                              {"255", 255},     {"256", 256},  {"3999", 3999}, {"4001", 4001},
                              {"65535", 65535}, {"65536", -1}, {"99999", -1},  {"-0.6", -1},
                              {"1e3", 1},       {"0x10", 0}};
    for (const Edge& number : edges)
        for (const Edge& value : edges)
            expect_writes(number.text, value.text,
                          number.sent < 0 || value.sent < 0
                              ? std::vector<Frame>{}
                              : std::vector{Write(number.sent, value.sent)});
}

TEST_F(ParameterEdit, InjectorLatencyIsHeldBeforeTheWrite) {
    start_during_a_poll();
    expect_writes("107", "850", {Write(107, 850)});
    EXPECT_EQ(mirrors.injector_latency, 850);
    expect_writes("107", "-3", {});
    EXPECT_EQ(mirrors.injector_latency, -3);
    expect_writes("108", "9", {Write(108, 9)});
    EXPECT_EQ(mirrors.injector_latency, -3);
}

TEST_F(ParameterEdit, UpwardCoilSignalSetsItsFilterFirst) {
    edit_notes("126", "1");
    run_for(2000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(125, 4000)), At(700, Write(126, 1))));
    expect_hourglass_until(1400);
    EXPECT_EQ(unit->parameter(125), 4000);
    EXPECT_EQ(unit->parameter(126), 1);
}

TEST_F(ParameterEdit, NoOtherPairSetsTheFilter) {
    start_during_a_poll();
    expect_writes("126", "2", {Write(126, 2)});
    expect_writes("126", "0", {Write(126, 0)});
    expect_writes("126", "1.2", {Write(126, 1)});
    expect_writes("126.2", "1", {Write(126, 1)});
    expect_writes("125", "1", {Write(125, 1)});
}

TEST_F(ParameterEdit, Number4000StaysInTheTool) {
    edit_notes("4000", "12.5");
    run_for(1000);
    expect_hourglass_until(400);
    EXPECT_EQ(state.local_flag_4000, 12.5);
    expect_writes("4000", "-70000", {});
    EXPECT_EQ(state.local_flag_4000, -70000);
}

// --- A failed write is followed by the last wait only

TEST_F(ParameterEdit, ValueWithoutBytesIsNotWaitedFor) {
    edit_notes("101", "-1");
    run_for(1000);
    EXPECT_THAT(timed(), IsEmpty());
    expect_hourglass_until(400);
}

TEST_F(ParameterEdit, FaultOfThePortIsNotWaitedFor) {
    start_during_a_poll();
    follow({&Form1});
    port->unplugged = true;
    edit("101", "75");
    run_for(1000);
    expect_hourglass_until(400);
    port->unplugged = false;
    inside_program([] { link::close_port(); });
    mark();
    edit("101", "75");
    run_for(1000);
    expect_hourglass_until(400);
}

TEST_F(ParameterEdit, FailedFilterEndsTheWriting) {
    start_during_a_poll();
    follow({&Form1});
    port->unplugged = true;
    edit("126", "1");
    run_for(100);
    port->unplugged = false; // in time for a second write
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
    expect_hourglass_until(400);
}

TEST_F(ParameterEdit, CablePulledAfterTheFilterLosesTheSecondWrite) {
    edit_notes("126", "1");
    run_for(350);
    port->unplugged = true;
    run_for(1050);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(125, 4000))));
    expect_hourglass_until(1100);
}

TEST_F(ParameterEdit, KeyDuringTheWaitAsksAgain) {
    start_during_a_poll();
    edit("101", "75");
    run_for(100);
    edit("110", "25");
    run_for(1500);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(101, 75)), At(100, Write(110, 25))));
    EXPECT_EQ(Form1.look.pointer, view::Pointer::normal);
}

} // namespace
} // namespace zol::tests
