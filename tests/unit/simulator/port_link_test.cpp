// Which links the unit may replace, and which it leaves alone.
#include "simulator/port_link.h"
#include "tests/unit/simulator/running_program.h"

#include <gmock/gmock.h>

namespace sim {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

// Above the highest number that the system gives.
constexpr auto gone_terminal = "/dev/pts/9999999";

// The far end of a pseudo-terminal.
class Terminal {
  public:
    Terminal() : fd_(open_pseudo_terminal()) {}
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        if (shell_ > 0) {
            kill(shell_, SIGKILL);
            waitpid(shell_, nullptr, 0);
        }
        close(fd_);
    }
    std::string name() const { return ptsname(fd_); }
    // As a shell in a terminal window does.
    void log_in() {
        shell_ = fork();
        if (shell_ == 0) {
            setsid();
            const int own = open(ptsname(fd_), O_RDWR);
            const ssize_t written = write(own, "$", 1);
            pause();
            _exit(static_cast<int>(written));
        }
        EXPECT_EQ(read_until(fd_, [](const std::string& got) { return !got.empty(); }), "$");
    }

  private:
    int fd_;
    pid_t shell_ = -1;
};

class LinkTest : public ProgramFolder {};

TEST_F(LinkTest, OfAKilledUnitIsReplaced) {
    fs::create_symlink(gone_terminal, link);
    RunningProgram program({"--link", link});
    EXPECT_EQ(fs::read_symlink(link), program.device());
}

TEST_F(LinkTest, ToATerminalWindowIsReplaced) {
    Terminal window;
    window.log_in();
    fs::create_symlink(window.name(), link);
    RunningProgram program({"--link", link});
    EXPECT_EQ(fs::read_symlink(link), program.device());
}

TEST_F(LinkTest, ThatAlreadyNamesTheDeviceIsKept) {
    Terminal own;
    fs::create_symlink(own.name(), link);
    EXPECT_THAT(make_link(link, own.name()), IsEmpty());
    EXPECT_EQ(fs::read_symlink(link), own.name());
}

TEST_F(LinkTest, OfARunningUnitIsRefused) {
    RunningProgram first({"--link", link});
    const std::string device = first.device();
    RunningProgram second({"--link", link});
    EXPECT_THAT(second.complaint(), AllOf(HasSubstr(link.string()), HasSubstr(device),
                                          HasSubstr("in use"), HasSubstr("name another path")));
    EXPECT_EQ(second.exit_code(), 1);
    EXPECT_EQ(fs::read_symlink(link), device);
    Port(link).expect_presence_reply();
}

class LinkElsewhere : public ProgramFolder, public testing::WithParamInterface<const char*> {};

TEST_P(LinkElsewhere, IsRefusedWithARemedy) {
    fs::create_symlink(GetParam(), link);
    RunningProgram program({"--link", link});
    EXPECT_THAT(program.complaint(), AllOf(HasSubstr(link.string()), HasSubstr(GetParam()),
                                           HasSubstr("remove that link")));
    EXPECT_EQ(program.exit_code(), 1);
    EXPECT_EQ(fs::read_symlink(link), GetParam());
}

INSTANTIATE_TEST_SUITE_P(, LinkElsewhere,
                         testing::Values("/dev/serial/by-id/an-adapter", "/dev/ttyUSB0",
                                         "/dev/null", "/dev/pts/", "/dev/pts/ptmx",
                                         "/dev/pts/../pts/9999999", "com2"));

TEST_F(LinkTest, ThroughAnotherLinkIsRefused) {
    fs::create_symlink(gone_terminal, folder / "mine");
    fs::create_symlink(folder / "mine", link);
    EXPECT_THAT(make_link(link, "/dev/pts/0"), HasSubstr("remove that link"));
    EXPECT_EQ(fs::read_symlink(link), folder / "mine");
}

TEST_F(LinkTest, CannotTakeThePlaceOfAFolder) {
    fs::create_directory(link);
    EXPECT_THAT(make_link(link, "/dev/pts/0"), HasSubstr("no symbolic link"));
    EXPECT_TRUE(fs::is_directory(link));
}

TEST_F(LinkTest, MadeByTheFitterWhileUnpluggedIsKept) {
    RunningProgram program({"--link", link});
    program.device();
    program.type("unplug");
    EXPECT_TRUE(wait_until([&] { return !fs::is_symlink(link); }));
    fs::create_symlink("/dev/ttyUSB0", link);
    program.type("plug");
    EXPECT_THAT(program.complaint(), HasSubstr("/dev/ttyUSB0"));
    program.type("quit");
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_EQ(fs::read_symlink(link), "/dev/ttyUSB0");
}

} // namespace
} // namespace sim
