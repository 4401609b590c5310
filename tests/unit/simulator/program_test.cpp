// The simulated unit as a program, on a real pseudo-terminal.
#include "tests/unit/simulator/running_program.h"

#include <gmock/gmock.h>

namespace sim {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ProgramTest : public ProgramFolder {};

TEST_F(ProgramTest, RepliesAtThePaceOfTheLine) {
    RunningProgram program({"--firmware", "4.7.71"});
    Port port(program.device());
    ASSERT_TRUE(port.is_open());
    const auto began = Clock::now();
    port.send_command(3);
    const std::string status = port.read_bytes(29);
    EXPECT_THAT(status, SizeIs(29));
    EXPECT_EQ(status[4], 3);
    EXPECT_GE(Clock::now() - began, std::chrono::milliseconds(20 + 29))
        << "it can be later, never earlier";
    port.send_command(7);
    EXPECT_EQ(port.read_bytes(11), std::string("PC\0\x0b\x07\0\x04\0\x07\0\x47", 11));
}

TEST_F(ProgramTest, PassesEveryByteBothWays) {
    RunningProgram program({});
    Port port(program.device());
    program.type("echo on");
    program.type("memory 3 4321");
    program.said_until("4321");
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    port.send(all);
    EXPECT_EQ(port.read_bytes(256), all);
}

TEST_F(ProgramTest, RemovesItsLinkHoweverItEnds) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP, 0}) {
        RunningProgram program({"--link", link});
        const std::string device = program.device();
        EXPECT_EQ(fs::read_symlink(link), device);
        EXPECT_TRUE(Port(link).is_open());
        if (number)
            program.signal(number);
        else
            program.type("quit");
        EXPECT_EQ(program.exit_code(), 0) << number;
        EXPECT_FALSE(fs::is_symlink(link)) << number;
    }
}

TEST_F(ProgramTest, LeavesAReplacedLinkAlone) {
    RunningProgram program({"--link", link});
    program.device();
    fs::remove(link);
    fs::create_symlink("/dev/null", link);
    program.signal(SIGTERM);
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_EQ(fs::read_symlink(link), "/dev/null");
}

TEST_F(ProgramTest, RefusesAPathThatIsNoLink) {
    std::ofstream(link) << "precious";
    RunningProgram program({"--link", link});
    EXPECT_THAT(program.complaint(),
                AllOf(HasSubstr(link.string()), HasSubstr("no symbolic link")));
    EXPECT_EQ(program.exit_code(), 1);
    EXPECT_EQ(fs::file_size(link), 8u);
    RunningProgram nowhere({"--link", folder / "no" / "such" / "com1"});
    EXPECT_THAT(nowhere.complaint(), HasSubstr("No such file"));
    EXPECT_EQ(nowhere.exit_code(), 1);
}

TEST_F(ProgramTest, WrongArgumentsEndItWithCodeTwo) {
    const std::vector<std::string> wrong[] = {
        {"--fruit"}, {"--firmware", "7.7.7"}, {"--seed"}, {"--scenario", "/no/such"}};
    for (const auto& words : wrong) {
        RunningProgram program(words);
        EXPECT_THAT(program.complaint(), StartsWith("control-unit: "));
        EXPECT_EQ(program.exit_code(), 2) << words[0];
    }
}

TEST_F(ProgramTest, FilesThatCannotBeOpenedEndItWithCodeOne) {
    const std::vector<std::string> wrong[] = {
        {"--device", "/dev/no-such-port"}, {"--device", "/dev/null"}, {"--log", "/no/such/log"}};
    for (const auto& words : wrong) {
        RunningProgram program(words);
        EXPECT_THAT(program.complaint(), HasSubstr(words[1]));
        EXPECT_EQ(program.exit_code(), 1) << words[1];
    }
}

TEST_F(ProgramTest, HelpAndVersionOpenNothing) {
    RunningProgram help({"--help"});
    EXPECT_THAT(help.said_until("EXAMPLES"), HasSubstr("SYNOPSIS"));
    EXPECT_EQ(help.exit_code(), 0);
    RunningProgram version({"--version"});
    EXPECT_THAT(version.said_until("\n"), StartsWith("control-unit 9."));
    EXPECT_EQ(version.exit_code(), 0);
}

