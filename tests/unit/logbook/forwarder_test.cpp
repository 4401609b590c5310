// Forwarding between tool and adapter, and what is recorded of it.
#include "tests/support/small_disk.h"
#include "tests/unit/logbook/forwarding.h"

#include <algorithm>
#include <fstream>
#include <thread>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(Forwarding, EveryBytePassesToTheUnit) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    const Bytes all = every_byte(2);
    ASSERT_TRUE(port.write(all));
    EXPECT_EQ(cable.receive(all.size()), all);
}

TEST_F(Forwarding, EveryBytePassesToTheTool) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    const Bytes all = every_byte(2);
    cable.send(all);
    EXPECT_EQ(read_port(all.size()), all);
}

TEST_F(Forwarding, LongStreamsKeepTheirOrder) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    for (int round = 0; round < 40; ++round) {
        const Bytes all = every_byte(4);
        cable.send(all);
        ASSERT_TRUE(port.write(all));
        ASSERT_EQ(read_port(all.size()), all) << round;
        ASSERT_EQ(cable.receive(all.size()), all) << round;
    }
}

// More than the system buffers for a slow reader.
TEST_F(Forwarding, LateReaderLosesNothing) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    const int tool = ::open(com1.c_str(), O_RDWR | O_NOCTTY);
    const Bytes all = every_byte(160);
    const auto ends = {std::pair{tool, cable.far_end}, std::pair{cable.far_end, tool}};
    for (const auto& [from, to] : ends) {
        std::thread sender([&, from = from] {
            for (std::size_t sent = 0; sent < all.size();)
                sent += static_cast<std::size_t>(
                    std::max<ssize_t>(0, ::write(from, all.data() + sent, all.size() - sent)));
        });
        usleep(200'000);
        Bytes got;
        pollfd ready{to, POLLIN, 0};
        while (got.size() < all.size() && ::poll(&ready, 1, 5000) == 1) {
            std::uint8_t block[700];
            const ssize_t count = ::read(to, block, sizeof block);
            got.insert(got.end(), block, block + std::max<ssize_t>(0, count));
        }
        EXPECT_EQ(got, all);
        if (got.size() < all.size()) program->signal(SIGKILL); // releases the blocked sender
        sender.join();
    }
    ::close(tool);
}

TEST_F(Forwarding, RecordingHoldsWhatPassed) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    ASSERT_TRUE(port.write(status_request));
    ASSERT_EQ(cable.receive(5), status_request);
    const Bytes reply = every_byte(1);
    cable.send(reply);
    ASSERT_EQ(read_port(reply.size()), reply);
    port.close();
    EXPECT_TRUE(soon([&] { return recorded().notes.find("port closed") != std::string::npos; }));
    program->signal(SIGINT);
    EXPECT_EQ(program->exit_code(), 0);
    EXPECT_EQ(recorded().requests, status_request);
    EXPECT_EQ(recorded().replies, reply);
    EXPECT_EQ(recorded().notes, "adapter opened " + adapter.string() +
                                    "\nport opened\nsettings 9600,n,8,1\nport closed\nend\n");
}

TEST_F(Forwarding, HeaderNamesCarAndPort) {
    start()->signal(SIGTERM);
    RecordingHeader header;
    EXPECT_EQ(read_recording(recording(), header, [](const Event&) {}).wrong, "");
    EXPECT_EQ(header.car, "AB-123");
    EXPECT_EQ(header.device, adapter);
    EXPECT_EQ(header.port, "COM1");
    EXPECT_THAT(header.started, testing::MatchesRegex("....-..-..T..:..:..[+-]..:.."));
}

TEST_F(Forwarding, ReplyToAClosedPortIsNotKept) {
    auto program = start();
    cable.send(status_request);
    ASSERT_TRUE(soon([&] { return recorded().replies == status_request; }));
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    ASSERT_TRUE(port.write({status_request}));
    EXPECT_EQ(cable.receive(5), status_request);
    EXPECT_EQ(port.read_all(), Bytes());
}

TEST_F(Forwarding, UnreadReplyIsGoneAfterAReopening) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    cable.send(status_request);
    ASSERT_TRUE(soon([&] { return recorded().replies == status_request; }));
    port.close();
    ASSERT_TRUE(soon([&] { return recorded().notes.find("port closed") != std::string::npos; }));
    ASSERT_EQ(port.open(), std::nullopt);
    EXPECT_EQ(port.read_all(), Bytes());
}

