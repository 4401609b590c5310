// Output that is not read: it blocks nothing, and what is lost is reported.
#include "simulator/output.h"
#include "tests/unit/simulator/running_program.h"

#include <gmock/gmock.h>

#include <mutex>
#include <sys/stat.h>

namespace sim {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

int count_of(const std::string& part, const std::string& text) {
    int count = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

class OutputTest : public testing::Test {
  protected:
    OutputTest() {
        EXPECT_EQ(pipe2(pipe.data(), O_CLOEXEC), 0);
        EXPECT_THAT(output.start(pipe[1]), IsEmpty());
    }
    ~OutputTest() override { close(pipe[0]); }
    std::string read_to_end() {
        return read_until(pipe[0], [](const std::string& got) { return got.ends_with("end\n"); });
    }
    void finish_soon() { output.finish(Clock::now() + std::chrono::milliseconds(50)); }

    std::array<int, 2> pipe{};
    std::mutex mutex;
    std::string reports;
    Output output{"The stream", [this](const std::string& text) {
                      const std::lock_guard lock(mutex);
                      reports += text + "\n";
                  }};
};

TEST_F(OutputTest, KeepsLinesInOrder) {
    std::string all;
    for (int i = 0; i < 3000; ++i) {
        output.put(std::to_string(i));
        all += std::to_string(i) + "\n";
    }
    output.put("end");
    EXPECT_EQ(read_to_end(), all + "end\n");
    finish_soon();
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(OutputTest, MarksWhereLinesWereLeftOut) {
    const std::string line(1023, 'x');
    const std::size_t lines = Output::most_waiting / 1024 * 3;
    for (std::size_t i = 0; i < lines; ++i)
        output.put(line);
    std::string got = read_until(
        pipe[0], [&](const std::string& all) { return all.size() >= Output::most_waiting; });
    while (!got.ends_with("end\n")) {
        output.put("end");
        got += read_to_end();
    }
    const auto gap = got.find("... ");
    ASSERT_NE(gap, got.npos);
    const auto missing = std::stoul(got.substr(gap + 4));
    EXPECT_EQ(static_cast<std::size_t>(count_of(line, got)) + missing, lines);
    EXPECT_THAT(reports, AllOf(StartsWith("The stream is read too slowly"), EndsWith("file.\n")));
    EXPECT_EQ(count_of("\n", reports), 1);
}

TEST_F(OutputTest, ReportsHowManyLinesWereNotRead) {
    for (int i = 0; i < 200; ++i)
        output.put(std::string(1023, 'x')); // three times what a pipe holds
    finish_soon();
    EXPECT_THAT(reports, AllOf(StartsWith("The stream ends 1"), HasSubstr("lines early")));
}

class LogTest : public ProgramFolder {
  protected:
    LogTest() {
        fifo = folder / "log";
        EXPECT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    }
    static void ask(const std::string& device) { Port(device).expect_presence_reply(); }
    fs::path fifo;
};

TEST_F(LogTest, FifoWithoutReaderDoesNotHoldUpTheUnit) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        RunningProgram program({"--log", fifo, "--link", link});
        ask(program.device());
        program.signal(number);
        EXPECT_EQ(program.exit_code(), 0);
        EXPECT_THAT(program.complaints_to_the_end(),
                    AllOf(HasSubstr(fifo.string()), HasSubstr("2 lines early")));
        EXPECT_FALSE(fs::is_symlink(link));
    }
}

TEST_F(LogTest, FifoGetsEarlierLinesWhenItsReaderComes) {
    RunningProgram program({"--log", fifo});
    ask(program.device());
    const int reader = open(fifo.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    // A FIFO reads as ended until the writer has opened it.
    pollfd watched{reader, POLLIN, 0};
    EXPECT_EQ(poll(&watched, 1, patience_ms), 1);
    EXPECT_THAT(read_until(reader, [](const std::string& got) { return count_of("\n", got) == 2; }),
                AllOf(HasSubstr("tool  presence"), HasSubstr("unit  presence")));
    program.signal(SIGTERM);
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_THAT(program.complaints_to_the_end(), IsEmpty());
    close(reader);
}

TEST_F(LogTest, GoneReaderIsReportedOnce) {
    RunningProgram program({"--log", fifo});
    const std::string device = program.device();
    close(open(fifo.c_str(), O_RDONLY | O_CLOEXEC)); // waits for the unit's end
    for (int i = 0; i < 3; ++i)
        ask(device);
    EXPECT_THAT(program.complaint(), HasSubstr("Broken pipe"));
    program.signal(SIGTERM);
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_THAT(program.complaints_to_the_end(), IsEmpty());
}

TEST_F(LogTest, FullDiskIsReportedOnce) {
    RunningProgram program({"--log", "/dev/full"});
    const std::string device = program.device();
    for (int i = 0; i < 3; ++i)
        ask(device);
    program.type("quit");
    EXPECT_EQ(program.exit_code(), 0);
    const std::string all = program.complaints_to_the_end();
    EXPECT_THAT(all, AllOf(HasSubstr("The log /dev/full"), HasSubstr("No space left on device")));
    EXPECT_EQ(count_of("\n", all), 1) << all;
}

TEST_F(LogTest, FullStandardOutputDoesNotHoldUpTheUnit) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        RunningProgram program({"--link", link});
        program.device();
        for (int i = 0; i < 100; ++i)
            program.type("help"); // several times what a pipe holds
        ask(link);
        program.expect_idle();
        program.signal(number);
        EXPECT_EQ(program.exit_code(), 0);
        EXPECT_THAT(program.complaints_to_the_end(), HasSubstr("Standard output ends"));
        EXPECT_FALSE(fs::is_symlink(link));
    }
}

} // namespace
} // namespace sim
