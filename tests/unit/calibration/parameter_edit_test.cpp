// Ctrl+V: any parameter by its number.
#include "link/ecu_frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class ParameterEdit : public WarmCar {
  protected:
    void edit(const std::string& number, const std::string& value) {
        screen.answer_input("Digita il Parametro da Modificare", number);
        screen.answer_input("Inserisci il valore da assegnare al Parametro : ", value);
        operator_presses(Form1, 86, 2);
    }

    // What goes out for these answers, once everything is over.
    std::vector<Frame> writes_of(const std::string& number, const std::string& value) {
        forget_wire();
        edit(number, value);
        run_for(2000);
        EXPECT_EQ(Form1.look.pointer, Pointer::normal) << number << ", " << value;
        for (const auto& sent : port->sent) {
            EXPECT_EQ(sent.bytes.size(), 9u) << number << ", " << value;
        }
        return frames();
    }
};

TEST_F(ParameterEdit, AsksForNumberAndValueAndWritesThem) {
    start_during_a_poll();
    follow({&Form1});
    edit("101", "75");
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(1000);
    ASSERT_EQ(screen.input_boxes.size(), 2u);
    EXPECT_EQ(screen.input_boxes[0].prompt, "Digita il Parametro da Modificare");
    EXPECT_EQ(screen.input_boxes[0].title, "Modifica Parametro");
    EXPECT_EQ(screen.input_boxes[1].prompt, "Inserisci il valore da assegnare al Parametro : 101");
    EXPECT_EQ(screen.input_boxes[1].title, "Modifica Parametro");
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(101, 75))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "700 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(101), 75);
}

TEST_F(ParameterEdit, TheHourglassStandsWhileTheOperatorIsAsked) {
    start_during_a_poll();
    follow({&Form1});
    screen.answer_input("Digita il Parametro da Modificare", "101", 1000);
    screen.answer_input("Parametro : 101", "1", 2000);
    operator_presses(Form1, 86, 2);
    run_for(4000);
    EXPECT_THAT(timed(), ElementsAre(At(3000, Write(101, 1))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "3700 Form1 normal pointer"));
}

TEST_F(ParameterEdit, ThePollingComesBackOnlyByTheWatchdog) {
    start_during_a_poll();
    edit("101", "75");
    run_for(700);
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(100));
}

TEST_F(ParameterEdit, BothBoxesCancelledWriteNoughtToParameterNought) {
    start_during_a_poll();
    EXPECT_THAT(writes_of("", ""), ElementsAre(Write(0, 0)));
}

TEST_F(ParameterEdit, ReadsWhateverIsTypedLeniently) {
    start_during_a_poll();
    EXPECT_THAT(writes_of("12abc", "34 kg"), ElementsAre(Write(12, 34)));
    EXPECT_THAT(writes_of("  1 2", "+7"), ElementsAre(Write(12, 7)));
    EXPECT_THAT(writes_of("zw\u00f6lf", "\u4e94"), ElementsAre(Write(0, 0)));
    EXPECT_THAT(writes_of("\u0661\u0662", "3\u20ac"), ElementsAre(Write(0, 3)));
    EXPECT_THAT(writes_of("12", ""), ElementsAre(Write(12, 0)));
    EXPECT_THAT(writes_of("", "12"), ElementsAre(Write(0, 12)));
    EXPECT_THAT(writes_of("--5", "1"), ElementsAre(Write(0, 1)));
    EXPECT_THAT(writes_of(std::string("1\0002", 3), "1"), ElementsAre(Write(1, 1)));
}

TEST_F(ParameterEdit, EndlessTextsNeitherHangNorLeaveAFrameOfWrongShape) {
    start_during_a_poll();
    const std::string letters(10'000, 'x'), digits(10'000, '9'), noughts(10'000, '0');
    EXPECT_THAT(writes_of(letters, letters), ElementsAre(Write(0, 0)));
    EXPECT_THAT(writes_of(digits, "1"), IsEmpty());
    EXPECT_THAT(writes_of("1", digits), IsEmpty());
    EXPECT_THAT(writes_of("-" + digits, digits), IsEmpty());
    EXPECT_THAT(writes_of(noughts + "12", noughts + "3"), ElementsAre(Write(12, 3)));
}

TEST_F(ParameterEdit, AFractionIsRoundedWithTiesToTheEvenNumber) {
    start_during_a_poll();
    EXPECT_THAT(writes_of("101", "2.5"), ElementsAre(Write(101, 2)));
    EXPECT_THAT(writes_of("101", "3.5"), ElementsAre(Write(101, 4)));
    EXPECT_THAT(writes_of("101", "3.49"), ElementsAre(Write(101, 3)));
    EXPECT_THAT(writes_of("100.5", "-0.5"), ElementsAre(Write(100, 0)));
    EXPECT_THAT(writes_of("101", "65535.5"), IsEmpty()) << "rounds to 65536";
    EXPECT_THAT(writes_of("101", "65535.4"), ElementsAre(Write(101, 65535)));
    EXPECT_EQ(screen.input_boxes[7].prompt,
              "Inserisci il valore da assegnare al Parametro : 100.5");
}

// Every pair of edges: what has a form on the wire goes out, and nothing else.
TEST_F(ParameterEdit, EveryPairOfEdgesIsSentIfItHasBytes) {
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
        for (const Edge& value : edges) {
            const auto out = writes_of(number.text, value.text);
            if (number.sent < 0 || value.sent < 0)
                EXPECT_THAT(out, IsEmpty()) << number.text << ", " << value.text;
            else
                EXPECT_THAT(out, ElementsAre(Write(number.sent, value.sent)))
                    << number.text << ", " << value.text;
        }
}

TEST_F(ParameterEdit, AValueWithNoBytesSkipsTheWritingAndKeepsTheLastWait) {
    start_during_a_poll();
    follow({&Form1});
    edit("101", "-1");
    run_for(1000);
    EXPECT_THAT(timed(), IsEmpty());
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "400 Form1 normal pointer"));
}

