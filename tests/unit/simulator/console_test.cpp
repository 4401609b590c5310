// The typed commands, good and bad.
#include "simulator/console.h"
#include "simulator/simulation.h"
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class Console : public WorkshopTest {
  protected:
    Console() : WorkshopTest({.warm = true}) {}
};

TEST_F(Console, SteersTheCar) {
    EXPECT_EQ(type("throttle 40"), "");
    EXPECT_EQ(unit.engine().throttle_set, 40);
    type("coolant 85.5");
    EXPECT_EQ(unit.engine().coolant_c, 85.5);
    type("ambient -10");
    EXPECT_EQ(unit.engine().ambient_c, -10);
    type("tank 30");
    EXPECT_EQ(unit.gas().tank_percent, 30);
    type("pressure 1200");
    EXPECT_EQ(unit.gas().regulator_mbar, 1200);
    type("pressure auto");
    EXPECT_EQ(unit.gas().regulator_mbar, std::nullopt);
    type("mixture 80");
    EXPECT_EQ(unit.gas().richness, 0.8);
}

TEST_F(Console, WrongCommandIsAnsweredWithAnExample) {
    const std::string wrong =
        "throttle; throttle 101; throttle -1; throttle x; throttle nan; throttle 4 4; throttle "
        "40x; coolant 1e9; tank; tank -0.5; sender 6; sender 1.5; gas; gas maybe; fault add; "
        "fault add 0; fault add 10000; fault clear now; fault remove 3; pressure; battery lots; "
        "lambda; lambda loud; protocol 1; protocol 11; silence; echo 1; garble -1; late soon; "
        "length 1001; wrong-echo 256; telegram 28; reset-answer 0; unplug now; plug 1; restart x; "
        "log; memory 256; memory 3 65536; memory 3 4 5; memory x; state x; help me; engine; "
        "engine 1; diagnosis; acknowledge";
    std::istringstream lines(wrong);
    for (std::string line; std::getline(lines >> std::ws, line, ';');) {
        const std::string name = line.substr(0, line.find(' '));
        EXPECT_THAT(type(line),
                    AllOf(StartsWith("Error: " + name), HasSubstr("Type, for example: " + name)))
            << line;
    }
    EXPECT_EQ(unit.engine().throttle_set, 0);
    EXPECT_EQ(unit.gas().tank_percent, 70);
    EXPECT_EQ(unit.parameter(3), 1200);
    EXPECT_TRUE(unit.quirks().plugged);
}

TEST_F(Console, UnknownCommandPointsToTheHelp) {
    EXPECT_EQ(type("fly"), "Error: there is no command \"fly\". Type help for the list.");
    EXPECT_EQ(type("Throttle 40"),
              "Error: there is no command \"Throttle\". Type help for the list.");
    EXPECT_THAT(type(std::string(10000, 'x')).size(), testing::Lt(120u));
    EXPECT_THAT(type("\x01\xff\x1b[31m"), StartsWith("Error: there is no command \"???[31m\""));
}

TEST_F(Console, EmptyLinesAndCommentsDoNothing) {
    for (const std::string line : {"", "   ", "\t", "# throttle 40", "\r"})
        EXPECT_EQ(type(line), "");
}

TEST_F(Console, BlanksAroundWordsDoNotMatter) {
    EXPECT_EQ(type("  throttle \t 40 \r"), "");
    EXPECT_EQ(unit.engine().throttle_set, 40);
}

TEST_F(Console, EveryCommandOfTheHelpWorksAsItIsShown) {
    const std::string help = type("help");
    std::size_t lines = 0;
    for (std::size_t from = 0; from < help.size();) {
        const auto end = std::min(help.find('\n', from), help.size());
        const std::string line = help.substr(from + 2, end - from - 2);
        const std::string usage = line.substr(0, line.find("  "));
        EXPECT_THAT(type(usage), testing::Not(StartsWith("Error"))) << usage;
        from = end + 1;
        ++lines;
    }
    EXPECT_GE(lines, 25u);
}

TEST_F(Console, PrintsItsMemory) {
    write(3, 1250);
    EXPECT_EQ(type("memory 3"), "PAR_3 = 1250  lower gain, thousandths");
    EXPECT_EQ(type("memory 3 1300"), "PAR_3 = 1300  lower gain, thousandths");
    EXPECT_EQ(unit.parameter(3), 1300);
    EXPECT_THAT(type("memory"), AllOf(HasSubstr("PAR_1 = 10  "), HasSubstr("PAR_170 = 100  "),
                                      HasSubstr("PAR_215 = 30000")));
}

TEST_F(Console, ShowsTheStateInWords) {
    wait_s(5);
    EXPECT_THAT(type("state"),
                AllOf(HasSubstr("running"), HasSubstr("waiting for speed"),
                      HasSubstr("lamps - * * * -"), HasSubstr("0.2.71"), HasSubstr("no faults")));
}

