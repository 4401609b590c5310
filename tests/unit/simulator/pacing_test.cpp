// When the bytes of a reply arrive, to the microsecond.
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Pacing : public WorkshopTest {
  protected:
    // When each byte that is on its way arrives, in microseconds from now.
    std::vector<std::int64_t> arrivals() {
        std::vector<std::int64_t> times;
        while (const auto at_us = unit.next_byte_at_us()) {
            EXPECT_THAT(unit.take(*at_us - 1), IsEmpty()) << "a microsecond too early";
            EXPECT_THAT(unit.take(*at_us), SizeIs(1));
            times.push_back(*at_us - now_us);
        }
        return times;
    }
};

TEST_F(Pacing, ReplyBegins20To60MsAfterItsRequest) {
    std::int64_t least = INT64_MAX, most = 0;
    for (int i = 0; i < 500; ++i) {
        send_command(6);
        const std::int64_t first = arrivals().front();
        least = std::min(least, first);
        most = std::max(most, first);
        wait_ms(200);
    }
    EXPECT_GE(least, 20'000);
    EXPECT_LT(least, 21'000);
    EXPECT_LE(most, 60'000);
    EXPECT_GT(most, 59'000);
}

TEST_F(Pacing, BytesFollowAt9600Baud) {
    send_command(3);
    const auto times = arrivals();
    ASSERT_THAT(times, SizeIs(29));
    for (std::size_t k = 0; k < times.size(); ++k)
        EXPECT_EQ(times[k] - times[0], static_cast<std::int64_t>(k) * 10'000'000 / 9600) << k;
}

TEST_F(Pacing, TwoRepliesNeverOverlap) {
    send_command(1); // 107 bytes, some 111 ms
    send_command(3);
    const auto times = arrivals();
    ASSERT_THAT(times, SizeIs(107 + 29));
    for (std::size_t k = 1; k < times.size(); ++k) {
        EXPECT_GE(times[k] - times[k - 1], 1041) << k;
        EXPECT_LE(times[k] - times[k - 1], 1042 + (k == 107 ? 60'000 : 0)) << k;
    }
}

TEST_F(Pacing, ReplyTakenInTwoPiecesIsWhole) {
    send_command(7);
    const std::int64_t first_us = *unit.next_byte_at_us();
    Bytes answer = unit.take(first_us + 5 * 1042);
    EXPECT_THAT(answer, SizeIs(6));
    const Bytes rest = unit.take(first_us + 1'000'000);
    EXPECT_THAT(rest, SizeIs(5));
    answer.insert(answer.end(), rest.begin(), rest.end());
    EXPECT_EQ(answer[4], 7);
    EXPECT_EQ(answer[10], 71);
}

TEST_F(Pacing, WithoutARequestNothingArrives) {
    wait_s(100);
    EXPECT_EQ(unit.next_byte_at_us(), std::nullopt);
    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(Pacing, LateUnitIsLaterByTheTimeTyped) {
    type("late 300");
    send_command(6);
    const auto times = arrivals();
    EXPECT_GE(times.front(), 320'000);
    EXPECT_LE(times.front(), 360'000);
}

TEST_F(Pacing, SameSeedAndRequestsGiveTheSameRun) {
    const auto run = [](std::uint32_t seed) {
        Workshop shop({.family = 4, .version = 7, .revision = 71, .seed = seed});
        Bytes all;
        for (int i = 0; i < 200; ++i) {
            shop.send_command(i % 2 ? 3 : 16);
            shop.wait_ms(i % 7 * 20);
            const Bytes some = shop.read();
            all.insert(all.end(), some.begin(), some.end());
        }
        return all;
    };
    EXPECT_EQ(run(7), run(7));
    EXPECT_NE(run(7), run(8));
}

TEST_F(Pacing, FloodOfRequestsHasALimit) {
    for (int i = 0; i < 10'000; ++i)
        send_command(1);
    wait_s(600);
    EXPECT_LE(read().size(), Transmitter::most_waiting * 107);
    EXPECT_THAT(ask(6), SizeIs(6));
}

TEST_F(Pacing, PollingLeavesNoBytesOver) {
    std::size_t bytes = 0;
    for (int i = 0; i < 20'000; ++i) {
        send_command(3);
        wait_ms(350);
        bytes += read().size();
    }
    EXPECT_EQ(bytes, 20'000u * 29);
    EXPECT_EQ(unit.next_byte_at_us(), std::nullopt);
}

} // namespace
} // namespace sim
