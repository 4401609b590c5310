// A few fixed runs of the soak, and that the seed determines a run.
#include "tests/soak/run.h"

#include <gmock/gmock.h>

namespace zol::soak {
namespace {

class AnyDay : public testing::TestWithParam<std::uint32_t> {};

TEST_P(AnyDay, BreaksNoRule) {
    const RunResult result = run({.seed = GetParam(), .hours = 0.3});
    EXPECT_THAT(result.findings, testing::IsEmpty());
    EXPECT_FALSE(result.recovery.empty());
    EXPECT_GT(result.acts, 50u);
}

// Two of each family.
INSTANTIATE_TEST_SUITE_P(OfEachFamily, AnyDay, testing::Range(1u, 11u));

TEST(Soak, SameSeedGivesTheSameRun) {
    const RunOptions options{.seed = 4711, .hours = 0.2, .keep_all = true};
    const RunResult once = run(options), again = run(options);
    EXPECT_EQ(once.transcript, again.transcript);
    EXPECT_EQ(once.digest, again.digest) << "every byte and every text at the same moment";
    RunOptions other = options;
    other.seed = 4712;
    EXPECT_NE(run(other).digest, once.digest);
}

} // namespace
} // namespace zol::soak