TEST_F(Console, SilentUnitObeysWithoutReply) {
    type("silence on");
    EXPECT_THAT(ask(6), IsEmpty());
    write(3, 1500);
    EXPECT_EQ(unit.parameter(3), 1500);
    type("silence off");
    EXPECT_THAT(ask(6), SizeIs(6));
}

TEST_F(Console, GarblesAsManyRepliesAsRequested) {
    const Bytes good = ask(7);
    type("garble 2");
    for (int i = 0; i < 2; ++i) {
        const Bytes bad = ask(7);
        EXPECT_THAT(bad, SizeIs(good.size()));
        EXPECT_NE(bad, good);
        EXPECT_NE(bad[4], 7) << "the command is always changed";
    }
    EXPECT_EQ(ask(7), good);
}

TEST_F(Console, ChangesTheLengthOfTheNextReplyOnly) {
    for (const int length : {1, 4, 26, 28, 300}) {
        type("length " + std::to_string(length));
        EXPECT_THAT(ask(3), SizeIs(length));
        EXPECT_THAT(ask(3), SizeIs(29));
    }
    type("length 0");
    EXPECT_THAT(ask(3), IsEmpty());
}

TEST_F(Console, ChangesTheEchoOfTheNextReplyOnly) {
    type("wrong-echo 9");
    EXPECT_EQ(ask(3)[4], 9);
    EXPECT_EQ(ask(3)[4], 3);
}

TEST_F(Console, EchoingLineReturnsTheRequestFirst) {
    type("echo on");
    const Bytes all = ask(6);
    ASSERT_THAT(all, SizeIs(5 + 6));
    EXPECT_EQ(Bytes(all.begin(), all.begin() + 5), (Bytes{'P', 'C', 0, 5, 6}));
}

TEST_F(Console, UnpluggedCableCarriesNothing) {
    send_command(3);
    type("unplug");
    wait_s(1);
    EXPECT_THAT(read(), IsEmpty()) << "bytes on the cable are lost";
    EXPECT_EQ(unit.next_byte_at_us(), std::nullopt);
    write(3, 1500);
    type("plug");
    EXPECT_EQ(unit.parameter(3), 1200);
    EXPECT_THAT(ask(6), SizeIs(6));
}

TEST_F(Console, LogHasRequestsWithTheirTimesInWords) {
    std::vector<std::string> lines;
    unit.set_log([&](std::string_view line) { lines.emplace_back(line); });
    ask(6);
    EXPECT_THAT(lines, IsEmpty());
    type("log on");
    wait_ms(1234 - 400);
    write(3, 1250);
    ask(7);
    type("fault add 301");
    ask(15);
    ask(3);
    ask(99);
    type("log off");
    ask(6);
    ASSERT_THAT(lines, SizeIs(8));
    EXPECT_EQ(lines[0], "     1.234  tool  write PAR_3 = 1250");
    EXPECT_EQ(lines[1], "     1.234  tool  version");
    EXPECT_THAT(lines[2],
                AllOf(HasSubstr("unit  version 0.2.71 : 50 43 00 0b 07"), StartsWith("     1.2")));
    EXPECT_THAT(lines[4], HasSubstr("faults 301 0 0 0 0 0 count 1 :"));
    EXPECT_THAT(lines[6], HasSubstr("status rpm 8"));
    EXPECT_THAT(lines[7], HasSubstr("tool  command 99"));
}

class SimulationCommands : public testing::Test {
  protected:
    Simulation simulation{{}};
    std::string type(const std::string& line) { return simulation.command(line, 0); }
};

TEST_F(SimulationCommands, SetAndClearTheSwitchesOfTheLine) {
    EXPECT_EQ(type("line"), "line: seed 1, clean");
    EXPECT_EQ(type("line drop 0.01"), "line: seed 1, drop 0.01");
    EXPECT_EQ(type("line echo on"), "line: seed 1, drop 0.01, echo");
    EXPECT_EQ(type("line seed 9"), "line: seed 9, drop 0.01, echo");
    EXPECT_EQ(type("line clean"), "line: seed 9, clean");
    EXPECT_EQ(type("throttle 40"), "");
    EXPECT_EQ(simulation.unit.engine().throttle_set, 40);
    EXPECT_THAT(type("help"), AllOf(HasSubstr("throttle 40"), HasSubstr("line drop 0.01")));
}

TEST_F(SimulationCommands, RefuseAWrongSwitch) {
    for (const std::string line : {"line drop", "line drop 2", "line drop x", "line echo 1",
                                   "line fruit 1", "line delay-ms 0", "line seed -1", "line a b c"})
        EXPECT_THAT(type(line), AllOf(StartsWith("Error: "), HasSubstr("Type, for example: line")))
            << line;
    EXPECT_EQ(type("line"), "line: seed 1, clean");
}

} // namespace
} // namespace sim
