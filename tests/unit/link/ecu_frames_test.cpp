// The two request frames, the rules for replies, and the wait of the whole program.
#include "link/ecu_frames.h"

#include "link/first_read.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using link::Bytes;
using link::Command;
using link::Reply;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Frames, CommandIsFiveBytesWithItsCodeLast) {
    EXPECT_THAT(link::command_frame(Command::read_image), ElementsAre(80, 67, 0, 5, 1));
    EXPECT_THAT(link::command_frame(Command::to_gas), ElementsAre(80, 67, 0, 5, 22));
}

TEST(Frames, CommandsHaveTheCodesOfTheUnit) {
    const std::pair<Command, int> codes[] = {
        {Command::read_image, 1}, {Command::write_parameter, 2}, {Command::status, 3},
        {Command::to_petrol, 4},  {Command::reset, 5},           {Command::presence, 6},
        {Command::version, 7},    {Command::eobd_faults, 15},    {Command::eobd_live, 16},
        {Command::terminal, 20},  {Command::download, 21},       {Command::to_gas, 22}};
    for (const auto& [command, code] : codes)
        EXPECT_EQ(link::command_frame(command)[4], code);
}

TEST(Frames, WriteIsNineBytesWithHighBytesFirst) {
    const std::pair<double, std::pair<int, int>> values[] = {
        {500, {1, 244}},     {2000, {7, 208}}, {20000, {78, 32}}, {0, {0, 0}},
        {65535, {255, 255}}, {257, {1, 1}},    {255, {0, 255}},   {256, {1, 0}}};
    for (const auto& [value, bytes] : values)
        EXPECT_THAT(link::write_frame(3, value).value_or(Bytes{}),
                    ElementsAre(80, 67, 0, 9, 2, 0, 3, bytes.first, bytes.second));
    EXPECT_THAT(link::write_frame(300, 1).value_or(Bytes{}),
                ElementsAre(80, 67, 0, 9, 2, 1, 44, 0, 1));
}

TEST(Frames, FractionsAreRoundedWithTiesToEven) {
    const std::pair<double, int> values[] = {{2.4, 2}, {2.5, 2},    {2.51, 3}, {3.5, 4},
                                             {0.5, 0}, {-0.5, 0},   {-0.4, 0}, {65535.4, 65535},
                                             {1.5, 2}, {127.5, 128}};
    for (const auto& [value, word] : values) {
        const auto frame = link::write_frame(value, value);
        ASSERT_TRUE(frame) << value;
        EXPECT_EQ((*frame)[5] * 256 + (*frame)[6], word) << value;
        EXPECT_EQ((*frame)[7] * 256 + (*frame)[8], word) << value;
    }
}

TEST(Frames, NumberThatNeedsMoreThanTwoBytesHasNoFrame) {
    for (const double value : {-1.0, -0.51, 65535.5, 65536.0, 1e300, -1e300, std::nan("")}) {
        EXPECT_FALSE(link::write_frame(3, value)) << value;
        EXPECT_FALSE(link::write_frame(value, 3)) << value;
    }
}

TEST(Replies, PositionsCountFromOne) {
    const Reply reply(Bytes{80, 67, 0, 8, 1, 7, 208, 9});
    EXPECT_EQ(reply.byte(1), 80);
    EXPECT_EQ(reply.byte(8), 9);
    EXPECT_EQ(reply.word(6), 2000);
    EXPECT_EQ(reply.byte(0), std::nullopt);
    EXPECT_EQ(reply.byte(9), std::nullopt);
    EXPECT_EQ(reply.word(8), std::nullopt); // its low byte is missing
    EXPECT_EQ(reply.word(0), std::nullopt);
}

TEST(Replies, EchoIsTheFifthByte) {
    EXPECT_TRUE(Reply(Bytes{9, 9, 9, 9, 6}).echoes(Command::presence));
    EXPECT_FALSE(Reply(Bytes{80, 67, 0, 5, 7}).echoes(Command::presence));
    EXPECT_FALSE(Reply(Bytes{6, 6, 6, 6}).echoes(Command::presence));
    EXPECT_FALSE(Reply().echoes(Command::presence));
    EXPECT_TRUE(Reply().empty());
}

TEST(Replies, FieldAfterTheEndLeavesItsDestinationAlone) {
    double mirror = 1250;
    link::take(Reply(Bytes{80, 67, 0, 7, 1, 7}).word(6), mirror);
    EXPECT_EQ(mirror, 1250);
    link::take(Reply(Bytes{80, 67, 0, 7, 1, 7, 208}).word(6), mirror);
    EXPECT_EQ(mirror, 2000);
}

// The program only lets time pass, with an open port that no handler uses.
class SerialLayer : public LogicTest {
  protected:
    SerialLayer() {
        port->set_number(1);
        port->open();
        time.start([] {
            for (;;)
                view::pump();
        });
    }
    // Runs the work inside the program, and notes when it starts and ends.
    void measure(const std::function<void()>& work) {
        inside_program([this, work] {
            started_ms = now_ms();
            work();
            ended_ms = now_ms();
        });
        run_for(1000);
    }
    std::int64_t started_ms = -1, ended_ms = -1;
};

