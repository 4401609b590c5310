// Factory reset, restart, terminal and download, during which the simulated unit takes no frames.
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Modes : public WorkshopTest {
  protected:
    Modes() : WorkshopTest({.warm = true}) {}
    std::string text() {
        const Bytes bytes = read();
        return {bytes.begin(), bytes.end()};
    }
    void send_text(const std::string& line) { send(Bytes(line.begin(), line.end())); }
};

TEST_F(Modes, ResetRestoresTheFactoryValues) {
    write(3, 1500);
    write(106, 2000);
    type("fault add 301");
    EXPECT_THAT(ask(5), ElementsAre('P', 'C', 0, 6, 5, 0));
    EXPECT_EQ(unit.parameter(3), 1200);
    EXPECT_EQ(unit.parameter(106), 50);
    EXPECT_EQ(unit.parameter(145), 0);
    EXPECT_EQ(unit.parameter(143), 0);
}

TEST_F(Modes, ResetKeepsTheServiceRecords) {
    for (const int number : {27, 28, 29, 39, 40})
        write(number, 11);
    send_command(5);
    for (const int number : {27, 28, 29, 39, 40})
        EXPECT_EQ(unit.parameter(number), 11);
}

TEST_F(Modes, ResetTakesTwoAndAHalfSeconds) {
    send_command(5);
    const std::int64_t answered_us = *unit.next_byte_at_us() + 5 * 10'000'000LL / 9600;
    now_us = answered_us + 2'500'000 - 1;
    EXPECT_THAT(read(), SizeIs(6));
    send_command(6);
    write(3, 1700);
    EXPECT_EQ(unit.next_byte_at_us(), std::nullopt);
    EXPECT_EQ(unit.parameter(3), 1200);
    now_us = answered_us + 2'500'000;
    EXPECT_THAT(ask(6), SizeIs(6));
}

TEST_F(Modes, ResetReplyCanHaveAnyLength) {
    for (const int length : {4, 5, 6, 7}) {
        type("reset-answer " + std::to_string(length));
        const Bytes answer = ask(5);
        EXPECT_THAT(answer, SizeIs(length));
        if (length > 4) {
            EXPECT_EQ(answer[4], 5);
        }
        wait_s(3);
    }
}

TEST_F(Modes, ResetOnGasGoesBackToPetrol) {
    send_command(22);
    wait_s(3);
    EXPECT_EQ(unit.fuel(), Gas::Fuel::gas);
    send_command(5);
    wait_s(1);
    EXPECT_EQ(unit.fuel(), Gas::Fuel::petrol);
    wait_s(4);
    EXPECT_EQ(unit.fuel(), Gas::Fuel::waiting);
}

TEST_F(Modes, RestartKeepsTheParameters) {
    write(3, 1500);
    type("restart");
    EXPECT_THAT(ask(6), IsEmpty());
    wait_s(2.2);
    EXPECT_THAT(ask(6), SizeIs(6));
    EXPECT_EQ(unit.parameter(3), 1500);
}

TEST_F(Modes, TerminalTakesPlainText) {
    send_command(20);
    wait_ms(500);
    EXPECT_THAT(text(), HasSubstr("help"));
    EXPECT_EQ(unit.mode(), ControlUnit::Mode::terminal);
    send_text("par 3 1333\r");
    wait_ms(500);
    EXPECT_THAT(text(), testing::AllOf(HasSubstr("par 3 1333"), HasSubstr("PAR_3 = 1333")));
    EXPECT_EQ(unit.parameter(3), 1333);
    send_text("status\r\n");
    wait_ms(500);
    EXPECT_THAT(text(), HasSubstr("rpm "));
    send_text("fruit\r");
    wait_ms(500);
    EXPECT_THAT(text(), HasSubstr("type help"));
}

TEST_F(Modes, TerminalIgnoresFramesUntilItIsRestarted) {
    send_command(20);
    wait_s(1);
    read();
    const std::size_t before = unit.received().size();
    write(3, 1700);
    send_command(6);
    wait_s(1);
    EXPECT_NE(unit.parameter(3), 1700);
    EXPECT_THAT(unit.received(), SizeIs(before));
    read();
    send_text("\rrestart\r");
    wait_s(3);
    read();
    EXPECT_EQ(unit.mode(), ControlUnit::Mode::normal);
    EXPECT_THAT(ask(6), SizeIs(6));
}

TEST_F(Modes, TerminalTakesAnyInput) {
    send_command(20);
    send_text(std::string(5000, 'x') + "\r" + "\0\x1b\xff par 999 1\rpar\rpar 3 70000\r"s);
    wait_s(10);
    const std::string shown = text();
    EXPECT_THAT(shown, HasSubstr("> "));
    EXPECT_LT(shown.size(), 400u) << "a line has its limit";
    EXPECT_EQ(unit.parameter(3), 1200);
}

TEST_F(Modes, DownloadSendsTheMemoryAtThePaceOfTheLine) {
    write(3, 1333);
    send_command(21);
    wait_s(1);
    const std::string first = text();
    EXPECT_LE(first.size(), 961u);
    EXPECT_GE(first.size(), 955u);
    wait_s(10);
    const std::string all = first + text();
    EXPECT_THAT(all,
                testing::AllOf(HasSubstr("PAR_3 = 1333\r\n"), HasSubstr("PAR_255 = 0\r\nEND")));
    EXPECT_EQ(unit.next_byte_at_us(), std::nullopt);
    send_text("\r");
    wait_s(10);
    EXPECT_THAT(text(), HasSubstr("END")) << "again, for a reader that was late";
    type("restart");
    wait_s(3);
    EXPECT_THAT(ask(6), SizeIs(6));
}

} // namespace
} // namespace sim