TEST_F(ParameterEdit, TheInjectorLatencyIsAlsoHeldForTheParameterWindow) {
    start_during_a_poll();
    EXPECT_THAT(writes_of("107", "850"), ElementsAre(Write(107, 850)));
    EXPECT_EQ(mirrors.injector_latency, 850);
    EXPECT_THAT(writes_of("107", "-3"), IsEmpty());
    EXPECT_EQ(mirrors.injector_latency, -3) << "held before the write fails";
    EXPECT_THAT(writes_of("108", "9"), ElementsAre(Write(108, 9)));
    EXPECT_EQ(mirrors.injector_latency, -3);
}

TEST_F(ParameterEdit, TurningTheCoilSignalUpwardsSetsItsFilterFirst) {
    start_during_a_poll();
    follow({&Form1});
    edit("126", "1");
    run_for(2000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(125, 4000)), At(700, Write(126, 1))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1400 Form1 normal pointer"));
    EXPECT_EQ(unit->parameter(125), 4000);
    EXPECT_EQ(unit->parameter(126), 1);
}

TEST_F(ParameterEdit, NoOtherPairHasAForerunner) {
    start_during_a_poll();
    EXPECT_THAT(writes_of("126", "2"), ElementsAre(Write(126, 2)));
    EXPECT_THAT(writes_of("126", "0"), ElementsAre(Write(126, 0)));
    EXPECT_THAT(writes_of("126", "1.2"), ElementsAre(Write(126, 1)));
    EXPECT_THAT(writes_of("126.2", "1"), ElementsAre(Write(126, 1)));
    EXPECT_THAT(writes_of("125", "1"), ElementsAre(Write(125, 1)));
}

TEST_F(ParameterEdit, Number4000StaysInTheTool) {
    start_during_a_poll();
    EXPECT_EQ(state.local_flag_4000, 0);
    EXPECT_THAT(writes_of("4000", "12.5"), IsEmpty());
    EXPECT_EQ(state.local_flag_4000, 12.5);
    EXPECT_THAT(writes_of("4000", "-70000"), IsEmpty());
    EXPECT_EQ(state.local_flag_4000, -70000);
    follow({&Form1});
    mark();
    edit("4000", "1");
    run_for(1000);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "400 Form1 normal pointer"));
}

TEST_F(ParameterEdit, AFailedWriteIsFollowedByTheLastWaitOnly) {
    start_during_a_poll();
    follow({&Form1});
    port->unplugged = true;
    edit("101", "75");
    run_for(1000);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "400 Form1 normal pointer"));
}

TEST_F(ParameterEdit, AClosedPortLeavesTheLastWaitOnly) {
    start_during_a_poll();
    follow({&Form1});
    inside_program([] { link::close_port(); });
    edit("101", "75");
    run_for(1000);
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "400 Form1 normal pointer"));
}

TEST_F(ParameterEdit, NoWriteFollowsAFailedForerunner) {
    start_during_a_poll();
    follow({&Form1});
    port->unplugged = true;
    edit("126", "1");
    run_for(100);
    port->unplugged = false; // in time for a second write
    run_for(2000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "400 Form1 normal pointer"));
}

TEST_F(ParameterEdit, ACablePulledBetweenTheTwoWritesLosesTheSecondOnly) {
    start_during_a_poll();
    follow({&Form1});
    edit("126", "1");
    run_for(350);
    port->unplugged = true;
    run_for(1050);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(125, 4000))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1100 Form1 normal pointer"));
}

TEST_F(ParameterEdit, AKeyDuringTheWaitEntersAfresh) {
    start_during_a_poll();
    edit("101", "75");
    run_for(100);
    edit("110", "25");
    run_for(1500);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(101, 75)), At(100, Write(110, 25))));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

} // namespace
} // namespace zol::tests
