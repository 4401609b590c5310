// The program itself, started as a fitter would start it, on a real pseudo-terminal.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using Clock = std::chrono::steady_clock;

constexpr int patience_ms = 10'000; // only a hung program uses it up

// Reads until `enough`, the end, or the end of patience.
template <class Enough>
std::string read_until(int fd, Enough enough, int ms = patience_ms) {
    std::string got;
    const auto end = Clock::now() + std::chrono::milliseconds(ms);
    while (!enough(got)) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd watched{fd, POLLIN, 0};
        if (left <= 0 || poll(&watched, 1, static_cast<int>(left)) <= 0) break;
        std::array<char, 512> buffer{};
        const ssize_t count = read(fd, buffer.data(), buffer.size());
        if (count <= 0) break;
        got.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return got;
}

class Program {
  public:
    explicit Program(const std::vector<std::string>& arguments) {
        std::array<int, 2> in{}, out{}, err{};
        EXPECT_EQ(pipe2(in.data(), O_CLOEXEC) | pipe2(out.data(), O_CLOEXEC) |
                      pipe2(err.data(), O_CLOEXEC),
                  0);
        std::vector<char*> words{const_cast<char*>(CONTROL_UNIT)};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        pid_ = fork();
        if (pid_ == 0) {
            dup2(in[0], 0);
            dup2(out[1], 1);
            dup2(err[1], 2);
            execv(CONTROL_UNIT, words.data());
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        close(err[1]);
        in_ = in[1];
        out_ = out[0];
        err_ = err[0];
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        for (const int fd : {in_, out_, err_})
            if (fd >= 0) close(fd);
    }
    void type(const std::string& line) { type_raw(line + "\n"); }
    void type_raw(const std::string& all) {
        EXPECT_EQ(write(in_, all.data(), all.size()), static_cast<ssize_t>(all.size()));
    }
    void end_input() {
        close(in_);
        in_ = -1;
    }
    std::string said_until(const std::string& text) {
        return read_until(out_, [&](const std::string& got) { return got.find(text) != got.npos; });
    }
    // The device that it says it is on.
    std::string device() {
        const std::string said = said_until("\nseed ");
        const auto from = said.find(" on ") + 4;
        return said.substr(from, said.find_first_of(",\n", from) - from);
    }
    void signal(int number) { kill(pid_, number); }
    int exit_code() {
        const auto end = Clock::now() + std::chrono::milliseconds(patience_ms);
        int status = 0;
        while (Clock::now() < end) {
            if (waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
            }
            usleep(2000);
        }
        return -1000;
    }
    std::string complaint() {
        return read_until(
            err_, [](const std::string& got) { return !got.empty() && got.back() == '\n'; });
    }
    // Ticks of the processor used so far.
    long used_ticks() const {
        std::ifstream file("/proc/" + std::to_string(pid_) + "/stat");
        std::string text((std::istreambuf_iterator<char>(file)), {});
        std::istringstream rest(text.substr(text.rfind(')') + 2));
        std::string skipped;
        for (int i = 0; i < 11; ++i)
            rest >> skipped;
        long user = 0, system = 0;
        rest >> user >> system;
        return user + system;
    }

  private:
    pid_t pid_ = -1;
    int in_ = -1, out_ = -1, err_ = -1;
};

// The tool's end: opened without touching the terminal's settings, to see that they are right.
class Port {
  public:
    explicit Port(const std::string& path)
        : fd_(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port() { close(fd_); }
    bool is_open() const { return fd_ >= 0; }
    ssize_t send(const std::string& bytes) { return write(fd_, bytes.data(), bytes.size()); }
    ssize_t send_command(int code) { return send({'P', 'C', 0, 5, static_cast<char>(code)}); }
    std::string read_bytes(std::size_t count, int ms = patience_ms) {
        return read_until(
            fd_, [&](const std::string& got) { return got.size() >= count; }, ms);
    }

  private:
    int fd_;
};

class ProgramTest : public testing::Test {
  protected:
    ProgramTest() {
        folder = fs::path(testing::TempDir()) / ("unit" + std::to_string(getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        link = folder / "com1";
    }
    ~ProgramTest() override { fs::remove_all(folder); }
    fs::path folder, link;
};

TEST_F(ProgramTest, AnswersOnItsPseudoTerminalAtTheLinesPace) {
    Program program({"--firmware", "4.7.71"});
    Port port(program.device());
    ASSERT_TRUE(port.is_open());
    const auto began = Clock::now();
    port.send_command(3);
    const std::string status = port.read_bytes(29);
    EXPECT_THAT(status, SizeIs(29));
    EXPECT_EQ(status[4], 3);
    EXPECT_GE(Clock::now() - began, std::chrono::milliseconds(20 + 29))
        << "it can be later, never sooner";
    port.send_command(7);
    EXPECT_EQ(port.read_bytes(11), std::string("PC\0\x0b\x07\0\x04\0\x07\0\x47", 11));
}

TEST_F(ProgramTest, PassesEveryByteBothWays) {
    Program program({});
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

TEST_F(ProgramTest, MakesItsLinkAndRemovesItHoweverItEnds) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP, 0}) {
        Program program({"--link", link});
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

TEST_F(ProgramTest, ReplacesALinkThatWasLeftBehind) {
    fs::create_symlink("/dev/pts/nowhere", link);
    Program program({"--link", link});
    EXPECT_EQ(fs::read_symlink(link), program.device());
}

TEST_F(ProgramTest, LeavesALinkAloneThatSomebodyElseHasTaken) {
    Program program({"--link", link});
    program.device();
    fs::remove(link);
    fs::create_symlink("/dev/null", link);
    program.signal(SIGTERM);
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_EQ(fs::read_symlink(link), "/dev/null");
}

TEST_F(ProgramTest, RefusesAPlaceThatIsNoLink) {
    std::ofstream(link) << "precious";
    Program program({"--link", link});
    EXPECT_THAT(program.complaint(),
                AllOf(HasSubstr(link.string()), HasSubstr("no symbolic link")));
    EXPECT_EQ(program.exit_code(), 1);
    EXPECT_EQ(fs::file_size(link), 8u);
    Program nowhere({"--link", folder / "no" / "such" / "com1"});
    EXPECT_THAT(nowhere.complaint(), HasSubstr("No such file"));
    EXPECT_EQ(nowhere.exit_code(), 1);
}

TEST_F(ProgramTest, WrongArgumentsGetASentenceAndCodeTwo) {
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"--fruit"}, {"--firmware", "7.7.7"}, {"--seed"}, {"--scenario", "/no/such"}}) {
        Program program(words);
        EXPECT_THAT(program.complaint(), StartsWith("control-unit: "));
        EXPECT_EQ(program.exit_code(), 2) << words[0];
    }
}

TEST_F(ProgramTest, PortsAndLogsThatCannotBeOpenedGetASentenceAndCodeOne) {
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"--device", "/dev/no-such-port"},
                                               {"--device", "/dev/null"},
                                               {"--log", "/no/such/log"}}) {
        Program program(words);
        EXPECT_THAT(program.complaint(), HasSubstr(words[1]));
        EXPECT_EQ(program.exit_code(), 1) << words[1];
    }
}

