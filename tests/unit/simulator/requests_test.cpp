// The replies of the simulated unit, byte by byte, and the requests that it ignores.
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Requests : public WorkshopTest {};

TEST_F(Requests, PresenceTestGetsAShortReply) {
    EXPECT_THAT(ask(6), ElementsAre('P', 'C', 0, 6, 6, 0));
}

TEST_F(Requests, VersionIsInBytesSevenNineAndEleven) {
    Workshop other({.family = 4, .version = 7, .revision = 171});
    EXPECT_THAT(other.ask(7), ElementsAre('P', 'C', 0, 11, 7, 0, 4, 0, 7, 0, 171));
}

TEST_F(Requests, StatusOfAColdEngineHasAllItsFields) {
    wait_s(3);
    const Bytes status = ask(3);
    ASSERT_THAT(status, SizeIs(29));
    EXPECT_THAT(Bytes(status.begin(), status.begin() + 5), ElementsAre('P', 'C', 0, 29, 3));
    EXPECT_NEAR(word(status, rpm_at), 1140, 60);
    EXPECT_NEAR(word(status, injection_at), 3200 * 1.45, 150);
    EXPECT_NEAR(word(status, pressure_at), 1400, 10);
    EXPECT_LE(word(status, lambda_at), 20) << "a cold probe gives no voltage";
    EXPECT_NEAR(word(status, gain_at), 1123, 5);
    EXPECT_NEAR(word(status, water_at), 15, 2);
    EXPECT_EQ(word(status, stage_at), 2);
    EXPECT_EQ(word(status, tank_at), 4110);
    EXPECT_EQ(word(status, fuel_at), 2);
    EXPECT_NEAR(word(status, battery_at), 14.1 * 1025 / 5.4, 10);
}

TEST_F(Requests, StatusWithoutBatteryHas27Bytes) {
    type("telegram 27");
    const Bytes status = ask(3);
    EXPECT_THAT(status, SizeIs(27));
    EXPECT_EQ(status[3], 27);
}

TEST_F(Requests, WriteHasNoReply) {
    write(3, 1250);
    wait_ms(300);
    EXPECT_THAT(read(), IsEmpty());
    EXPECT_EQ(unit.parameter(3), 1250);
    EXPECT_EQ(word(ask(1), 8), 1250);
}

TEST_F(Requests, AcknowledgedWriteHasAReply) {
    type("acknowledge on");
    write(3, 1250);
    wait_ms(300);
    EXPECT_THAT(read(), ElementsAre('P', 'C', 0, 5, 2));
}

TEST_F(Requests, EveryParameterTakesEveryValue) {
    for (int number = 0; number < Memory::size; ++number)
        for (const int value : {65535, 257, 0, 1}) {
            write(number, value);
            EXPECT_EQ(unit.parameter(number), value) << "PAR_" << number;
        }
}

TEST_F(Requests, ParameterOutsideTheMemoryIsIgnored) {
    write(256, 7);
    write(65535, 7);
    EXPECT_EQ(unit.parameter(256), 0);
    EXPECT_THAT(unit.received(), SizeIs(2));
}

TEST_F(Requests, FixedCopyFollowsTheLowerGain) {
    write(3, 1311);
    EXPECT_EQ(unit.parameter(152), 1311);
}

TEST_F(Requests, UnknownCommandHasNoReply) {
    for (const int code : {0, 8, 14, 17, 19, 23, 255})
        EXPECT_THAT(ask(code), IsEmpty()) << code;
    EXPECT_THAT(ask(6), SizeIs(6)) << "the line works as before";
}

TEST_F(Requests, RequestInPiecesIsPutTogether) {
    for (const std::uint8_t byte : zol::tests::frame_bytes(6)) {
        send({byte});
        wait_ms(30);
    }
    wait_ms(100);
    EXPECT_THAT(read(), SizeIs(6));
}

TEST_F(Requests, TwoRequestsGetTheirRepliesInOrder) {
    send({'P', 'C', 0, 5, 6, 'P', 'C', 0, 5, 7});
    wait_ms(300);
    const Bytes answers = read();
    ASSERT_THAT(answers, SizeIs(6 + 11));
    EXPECT_EQ(answers[4], 6);
    EXPECT_EQ(answers[6 + 4], 7);
}

TEST_F(Requests, GarbageBeforeARequestIsSkipped) {
    send({0, 255, 'P', 'P', 'C', 1, 'P', 'C', 0, 7, 'P', 'C', 0, 5, 6});
    wait_ms(200);
    EXPECT_THAT(read(), SizeIs(6));
}

TEST_F(Requests, LostByteCostsOneRequestOnly) {
    send({'P', 'C', 0, 5});
    wait_ms(300);
    EXPECT_THAT(ask(6), SizeIs(6));
}

TEST_F(Requests, WriteOfTheWrongLengthChangesNothing) {
    const int before = unit.parameter(0);
    send({'P', 'C', 0, 5, 2});
    send({'P', 'C', 0, 9, 3, 0, 3, 4, 226});
    wait_ms(300);
    EXPECT_THAT(unit.received(), IsEmpty());
    EXPECT_EQ(unit.parameter(0), before);
}

TEST_F(Requests, LastRequestsAreKeptWithTheirTimes) {
    send_command(3);
    now_us += 350'000;
    write(104, 1600);
    EXPECT_THAT(unit.received(),
                ElementsAre(Frame{5'000'000, 3, 0, 0}, Frame{5'350'000, 2, 104, 1600}));
    for (int i = 0; i < 1200; ++i)
        send_command(6);
    EXPECT_THAT(unit.received(), SizeIs(ControlUnit::most_received));
}

TEST_F(Requests, LiveDataHave12BytesInFamilies2And4) {
    for (int family = 0; family <= 4; ++family) {
        Workshop other({.family = family, .warm = true});
        other.wait_s(5);
        const std::size_t length = family == 1 ? 0 : family == 2 || family == 4 ? 12 : 8;
        EXPECT_THAT(other.ask(16), SizeIs(length)) << "family " << family;
    }
}

} // namespace
} // namespace sim