TEST_F(ProgramTest, RunsOnWithoutStandardInput) {
    RunningProgram program({});
    const std::string device = program.device();
    program.end_input();
    usleep(100'000);
    program.expect_idle();
    Port(device).expect_presence_reply();
}

TEST_F(ProgramTest, EndsWithItsInputIfAskedTo) {
    RunningProgram program({"--exit-on-eof", "--link", link});
    program.device();
    program.end_input();
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_FALSE(fs::is_symlink(link));
}

TEST_F(ProgramTest, TakesALastLineWithoutLineEnd) {
    RunningProgram program({"--exit-on-eof", "--warm"});
    program.device();
    program.type_raw("memory 3 1444\nmemory 5");
    program.end_input();
    EXPECT_THAT(program.said_until("PAR_5"), HasSubstr("PAR_3 = 1444  lower gain, thousandths\n"));
    EXPECT_EQ(program.exit_code(), 0);
}

TEST_F(ProgramTest, RefusesOverlongLines) {
    RunningProgram program({});
    program.device();
    program.type("fly");
    EXPECT_THAT(program.said_until("\n"), HasSubstr("Type help"));
    program.type(std::string(20'000, 'x'));
    EXPECT_THAT(program.said_until("\n"), HasSubstr("too long"));
    program.type("help");
    EXPECT_THAT(program.said_until("quit"), HasSubstr("line drop"));
}

TEST_F(ProgramTest, ReopenedPortHoldsNoOldBytes) {
    RunningProgram program({});
    const std::string device = program.device();
    for (int i = 0; i < 3; ++i) {
        usleep(i == 0 ? 0 : 200'000); // the unread reply arrives at a closed port
        Port port(device);
        ASSERT_TRUE(port.is_open());
        usleep(20'000);
        port.expect_presence_reply();
        port.send_command(3); // whose reply is not read
    }
    usleep(200'000);
    Port port(device);
    usleep(20'000);
    port.send_command(7);
    const std::string version = port.read_bytes(11);
    ASSERT_THAT(version, SizeIs(11));
    EXPECT_EQ(version[4], 7);
}

TEST_F(ProgramTest, PluggingInAgainBringsAnotherPort) {
    RunningProgram program({"--link", link});
    program.device();
    {
        Port port(link);
        program.type("unplug");
        EXPECT_THAT(port.read_bytes(1, 2000), IsEmpty());
        EXPECT_TRUE(wait_until([&] { return !fs::is_symlink(link); }));
        EXPECT_LT(port.send_command(6), 0);
        EXPECT_EQ(errno, EIO);
    }
    program.expect_idle();
    program.type("plug");
    program.said_until("linked as");
    Port again(link);
    ASSERT_TRUE(again.is_open());
    again.expect_presence_reply();
}

TEST_F(ProgramTest, BadLinePullsTheCable) {
    RunningProgram program({"--link", link, "--line", "unplug=1,unplug-ms=300,seed=7"});
    EXPECT_THAT(program.said_until("unplug 1 "), HasSubstr("line seed 7, unplug 1 of up to 300 ms"))
        << "the seed is always printed";
    {
        Port port(link);
        port.send_command(6);
        EXPECT_THAT(program.said_until("linked as"), HasSubstr("the cable is out"));
        EXPECT_LT(port.send_command(6), 0) << "the adapter was pulled with it";
    }
    program.type("line clean");
    program.said_until("clean");
    Port again(link);
    ASSERT_TRUE(again.is_open());
    again.expect_presence_reply();
}

TEST_F(ProgramTest, BadLineTakesThePermission) {
    RunningProgram program({"--line", "denied=on"});
    const std::string device = program.device();
    const auto mode = [&] { return fs::status(device).permissions(); };
    EXPECT_TRUE(wait_until([&] { return mode() == fs::perms::none; }));
    program.type("line denied off");
    program.said_until("clean");
    EXPECT_TRUE(wait_until([&] { return mode() != fs::perms::none; }));
}

TEST_F(ProgramTest, ScenarioTypesItsCommands) {
    std::ofstream(folder / "good.txt") << "0 memory 3 1500\n0.2 memory 3\n0.3 quit\n";
    RunningProgram good({"--scenario", folder / "good.txt"});
    EXPECT_THAT(good.said_until("no such text"), HasSubstr("PAR_3 = 1500"));
    EXPECT_EQ(good.exit_code(), 0);
    std::ofstream(folder / "bad.txt") << "0 gas on\n1 fly\n";
    RunningProgram bad({"--scenario", folder / "bad.txt"});
    EXPECT_THAT(bad.complaint(), HasSubstr("bad.txt:2: there is no command \"fly\""));
    EXPECT_EQ(bad.exit_code(), 2);
}

TEST_F(ProgramTest, LogsTheWireInWords) {
    const fs::path log = folder / "wire.txt";
    RunningProgram program({"--log", log});
    Port port(program.device());
    port.send({'P', 'C', 0, 9, 2, 0, 3, 4, '\xe2'});
    port.send_command(6);
    port.read_bytes(6);
    program.type("quit");
    EXPECT_EQ(program.exit_code(), 0);
    std::ifstream file(log);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    EXPECT_THAT(text, AllOf(HasSubstr("tool  write PAR_3 = 1250\n"), HasSubstr("tool  presence\n"),
                            HasSubstr("unit  presence : 50 43 00 06 06 00\n")));
}

TEST_F(ProgramTest, UsesTheSerialPortThatItIsGiven) {
    const int far = open_pseudo_terminal();
    const std::string name = ptsname(far);
    RunningProgram program({"--device", name});
    EXPECT_EQ(program.device(), name);
    const std::string request{'P', 'C', 0, 5, 6};
    EXPECT_EQ(write(far, request.data(), request.size()), 5);
    EXPECT_THAT(read_until(far, [](const std::string& got) { return got.size() >= 6; }), SizeIs(6));
    close(far);
    EXPECT_THAT(program.complaint(), HasSubstr(name + " is gone"));
    program.expect_idle();
    program.type("quit");
    EXPECT_EQ(program.exit_code(), 0);
}

} // namespace
} // namespace sim
