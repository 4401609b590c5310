// What the tool finds at its port when the adapter or the logbook starts or ends.
#include "logbook/recorder.h"
#include "tests/unit/logbook/forwarding.h"

#include <sys/file.h>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

class PortLink : public Forwarding {
  protected:
    void expect_exchange(const link::Cable& unit) {
        EXPECT_TRUE(soon([&] { return port.write(status_request); }));
        EXPECT_EQ(unit.receive(5), status_request);
        unit.send(status_request);
        EXPECT_EQ(read_port(5), status_request);
    }
    // As after a power cut: link and note of a logbook that no longer runs.
    void leave_behind(const std::string& target) {
        std::ofstream(folder / "ports/.com1.logbook") << target;
        fs::create_symlink(target, com1);
    }
};

TEST_F(PortLink, IsRemovedAtTheEnd) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        auto program = start();
        EXPECT_TRUE(fs::is_symlink(com1));
        program->signal(number);
        EXPECT_EQ(program->exit_code(), 0);
        EXPECT_FALSE(link_is_there());
        EXPECT_FALSE(note_is_there());
    }
}

TEST_F(PortLink, IsRemovedAfterAKill) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    program->signal(SIGKILL);
    EXPECT_TRUE(soon([&] { return !link_is_there() && !note_is_there(); }));
}

TEST_F(PortLink, KillDamagesAtMostTheLastLine) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    Bytes sent;
    for (int round = 0; round < 50; ++round) {
        const Bytes piece(7, static_cast<std::uint8_t>(round));
        ASSERT_TRUE(port.write(piece));
        ASSERT_EQ(cable.receive(7), piece);
        sent.insert(sent.end(), piece.begin(), piece.end());
    }
    program->signal(SIGKILL);
    ASSERT_TRUE(soon([&] { return !note_is_there(); }));
    Bytes requests = recorded().requests;
    EXPECT_GE(requests.size(), sent.size() - 7);
    sent.resize(requests.size());
    EXPECT_EQ(requests, sent);
}

TEST_F(PortLink, AfterAKillTheToolHasItsAdapter) {
    start()->signal(SIGKILL);
    ASSERT_TRUE(soon([&] { return !link_is_there(); }));
    ASSERT_TRUE(soon([&] { return open_as_a_new_tool() == std::nullopt; }));
    EXPECT_EQ(link::found_devices[0].path, adapter);
    expect_exchange(cable);
}

TEST_F(PortLink, ToolContinuesWithTheNextLogbook) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    program->signal(SIGKILL);
    ASSERT_TRUE(soon([&] { return !link_is_there(); }));
    EXPECT_FALSE(port.write(status_request));
    auto next = start();
    expect_exchange(cable);
    EXPECT_EQ(recorded(2).requests, status_request);
}

TEST_F(PortLink, IsRemovedWhenTheAdapterIsPulled) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    cable.pull();
    EXPECT_TRUE(soon([&] { return !port.write(status_request); }));
    EXPECT_FALSE(link_is_there());
    EXPECT_THAT(program->complaint(), HasSubstr("is gone"));
}

TEST_F(PortLink, ReturnsWithTheAdapter) {
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    cable.pull();
    EXPECT_TRUE(soon([&] { return !port.write(status_request); }));
    EXPECT_FALSE(link_is_there());
    const link::Cable again;
    lead_adapter_to(again);
    expect_exchange(again);
    EXPECT_THAT(recorded().notes, HasSubstr("adapter gone\nadapter opened"));
}

TEST_F(PortLink, AnotherPseudoTerminalIsNotTaken) {
    auto program = start();
    cable.pull();
    EXPECT_TRUE(soon([&] { return !link_is_there(); }));
    usleep(50'000); // the program closes its end of the terminal last
    const link::Cable other;
    ASSERT_EQ(other.device, fs::read_symlink(adapter)) << "the kernel gives the lowest free number";
    usleep(1'000'000);
    EXPECT_FALSE(link_is_there());
    EXPECT_THAT(program->complaint(), AllOf(HasSubstr("is gone"), HasSubstr("another device")));
}

TEST_F(PortLink, WaitsForAnAbsentAdapter) {
    fs::remove(adapter);
    sim::RunningProgram program(record_words(), ZOL_LOGBOOK);
    EXPECT_THAT(program.complaint(),
                AllOf(HasSubstr("No such file"), HasSubstr("plug the adapter in")));
    EXPECT_FALSE(link_is_there());
    EXPECT_THAT(*open_as_a_new_tool(), HasSubstr("No such file"));
    lead_adapter_to(cable);
    program.said_until(" now.\n");
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    expect_exchange(cable);
}

TEST_F(PortLink, BusyAdapterIsLeftToItsProgram) {
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    sim::RunningProgram program(record_words(), ZOL_LOGBOOK);
    EXPECT_THAT(program.complaint(),
                AllOf(HasSubstr("busy"), HasSubstr("start it after this one")));
    EXPECT_EQ(program.exit_code(), 1);
    EXPECT_FALSE(link_is_there());
    EXPECT_FALSE(note_is_there());
    EXPECT_TRUE(fs::is_empty(folder / "logbook/AB-123"));
    expect_exchange(cable);
}

TEST_F(PortLink, DeviceThatIsNoSerialPortIsRefused) {
    const std::string fifo = folder / "fifo", file = write("file", "");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& device : {fifo, file, folder.string(), std::string("/dev/null")}) {
        auto words = record_words();
        words.back() = device;
        const Ended ended = run(words);
        EXPECT_EQ(ended.status, 1);
        EXPECT_THAT(ended.complaint,
                    HasSubstr(device + " is no serial port. Name the adapter with --device.\n"));
        EXPECT_TRUE(fs::is_empty(folder / "logbook/AB-123"));
    }
}

