// The program zol-logbook: help, wrong arguments, and the check of a recording.
#include "tests/unit/logbook/running_logbook.h"
#include "tests/unit/logbook/simulated_session.h"

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

TEST_F(LogbookCommand, EachCommandHasItsOwnHelp) {
    const std::string all = run({"--help"}).said;
    for (const char* name : {"record", "release", "check", "show", "csv", "compare", "backup"}) {
        EXPECT_THAT(run({name, "--help"}).said,
                    StartsWith("SYNOPSIS\n    zol-logbook " + std::string(name) + " "));
        EXPECT_THAT(all, HasSubstr("zol-logbook " + std::string(name) + " "));
    }
}

TEST_F(LogbookCommand, HelpFitsATerminal) {
    for (const char* name : {"record", "release", "check", "show", "csv", "compare", "backup"}) {
        std::size_t column = 0;
        for (const char c : run({name, "--help"}).said) {
            column = c == '\n' ? 0 : column + 1;
            ASSERT_LE(column, 80u) << name;
        }
    }
}

TEST_F(LogbookCommand, VersionIsThatOfTheTool) {
    EXPECT_THAT(run({"--version"}).said, StartsWith("zol-logbook 9."));
}

TEST_F(LogbookCommand, WrongArgumentsEndWithTwo) {
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

TEST_F(LogbookCommand, CheckReportsAnInterruptedRecording) {
    const std::string interrupted = "It has no end: it was interrupted.\n";
    EXPECT_THAT(run({"check", write("a.zlog", sample_header + "0 ! end\n5 > 50\n")}).said,
                HasSubstr(interrupted));
    EXPECT_THAT(run({"check", write("b.zlog", sample_header + "0 > 50\n5 ! end\n")}).said,
                testing::Not(HasSubstr(interrupted)));
}

TEST_F(LogbookCommand, ShowPrintsASessionAsText) {
    SimulatedSession session;
    session.ask(link::Command::version, 1600);
    session.ask(link::Command::status);
    session.write(3, 1250);
    const auto file = write("a.zlog", session.text());
    const Ended ended = run({"show", file});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(
        ended.said,
        AllOf(HasSubstr("car AB-123"), HasSubstr("  unit  version: 0.2.71\n"),
              HasSubstr("     1.900  tool  Gain at low load (NORMAL) set to 1250 (1/1000)\n"),
              HasSubstr("2 requests: 2 answered in time, 0 late, 0 lost"),
              testing::Not(HasSubstr("Engine speed"))));
    EXPECT_THAT(run({"show", "--all", file}).said, HasSubstr("Engine speed"));
}

} // namespace
} // namespace zol::logbook