// The program is stopped meanwhile, so that it gets both events at once.
TEST_F(Forwarding, QuickReopeningIsNoticed) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    cable.send(status_request);
    ASSERT_TRUE(soon([&] { return recorded().replies == status_request; }));
    program->signal(SIGSTOP);
    port.close();
    ASSERT_EQ(port.open(), std::nullopt);
    program->signal(SIGCONT);
    ASSERT_TRUE(soon(
        [&] { return recorded().notes.ends_with("port opened\nport closed\nport opened\n"); }));
    EXPECT_EQ(port.read_all(), Bytes());
}

TEST_F(Forwarding, WaitingUsesNoProcessorTime) {
    auto program = start();
    const long before = program->used_ticks();
    usleep(500'000);
    EXPECT_LE(program->used_ticks() - before, 2);
}

TEST_F(Forwarding, FullDiskStopsTheRecordingOnly) {
    fs::create_directories(folder / "logbook");
    const auto not_possible = tests::on_small_disk(folder / "logbook", 16384, [this] {
        auto program = start();
        ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
        const Bytes block = every_byte(4);
        for (int round = 0; round < 20; ++round) {
            ASSERT_TRUE(port.write(block));
            ASSERT_EQ(cable.receive(block.size()), block) << round;
        }
        EXPECT_THAT(program->complaint(),
                    AllOf(HasSubstr("Recording has stopped"), HasSubstr("No space left"),
                          HasSubstr("The line goes on")));
        EXPECT_FALSE(recorded().requests.empty());
        program->signal(SIGTERM);
        EXPECT_EQ(program->exit_code(), 1);
    });
    if (not_possible) GTEST_SKIP() << *not_possible;
}

// The process that writes the recording.
pid_t recorder_of(const sim::RunningProgram& program) {
    const std::string id = std::to_string(program.process());
    pid_t recorder = -1;
    std::ifstream("/proc/" + id + "/task/" + id + "/children") >> recorder;
    EXPECT_GT(recorder, 0);
    return recorder;
}

TEST_F(Forwarding, EventsLostToASlowDiskAreCounted) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    const pid_t recorder = recorder_of(*program);
    ::kill(recorder, SIGSTOP);
    const Bytes block = every_byte(4);
    for (int round = 0; round < 900; ++round) {
        ASSERT_TRUE(port.write(block));
        ASSERT_EQ(cable.receive(block.size()), block) << round;
    }
    ::kill(recorder, SIGCONT);
    const auto length = [&] { return recorded().requests.size(); };
    ASSERT_TRUE(soon([&] { return length() > 100 * block.size(); }));
    usleep(200'000);
    const Bytes last = {1, 2, 3, 4, 5, 6, 7};
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(port.write(last));
        ASSERT_EQ(cable.receive(last.size()), last);
    }
    program->signal(SIGTERM);
    EXPECT_EQ(program->exit_code(), 0);
    const Recorded all = recorded();
    EXPECT_THAT(all.notes, testing::ContainsRegex("lost [1-9][0-9]* events\nend\n"));
    ASSERT_GT(all.requests.size(), 14u);
    EXPECT_EQ(Bytes(all.requests.end() - 7, all.requests.end()), last);
    EXPECT_EQ(Bytes(all.requests.end() - 14, all.requests.end() - 7), last);
}

TEST_F(Forwarding, LineWorksWithoutTheRecorder) {
    auto program = start();
    ::kill(recorder_of(*program), SIGKILL);
    EXPECT_THAT(program->complaint(), HasSubstr("Recording has stopped"));
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    ASSERT_TRUE(port.write(status_request));
    EXPECT_EQ(cable.receive(5), status_request);
    program->signal(SIGTERM);
    EXPECT_EQ(program->exit_code(), 1);
    EXPECT_FALSE(link_is_there());
}

TEST_F(Forwarding, UnfinishedRecordingEndsWithOne) {
    auto program = start();
    const pid_t recorder = recorder_of(*program);
    ::kill(recorder, SIGSTOP);
    program->signal(SIGTERM);
    EXPECT_THAT(program->complaint(), HasSubstr("not written yet"));
    EXPECT_EQ(program->exit_code(), 1);
    ::kill(recorder, SIGCONT);
    EXPECT_TRUE(soon([&] { return recorded().notes.ends_with("end\n"); }));
}

} // namespace
} // namespace zol::logbook
