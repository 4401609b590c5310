// A recorded unit answers as it did.
#include "simulator/replay.h"
#include "tests/unit/simulator/running_program.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace sim {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using Bytes = std::vector<std::uint8_t>;

const std::string head = "zol-logbook recording 1\ncar: AB-123\n\n";
const std::string status = "5043000503", version = "5043000507", write_3 = "504300090200030500";

const Bytes status_bytes = {80, 67, 0, 5, 3}, version_bytes = {80, 67, 0, 5, 7};

std::string wrong_of(const std::string& text) { return read_recording(text, "FILE").wrong; }

struct Played {
    explicit Played(const std::string& events) {
        Recording recording = read_recording(head + events, "FILE");
        EXPECT_EQ(recording.wrong, "");
        replay.play(std::move(recording));
    }
    // The answers' bytes with the times at which they come, up to 10 s after the request.
    std::vector<std::pair<std::int64_t, Bytes>> ask(const Bytes& request) {
        const std::int64_t asked_us = now_us;
        replay.receive(request, now_us);
        std::vector<std::pair<std::int64_t, Bytes>> all;
        while (const auto at_us = replay.next_byte_at_us())
            all.emplace_back(*at_us - asked_us, replay.take(*at_us));
        now_us += 10'000'000;
        return all;
    }
    Replay replay;
    std::int64_t now_us = 77;
};

TEST(Replay, AnswersWithTheRecordedBytesInTime) {
    Played played("1000 > " + status + "\n31000 < 5043\n36000 < 0102\n");
    EXPECT_THAT(played.ask(status_bytes),
                ElementsAre(std::pair{30000, Bytes{0x50, 0x43}}, std::pair{35000, Bytes{1, 2}}));
}

TEST(Replay, OnlyARegularFileIsLoaded) {
    const std::string fifo = testing::TempDir() + "/replay" + std::to_string(getpid());
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(load_recording(fifo).wrong,
              fifo + " is no regular file; name a recording of zol-logbook.");
    EXPECT_THAT(load_recording(testing::TempDir()).wrong, HasSubstr("is no regular file"));
    ::unlink(fifo.c_str());
    EXPECT_THAT(load_recording(fifo).wrong, HasSubstr("cannot be read: No such file"));
}

TEST(Replay, AnswersKeepTheOrderOfTheRecording) {
    Played played("0 > " + status + "\n5 < 01\n10 > " + version + "\n15 < 07\n20 > " + status +
                  "\n27 < 02\n");
    EXPECT_THAT(played.ask(status_bytes), ElementsAre(std::pair{5, Bytes{1}}));
    EXPECT_THAT(played.ask(status_bytes), ElementsAre(std::pair{7, Bytes{2}}));
    EXPECT_THAT(played.ask(version_bytes), ElementsAre(std::pair{5, Bytes{7}}));
}

TEST(Replay, FirstAnswerFollowsTheLast) {
    Played played("0 > " + status + "\n5 < 01\n20 > " + status + "\n27 < 02\n");
    played.ask(status_bytes);
    played.ask(status_bytes);
    EXPECT_THAT(played.ask(status_bytes), ElementsAre(std::pair{5, Bytes{1}}));
}

TEST(Replay, RecordedSilenceIsSilence) {
    Played played("0 > " + status + "\n20 > " + status + "\n27 < 02\n");
    EXPECT_THAT(played.ask(status_bytes), IsEmpty());
    EXPECT_THAT(played.ask(status_bytes), SizeIs(1));
}

TEST(Replay, WriteIsKnownByNumberWithValue) {
    Played played("0 > " + write_3 + "\n20 < 01\n");
    std::vector<bool> recorded;
    played.replay.set_sink([&](const Frame&, bool known) { recorded.push_back(known); });
    EXPECT_THAT(played.ask({80, 67, 0, 9, 2, 0, 3, 5, 0}), SizeIs(1));
    EXPECT_THAT(played.ask({80, 67, 0, 9, 2, 0, 3, 5, 1}), IsEmpty());
    EXPECT_THAT(played.ask({80, 67, 0, 9, 2, 0, 4, 5, 0}), IsEmpty());
    EXPECT_THAT(recorded, ElementsAre(true, false, false));
}

