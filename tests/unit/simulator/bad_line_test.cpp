// Each fault of the line by itself, and that a seed repeats it.
#include "simulator/bad_line.h"
#include "tests/unit/simulator/workshop.h"

#include <algorithm>
#include <numeric>

namespace sim {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

// What is fed in can be taken out, a byte each millisecond.
struct Source : Line {
    Bytes heard;
    std::deque<std::pair<std::int64_t, std::uint8_t>> coming;

    void receive(std::span<const std::uint8_t> bytes, std::int64_t) override {
        heard.insert(heard.end(), bytes.begin(), bytes.end());
    }
    std::vector<std::uint8_t> take(std::int64_t now_us) override {
        Bytes out;
        while (!coming.empty() && coming.front().first <= now_us) {
            out.push_back(coming.front().second);
            coming.pop_front();
        }
        return out;
    }
    std::optional<std::int64_t> next_byte_at_us() const override {
        if (coming.empty()) return std::nullopt;
        return coming.front().first;
    }
    void feed(std::size_t count, std::int64_t from_us = 0) {
        for (std::size_t i = 0; i < count; ++i)
            coming.emplace_back(from_us + static_cast<std::int64_t>(i) * 1000,
                                static_cast<std::uint8_t>(i));
    }
};

constexpr std::int64_t late_us = 1'000'000'000;

// A line with these faults and its source.
struct FaultyLine {
    explicit FaultyLine(const BadLineOptions& options, std::size_t count = 0)
        : line(source, options) {
        source.feed(count);
    }
    Source source;
    BadLine line;
};

Bytes through(const BadLineOptions& options, std::size_t count = 10'000) {
    return FaultyLine(options, count).line.take(late_us);
}

Bytes counted(std::size_t count) {
    Bytes bytes(count);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<std::uint8_t>(i);
    return bytes;
}

TEST(BadLine, LeavesACleanLineAlone) {
    EXPECT_EQ(through({}), counted(10'000));
    FaultyLine clean({});
    auto& [source, line] = clean;
    line.receive(counted(300), 0);
    EXPECT_EQ(source.heard, counted(300));
    EXPECT_EQ(line.damaged(), 0u);
}

TEST(BadLine, ChangesTheNumberOfBytes) {
    EXPECT_NEAR(static_cast<double>(through({.drop = 0.1}).size()), 9000, 200);
    EXPECT_NEAR(static_cast<double>(through({.doubled = 0.1}).size()), 11'000, 200);
    EXPECT_NEAR(static_cast<double>(through({.insert = 0.1}).size()), 11'000, 200);
}

TEST(BadLine, ChangesOneBit) {
    const Bytes got = through({.flip = 0.1});
    ASSERT_THAT(got, SizeIs(10'000));
    int changed = 0;
    for (std::size_t i = 0; i < got.size(); ++i) {
        const int difference = got[i] ^ static_cast<std::uint8_t>(i);
        if (difference == 0) continue;
        ++changed;
        EXPECT_EQ(difference & (difference - 1), 0) << "one bit only";
    }
    EXPECT_NEAR(changed, 1000, 150);
}

TEST(BadLine, CutsAReplyUntilThereIsAPause) {
    FaultyLine faulty({.truncate = 0.05}, 100);
    auto& [source, line] = faulty;
    source.feed(100, 500'000);
    Bytes first = line.take(400'000);
    EXPECT_LT(first.size(), 100u);
    EXPECT_EQ(first, counted(first.size())) << "the beginning is whole";
    const Bytes second = line.take(late_us);
    EXPECT_EQ(second, counted(second.size()));
}

TEST(BadLine, DelaysBytesInOrder) {
    FaultyLine faulty({.delay = 0.05, .delay_ms = 50}, 1000);
    auto& [source, line] = faulty;
    Bytes got;
    std::int64_t last_us = 0;
    while (const auto at_us = line.next_byte_at_us()) {
        const Bytes some = line.take(*at_us);
        got.insert(got.end(), some.begin(), some.end());
        last_us = *at_us;
    }
    EXPECT_EQ(got, counted(1000));
    EXPECT_GT(last_us, 999'000);
    EXPECT_GT(line.damaged(), 20u);
}

// The lengths of the pieces in which the bytes come, looked at each millisecond.
std::vector<std::size_t> pieces(BadLine& line, std::int64_t until_us) {
    std::vector<std::size_t> lengths = {0};
    bool coming = false;
    for (std::int64_t now_us = 0; now_us < until_us; now_us += 1000) {
        const auto count = line.take(now_us).size();
        if (count > 0 && !coming) lengths.push_back(0);
        lengths.back() += count;
        coming = count > 0;
    }
    lengths.erase(lengths.begin());
    return lengths;
}

TEST(BadLine, SplitsAReplyIntoPieces) {
    FaultyLine faulty({.split = 0.1}, 29);
    auto& [source, line] = faulty;
    const auto lengths = pieces(line, 2'000'000);
    EXPECT_GT(lengths.size(), 1u);
    EXPECT_EQ(std::accumulate(lengths.begin(), lengths.end(), std::size_t{0}), 29u);
}

TEST(BadLine, JoinsAReplyToTheNext) {
    FaultyLine faulty({.join = 1}, 10);
    auto& [source, line] = faulty;
    source.feed(10, 300'000);
    EXPECT_THAT(line.take(299'000), IsEmpty());
    EXPECT_EQ(line.take(300'000), counted(10));
}

TEST(BadLine, ReleasesAReplyThatHasNoNext) {
    FaultyLine faulty({.join = 1}, 10);
    auto& [source, line] = faulty;
    EXPECT_THAT(line.take(999'000), IsEmpty());
    EXPECT_EQ(line.take(2'100'000), counted(10));
}

TEST(BadLine, IsPulledForAWhile) {
    FaultyLine faulty({.unplug = 1, .unplug_ms = 500});
    auto& [source, line] = faulty;
    line.receive(counted(5), 0);
    EXPECT_FALSE(line.plugged(0));
    EXPECT_THAT(source.heard, IsEmpty());
    EXPECT_LE(line.back_in_at_us(), 500'000);
    source.feed(5);
    EXPECT_THAT(line.take(line.back_in_at_us() - 1), IsEmpty());
    line.set_options({});
    source.coming.clear();
    source.feed(5, 600'000);
    EXPECT_TRUE(line.plugged(600'000));
    EXPECT_EQ(line.take(700'000), counted(5));
}

TEST(BadLine, ReturnsNothingWhileSilent) {
    FaultyLine faulty({.silence = true}, 100);
    auto& [source, line] = faulty;
    line.receive(counted(5), 0);
    EXPECT_THAT(line.take(late_us), IsEmpty());
    EXPECT_EQ(source.heard, counted(5)) << "requests still pass";
}

TEST(BadLine, EchoesWhatIsSent) {
    FaultyLine faulty({.echo = true});
    auto& [source, line] = faulty;
    line.receive(counted(5), 7);
    EXPECT_EQ(line.next_byte_at_us(), 7);
    EXPECT_EQ(line.take(7), counted(5));
}

TEST(BadLine, SendsBytesThatNoRequestCaused) {
    FaultyLine faulty({.babble = true});
    auto& [source, line] = faulty;
    line.take(0);
    ASSERT_TRUE(line.next_byte_at_us());
    const auto bytes = line.take(60'000'000).size();
    EXPECT_GT(bytes, 150u);
    EXPECT_LT(bytes, 600u);
    line.set_options({});
    EXPECT_EQ(line.next_byte_at_us(), std::nullopt);
}

TEST(BadLine, DamagesRequestsToo) {
    FaultyLine faulty({.drop = 0.5});
    auto& [source, line] = faulty;
    line.receive(counted(1000), 0);
    EXPECT_NEAR(static_cast<double>(source.heard.size()), 500, 80);
}

TEST(BadLine, SameSeedDoesTheSameDamage) {
    BadLineOptions options{.seed = 5, .drop = 0.1, .doubled = 0.1, .flip = 0.1, .insert = 0.1};
    const Bytes once = through(options);
    EXPECT_EQ(through(options), once);
    options.seed = 6;
    EXPECT_NE(through(options), once);
}

TEST(BadLine, DamageDoesNotDependOnHowOftenItIsRead) {
    const BadLineOptions options{
        .drop = 0.1, .insert = 0.1, .delay = 0.01, .split = 0.01, .join = 0.01, .unplug = 0.0005};
    FaultyLine faulty(options, 5000);
    auto& [source, line] = faulty;
    Bytes got;
    for (std::int64_t now_us = 0; now_us < 60'000'000; now_us += 777) {
        const Bytes some = line.take(now_us);
        got.insert(got.end(), some.begin(), some.end());
    }
    EXPECT_THAT(got, ElementsAreArray(through(options, 5000)));
}

TEST(BadLine, UnitRecoversOnceTheLineIsClean) {
    ControlUnit unit({.seed = 3});
    BadLine line(unit, {.seed = 3, .drop = 0.2, .flip = 0.2, .insert = 0.2, .truncate = 0.1});
    std::int64_t now_us = 0;
    const auto ask = [&] {
        line.receive(Bytes{'P', 'C', 0, 5, 6}, now_us);
        now_us += 300'000;
        return line.take(now_us);
    };
    // A damaged request may well be another one, such as a restart or a terminal.
    for (int i = 0; i < 300; ++i)
        ask();
    line.set_options({});
    unit.restart(now_us);
    now_us += 5'000'000;
    line.take(now_us);
    EXPECT_THAT(ask(), SizeIs(6));
}

} // namespace
} // namespace sim