TEST_F(SerialLayer, ReadOfAnEmptyBufferGivesAnEmptyReply) {
    inside_program([] { EXPECT_TRUE(link::read_reply().empty()); });
}

TEST_F(SerialLayer, BytesOfValueZeroStayInTheReply) {
    port->alter = [](const Bytes&) { return Bytes{0, 0, 0, 0, 6, 0, 0}; };
    inside_program([] {
        const Reply reply = link::read_reply();
        EXPECT_EQ(reply.length(), 7U);
        EXPECT_EQ(reply.word(6), 0);
    });
}

TEST_F(SerialLayer, LateReplyIsAtTheHeadOfTheNextRead) {
    unit->quirks().late_ms = 700;
    inside_program([] {
        link::send_command(Command::presence);
        link::wait_ms(300);
        EXPECT_TRUE(link::read_reply().empty());
        link::send_command(Command::version);
        link::wait_ms(1600);
        const Reply both = link::read_reply();
        EXPECT_GT(both.length(), 12U);
        EXPECT_TRUE(both.echoes(Command::presence));
        EXPECT_FALSE(both.echoes(Command::version));
    });
    run_for(3000);
}

TEST_F(SerialLayer, LateReplySpoilsOneExchangeOnly) {
    unit->quirks().late_ms = 700;
    inside_program([] {
        link::send_command(Command::presence);
        link::wait_ms(300);
        EXPECT_TRUE(link::read_reply().empty());
        link::wait_ms(1000); // it arrives now; no request empties the buffer
        EXPECT_FALSE(link::read_version());
        EXPECT_TRUE(link::read_version());
    });
    run_for(6000);
    EXPECT_THAT(frames(), ElementsAre(Send(6), Send(7), Send(7)));
    EXPECT_NE(app::state.firmware_text, "");
}

TEST_F(SerialLayer, WriteIsFollowedByAWaitOf300Ms) {
    measure([] { EXPECT_TRUE(link::write_parameter(3, 1250)); });
    ASSERT_EQ(port->sent.size(), 1U);
    EXPECT_EQ(port->sent[0].at_ms, started_ms);
    EXPECT_THAT(port->sent[0].bytes, ElementsAre(80, 67, 0, 9, 2, 0, 3, 4, 226));
    EXPECT_EQ(ended_ms - started_ms, 300);
}

TEST_F(SerialLayer, WriteWithoutAFrameDoesNotWait) {
    measure([] {
        EXPECT_FALSE(link::write_parameter(3, -1));
        EXPECT_FALSE(link::write_parameter(3, 65536));
        EXPECT_FALSE(link::send_parameter(3, -1));
    });
    EXPECT_EQ(ended_ms, started_ms);
    EXPECT_THAT(port->sent, IsEmpty());
}

TEST_F(SerialLayer, WriteToAPulledCableStillWaits) {
    port->unplugged = true;
    measure([] { EXPECT_FALSE(link::write_parameter(3, 1250)); });
    inside_program([] { EXPECT_TRUE(link::read_reply().empty()); });
    EXPECT_EQ(ended_ms - started_ms, 300);
}

TEST_F(SerialLayer, FrameOfAHandlersOwnHasNoWait) {
    measure([] {
        EXPECT_TRUE(link::send_parameter(142, 257));
        EXPECT_TRUE(link::send_command(Command::reset));
    });
    EXPECT_EQ(ended_ms, started_ms);
    EXPECT_THAT(frames(), ElementsAre(Write(142, 257), Send(5)));
}

TEST_F(SerialLayer, NothingIsSentAfterTheEndHasBegun) {
    inside_program([] {
        app::state.program_ends = true;
        EXPECT_FALSE(link::send_command(Command::status));
        EXPECT_FALSE(link::send_parameter(3, 1200));
        EXPECT_FALSE(link::write_parameter(3, 1200));
    });
    run_for(300);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(SerialLayer, OpeningDoesNotCloseFirst) {
    EXPECT_TRUE(link::open_port(4)); // the port is open: an error text
    EXPECT_EQ(port->closed, 0);
    link::close_port();
    EXPECT_FALSE(link::port_is_open());
    EXPECT_EQ(link::open_port(4), std::nullopt);
    EXPECT_TRUE(link::port_is_open());
    EXPECT_EQ(port->number, 4);
    EXPECT_EQ(port->line_settings, "9600,n,8,1");
}

TEST_F(SerialLayer, NestedWaitMovesTheEndOfTheOuterOne) {
    // Both use one timer: the outer wait of 1000 ms ends when the inner one does.
    inside_program([this] {
        link::wait_ms(1000);
        started_ms = now_ms();
    });
    run_for(200);
    inside_program([this] {
        link::wait_ms(300);
        ended_ms = now_ms();
    });
    run_for(2000);
    EXPECT_EQ(ended_ms, 500);
    EXPECT_EQ(started_ms, 500);
}

} // namespace
} // namespace zol::tests