TEST(Replay, AnswersOfQuickRequestsDoNotMix) {
    Played played("0 > " + status + "\n50 < 0102\n90 < 03\n100 > " + version + "\n105 < 07\n");
    played.replay.receive(status_bytes, 0);
    played.replay.receive(version_bytes, 1);
    EXPECT_EQ(played.replay.take(89), (Bytes{1, 2}));
    EXPECT_EQ(played.replay.take(90), (Bytes{3, 7}));
}

TEST(Replay, PulledCableTakesTheAnswerAlong) {
    Played played("0 > " + status + "\n50 < 0102\n");
    played.replay.receive(status_bytes, 0);
    played.replay.clear();
    EXPECT_EQ(played.replay.next_byte_at_us(), std::nullopt);
}

TEST(ReplayFile, NotesAreReadPast) {
    Played played("0 ! port opened\n1 > " + status + "\n2 ! settings 9600,n,8,1\n5 < 01\n");
    EXPECT_THAT(played.ask(status_bytes), ElementsAre(std::pair{4, Bytes{1}}));
}

TEST(ReplayFile, TornLastLineIsLeftOut) {
    Played played("1 > " + status + "\n5 < 01\n9 < 0");
    EXPECT_THAT(played.ask(status_bytes), SizeIs(1));
}

TEST(ReplayFile, WrongLineIsNamed) {
    for (const char* line : {"x > 50", "5 > 5", "5 > 5g", "5 ? 50", "5 >", "", "4 > 50"})
        EXPECT_THAT(wrong_of(head + "5 > " + status + "\n" + line + "\n"), HasSubstr("FILE:5: "))
            << line;
    EXPECT_THAT(wrong_of(head + "5 > " + std::string(2050, '0') + "\n"), HasSubstr("FILE:4: "));
}

TEST(ReplayFile, OtherFilesAreRefused) {
    EXPECT_THAT(wrong_of("nonsense\n"), AllOf(HasSubstr("FILE:1: "), HasSubstr("zol-logbook")));
    EXPECT_THAT(wrong_of(""), HasSubstr("no recording"));
    EXPECT_THAT(wrong_of("zol-logbook recording 1\ncar: A\n"), HasSubstr("no empty line"));
    EXPECT_THAT(wrong_of(head), HasSubstr("no request"));
    EXPECT_THAT(load_recording("/no/such/file").wrong, HasSubstr("cannot be read"));
}

class ReplayProgram : public ProgramFolder {
  protected:
    std::string write(const std::string& text) const {
        std::ofstream(folder / "a.zlog") << text;
        return folder / "a.zlog";
    }
};

TEST_F(ReplayProgram, AnswersOnItsPseudoTerminal) {
    RunningProgram program(
        {"--replay", write(head + "0 > " + status + "\n20000 < 504300060301\n")});
    Port port(program.device());
    port.send_command(3);
    EXPECT_EQ(port.read_bytes(6), std::string("PC\0\x06\x03\x01", 6));
}

TEST_F(ReplayProgram, ReportsWhatWasNeverRecordedOnce) {
    RunningProgram program({"--replay", write(head + "0 > " + status + "\n200 < 01\n")});
    Port port(program.device());
    for (int i = 0; i < 3; ++i)
        port.send_command(7);
    port.send_command(3);
    EXPECT_EQ(port.read_bytes(1), "\x01");
    program.type("quit");
    const std::string said = program.said_until(std::string(1, '\0'));
    EXPECT_THAT(said, HasSubstr("version: never recorded, no answer\n"));
    EXPECT_EQ(said.find("never recorded"), said.rfind("never recorded"));
}

TEST_F(ReplayProgram, HasNoCar) {
    RunningProgram program({"--replay", write(head + "0 > " + status + "\n200 < 01\n")});
    program.device();
    program.type("throttle 40");
    EXPECT_THAT(program.said_until("quit.\n"), HasSubstr("has no car"));
    program.type("line drop 0.5");
    EXPECT_THAT(program.said_until("drop 0.5"), HasSubstr("line: seed 1"));
}

TEST_F(ReplayProgram, WrongRecordingEndsWithTwo) {
    RunningProgram program({"--replay", write("nonsense\n")});
    EXPECT_THAT(program.complaint(), HasSubstr("a.zlog:1: "));
    EXPECT_EQ(program.exit_code(), 2);
    RunningProgram both({"--replay", "a", "--scenario", "b"});
    EXPECT_THAT(both.complaint(), HasSubstr("leave one of them out"));
    EXPECT_EQ(both.exit_code(), 2);
}

} // namespace
} // namespace sim