TEST_F(ProgramTest, HelpAndVersionEndWithNothingOpened) {
    Program help({"--help"});
    EXPECT_THAT(help.said_until("EXAMPLES"), HasSubstr("SYNOPSIS"));
    EXPECT_EQ(help.exit_code(), 0);
    Program version({"--version"});
    EXPECT_THAT(version.said_until("\n"), StartsWith("control-unit 9."));
    EXPECT_EQ(version.exit_code(), 0);
}

TEST_F(ProgramTest, LivesOnWithoutStandardInputAndCostsNothing) {
    Program program({});
    const std::string device = program.device();
    program.end_input();
    usleep(100'000);
    const long before = program.used_ticks();
    usleep(500'000);
    EXPECT_LE(program.used_ticks() - before, 5) << "it must not spin";
    Port port(device);
    port.send_command(6);
    EXPECT_THAT(port.read_bytes(6), SizeIs(6));
}

TEST_F(ProgramTest, EndsWithItsInputIfAskedTo) {
    Program program({"--exit-on-eof", "--link", link});
    program.device();
    program.end_input();
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_FALSE(fs::is_symlink(link));
}

TEST_F(ProgramTest, TakesTheLastLineWithoutALineEnd) {
    Program program({"--exit-on-eof", "--warm"});
    program.device();
    program.type_raw("memory 3 1444\nmemory 5");
    program.end_input();
    EXPECT_THAT(program.said_until("PAR_5"), HasSubstr("PAR_3 = 1444  lower gain, thousandths\n"));
    EXPECT_EQ(program.exit_code(), 0);
}

TEST_F(ProgramTest, AnswersTypedCommandsAndBearsEndlessLines) {
    Program program({});
    program.device();
    program.type("fly");
    EXPECT_THAT(program.said_until("\n"), HasSubstr("Type help"));
    program.type(std::string(20'000, 'x'));
    EXPECT_THAT(program.said_until("\n"), HasSubstr("too long"));
    program.type("help");
    EXPECT_THAT(program.said_until("quit"), HasSubstr("line drop"));
}

TEST_F(ProgramTest, TheToolMayCloseAndOpenThePortAndFindsNothingStale) {
    Program program({});
    const std::string device = program.device();
    for (int i = 0; i < 3; ++i) {
        usleep(i == 0 ? 0 : 200'000); // the answer left behind arrives at a closed port
        Port port(device);
        ASSERT_TRUE(port.is_open());
        usleep(20'000);
        port.send_command(6);
        EXPECT_THAT(port.read_bytes(6), SizeIs(6));
        port.send_command(3); // left behind unread
    }
    usleep(200'000);
    Port port(device);
    usleep(20'000);
    port.send_command(7);
    const std::string version = port.read_bytes(11);
    ASSERT_THAT(version, SizeIs(11));
    EXPECT_EQ(version[4], 7);
}

TEST_F(ProgramTest, PullingTheCableHangsThePortUpAndPuttingItBackBringsAnother) {
    Program program({"--link", link});
    program.device();
    {
        Port port(link);
        program.type("unplug");
        EXPECT_THAT(port.read_bytes(1, 2000), IsEmpty());
        for (int i = 0; i < 500 && fs::is_symlink(link); ++i)
            usleep(2000);
        EXPECT_FALSE(fs::is_symlink(link));
        EXPECT_LT(port.send_command(6), 0);
        EXPECT_EQ(errno, EIO);
    }
    const long before = program.used_ticks();
    usleep(300'000);
    EXPECT_LE(program.used_ticks() - before, 5);
    program.type("plug");
    program.said_until("linked as");
    Port again(link);
    ASSERT_TRUE(again.is_open());
    again.send_command(6);
    EXPECT_THAT(again.read_bytes(6), SizeIs(6));
}

TEST_F(ProgramTest, AScenarioTypesItsCommandsAndABadOneIsRefused) {
    std::ofstream(folder / "good.txt") << "0 memory 3 1500\n0.2 memory 3\n0.3 quit\n";
    Program good({"--scenario", folder / "good.txt"});
    EXPECT_THAT(good.said_until("no such text"), HasSubstr("PAR_3 = 1500"));
    EXPECT_EQ(good.exit_code(), 0);
    std::ofstream(folder / "bad.txt") << "0 gas on\n1 fly\n";
    Program bad({"--scenario", folder / "bad.txt"});
    EXPECT_THAT(bad.complaint(), HasSubstr("bad.txt:2: there is no command \"fly\""));
    EXPECT_EQ(bad.exit_code(), 2);
}

TEST_F(ProgramTest, WritesTheWireDownInWords) {
    const fs::path log = folder / "wire.txt";
    Program program({"--log", log});
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

TEST_F(ProgramTest, SitsOnASerialPortThatItIsGiven) {
    const int far = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(far, 0);
    grantpt(far);
    unlockpt(far);
    const std::string name = ptsname(far);
    Program program({"--device", name});
    EXPECT_EQ(program.device(), name);
    const std::string request{'P', 'C', 0, 5, 6};
    EXPECT_EQ(write(far, request.data(), request.size()), 5);
    EXPECT_THAT(read_until(far, [](const std::string& got) { return got.size() >= 6; }), SizeIs(6));
    close(far); // the adapter is pulled out
    EXPECT_THAT(program.complaint(), HasSubstr(name + " is gone"));
    const long before = program.used_ticks();
    usleep(300'000);
    EXPECT_LE(program.used_ticks() - before, 5);
    program.type("quit");
    EXPECT_EQ(program.exit_code(), 0);
}

} // namespace