TEST_F(PortLink, AdapterIsBusyForOtherPrograms) {
    auto program = start();
    fs::remove(com1); // as a program that does not use the link
    EXPECT_THAT(*open_as_a_new_tool(), HasSubstr("busy"));
}

TEST_F(PortLink, ForbiddenAdapterMakesNoLink) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may open everything";
    ASSERT_EQ(::chmod(cable.device.c_str(), 0), 0);
    sim::RunningProgram program(record_words(), ZOL_LOGBOOK);
    EXPECT_THAT(program.complaint(), AllOf(HasSubstr("denied"), HasSubstr("dialout")));
    EXPECT_FALSE(link_is_there());
}

TEST_F(PortLink, LinkOfAnotherOwnerIsKept) {
    fs::create_symlink("/dev/ttyUSB7", com1);
    sim::RunningProgram program(record_words(), ZOL_LOGBOOK);
    EXPECT_THAT(program.complaint(),
                AllOf(HasSubstr("did not make it"), HasSubstr("--port 2 --device /dev/ttyUSB7")));
    EXPECT_EQ(program.exit_code(), 1);
    EXPECT_EQ(fs::read_symlink(com1), "/dev/ttyUSB7");
    EXPECT_FALSE(note_is_there());
}

TEST_F(PortLink, FileInItsPlaceStays) {
    std::ofstream(com1) << "precious";
    sim::RunningProgram program(record_words(), ZOL_LOGBOOK);
    EXPECT_EQ(program.exit_code(), 1);
    EXPECT_EQ(text_of(com1), "precious");
}

TEST_F(PortLink, LinkThatWasExchangedMeanwhileStays) {
    auto program = start();
    fs::remove(com1);
    fs::create_symlink("/dev/ttyUSB7", com1);
    program->signal(SIGTERM);
    EXPECT_EQ(program->exit_code(), 0);
    EXPECT_EQ(fs::read_symlink(com1), "/dev/ttyUSB7");
}

TEST_F(PortLink, LeftLinkIsReplacedByTheNextLogbook) {
    leave_behind("/dev/pts/99999");
    auto program = start();
    EXPECT_NE(fs::read_symlink(com1), "/dev/pts/99999");
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    expect_exchange(cable);
}

TEST_F(PortLink, ReleaseRemovesALeftLink) {
    leave_behind("/dev/pts/99999");
    EXPECT_THAT(run({"release", "--folder", folder}).said, HasSubstr("1 link removed."));
    EXPECT_FALSE(link_is_there());
    EXPECT_FALSE(note_is_there());
}

TEST_F(PortLink, ReleaseKeepsTheLinkOfARunningLogbook) {
    auto program = start();
    const Ended ended = run({"release", "--folder", folder});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.said, "0 links removed.\n");
    EXPECT_THAT(ended.complaint, HasSubstr("Another zol-logbook records com1"));
    EXPECT_TRUE(link_is_there());
    EXPECT_TRUE(note_is_there());
}

TEST_F(PortLink, SecondLogbookIsRefused) {
    auto program = start();
    const Ended second = run(record_words());
    EXPECT_EQ(second.status, 1);
    EXPECT_THAT(second.complaint, HasSubstr("Another zol-logbook records com1"));
    EXPECT_TRUE(link_is_there());
}

TEST_F(PortLink, OtherNumberHasItsOwnLink) {
    auto words = record_words();
    words.insert(words.end(), {"--port", "4"});
    sim::RunningProgram program(words, ZOL_LOGBOOK);
    program.said_until(" now.\n");
    EXPECT_TRUE(fs::is_symlink(folder / "ports/com4"));
    EXPECT_FALSE(link_is_there());
}

TEST_F(PortLink, OptionsTakeNoControlCharacter) {
    for (const char* option : {"--device", "--folder", "--data", "--car"})
        for (const char* value : {"/dev/x\n5 > 50", "a\x7f", "a\xc2\x9b"}) {
            const Ended ended = run({"record", "--car", "A", option, value});
            EXPECT_EQ(ended.status, 2);
            EXPECT_EQ(ended.complaint, "zol-logbook: " + std::string(option) +
                                           " takes no control character, such as a line feed.\n");
        }
}

// The path comes from the system here, not from an option.
TEST_F(PortLink, LineFeedInAPathAddsNoEvent) {
    RecordingFile file;
    ASSERT_EQ(file.create(folder / "data", "A", "2026-11-22", {}), "");
    const auto path = file.path();
    PortClaim claim;
    Recorder recorder;
    ASSERT_EQ(recorder.start(file, claim), "");
    recorder.say("/dev/x\n5 > 50");
    recorder.report("/dev/x\n5 > 50\n" + std::string(9000, '5'));
    recorder.put({7, EventKind::note, {}, "end"});
    EXPECT_TRUE(recorder.end());
    EXPECT_EQ(text_of(path), header_text({}) + "7 ! end\n");
}

TEST_F(PortLink, WrongArgumentsEndWithTwo) {
    using Words = std::vector<std::string>;
    for (const Words& words :
         {Words{"record"}, Words{"record", "--car", "../x"}, Words{"record", "--car"},
          Words{"record", "--car", "A", "--port", "9"}, Words{"record", "--car", "A", "file"},
          Words{"record", "--colour", "red"}, Words{"release", "now"}})
        EXPECT_EQ(run(words).status, 2);
    EXPECT_EQ(run({"record", "--car", "A", "--folder", folder / "none"}).status, 1);
}

} // namespace
} // namespace zol::logbook
