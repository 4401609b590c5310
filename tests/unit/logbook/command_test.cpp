// The program itself: its help, its wrong words, and the check of a recording.
#include "tests/unit/logbook/running_logbook.h"

#include <gmock/gmock.h>

namespace zol::logbook {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class LogbookCommand : public LogbookFolder {};

TEST_F(LogbookCommand, HelpListsTheCommands) {
    EXPECT_THAT(run({"--help"}).said, AllOf(HasSubstr("SYNOPSIS"), HasSubstr("check FILE")));
    EXPECT_THAT(run({"check", "--help"}).said, HasSubstr("zol-logbook check FILE"));
}

TEST_F(LogbookCommand, VersionIsThatOfTheTool) {
    EXPECT_THAT(run({"--version"}).said, StartsWith("zol-logbook 9."));
}

TEST_F(LogbookCommand, WrongWordsEndWithTwo) {
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{}, {"fly"}, {"check"}, {"check", "a", "b"}}) {
        const Ended ended = run(words);
        EXPECT_EQ(ended.status, 2);
        EXPECT_THAT(ended.complaint, StartsWith("zol-logbook: "));
        EXPECT_EQ(ended.said, "");
    }
}

TEST_F(LogbookCommand, CheckCountsWhatIsInARecording) {
    const auto file = write("a.zlog", sample_header + "0 ! opened\n5 > 5043000503\n9 < 50\n");
    const Ended ended = run({"check", file});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.said, AllOf(HasSubstr("car AB-123"), HasSubstr("3 events"),
                                  HasSubstr("5 bytes to the unit, 1 bytes from it, 1 notes")));
}

TEST_F(LogbookCommand, CheckNamesTheWrongLine) {
    const Ended ended = run({"check", write("a.zlog", sample_header + "0 > 50\nx\n")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.said, HasSubstr("1 events"));
    EXPECT_THAT(ended.complaint, HasSubstr("Line 9 is wrong"));
}

TEST_F(LogbookCommand, CheckReportsATornLine) {
    const Ended ended = run({"check", write("a.zlog", sample_header + "0 > 50\n7 <")});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.said, HasSubstr("not whole"));
}

} // namespace
} // namespace zol::logbook
