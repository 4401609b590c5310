// What a port does to the settings of a terminal, and which terminals it leaves alone.
#include "app/helper_texts.h"
#include "tests/support/system_calls.h"
#include "tests/unit/link/serial_cable.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace zol::link {
namespace {

// A process with a session of its own, whose controlling terminal is the cable's device, as in a
// terminal window.
class Session {
  public:
    explicit Session(const Cable& cable) {
        int news[2];
        EXPECT_EQ(::pipe2(news, O_CLOEXEC), 0);
        process_ = ::fork();
        if (process_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL); // if the test crashes
            ::setsid();
            const int terminal = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
            if (::ioctl(terminal, TIOCSCTTY, 0) == 0) (void)!::write(news[1], "", 1);
            ::pause();
            ::_exit(0);
        }
        ::close(news[1]);
        char ready = 0;
        EXPECT_EQ(::read(news[0], &ready, 1), 1) << "the session has no terminal";
        ::close(news[0]);
    }
    ~Session() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    Session(const Session&) = delete;

  private:
    pid_t process_ = -1;
};

class TerminalSettings : public SerialCable {
  protected:
    static termios settings_of(const Cable& cable) { return OpenDevice(cable).settings(); }
    static void expect_same(const termios& now, const termios& before) {
        EXPECT_EQ(now.c_iflag, before.c_iflag);
        EXPECT_EQ(now.c_oflag, before.c_oflag);
        // An adapter powered by the modem lines must keep them while the port is closed.
        EXPECT_EQ(now.c_cflag & ~HUPCL, before.c_cflag & ~HUPCL);
        EXPECT_EQ(now.c_lflag, before.c_lflag);
        EXPECT_TRUE(std::equal(std::begin(now.c_cc), std::end(now.c_cc), std::begin(before.c_cc)));
    }
    void pull(Cable& cable) {
        cable.pull();
        EXPECT_FALSE(port.write(poll_frame));
    }
    // Fails every call of this name.
    static tests::WatchedCalls::FateOf failing(std::string_view call) {
        return [call](int, std::string_view name) {
            return tests::Fate{.error = name == call ? EIO : 0};
        };
    }
};

TEST_F(TerminalSettings, TerminalOfASessionIsRefused) {
    Cable cable;
    const Session session(cable);
    const termios before = settings_of(cable);
    lead_com1_to(cable.device);
    std::filesystem::create_symlink(ZOL_SOURCE_DIR "/language", folder / "language");
    app::apply_helper_texts();
    EXPECT_EQ(open_com1(), "COM1 (" + (folder / "ports/com1").string() + " -> " + cable.device +
                               "): this is the terminal of a running session and not an adapter. "
                               "Point the link in the folder ports to the adapter, or choose "
                               "another port.");
    EXPECT_FALSE(port.is_open());
    EXPECT_FALSE(port.write(Bytes{80}));
    cable.expect_no_bytes();
    expect_same(settings_of(cable), before);
}

// A reader of the pipe would notice the opening.
TEST_F(TerminalSettings, PipeIsNotEvenOpened) {
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    lead_com1_to(pipe);
    expect_open_fails(ENOTTY);
    pollfd watched{reader, POLLIN, 0};
    EXPECT_EQ(::poll(&watched, 1, 0), 0) << "a writer was there";
    ::close(reader);
}

TEST_F(TerminalSettings, TerminalUnderAStaleLinkIsLeftAlone) {
    Cable unit;
    connect(unit);
    pull(unit);
    Cable window;
    const Session session(window);
    const termios before = settings_of(window);
    const OpenDevice shell(window);
    EXPECT_EQ(::write(shell.descriptor, "prompt", 6), 6);
    lead_com1_to(window.device);
    for (int telegrams = 0; telegrams < 3; ++telegrams)
        EXPECT_FALSE(port.write(poll_frame));
    EXPECT_EQ(window.receive(6), Bytes({'p', 'r', 'o', 'm', 'p', 't'}));
    window.expect_no_bytes();
    expect_same(settings_of(window), before);
}

TEST_F(TerminalSettings, TerminalWhoseSessionEndedIsAPort) {
    Cable cable;
    lead_com1_to(cable.device);
    {
        const Session session(cable);
        EXPECT_NE(open_com1(), std::nullopt);
    }
    EXPECT_EQ(open_com1(), std::nullopt);
    EXPECT_TRUE(port.write(Bytes{80}));
    EXPECT_EQ(cable.receive(1), Bytes{80});
}

TEST_F(TerminalSettings, ComeBackWhenThePortIsClosed) {
    Cable cable;
    const termios before = settings_of(cable);
    connect(cable);
    EXPECT_NE(settings_of(cable).c_lflag, before.c_lflag);
    port.close();
    expect_same(settings_of(cable), before);
}

TEST_F(TerminalSettings, ComeBackWhenTheProgramEnds) {
    Cable cable;
    const termios before = settings_of(cable);
    lead_com1_to(cable.device);
    {
        PosixSerialPort other;
        other.set_number(1);
        other.set_line_settings("9600,n,8,1");
        ASSERT_EQ(other.open(), std::nullopt);
    }
    expect_same(settings_of(cable), before);
}

TEST_F(TerminalSettings, AreThoseOfTheDeviceThatCameBack) {
    Cable first;
    connect(first);
    pull(first);
    Cable second;
    const OpenDevice near_end(second);
    termios before = near_end.settings();
    before.c_iflag |= IXANY;
    near_end.set(before);
    lead_com1_to(second.device);
    EXPECT_TRUE(port.write(Bytes{80}));
    port.close();
    expect_same(settings_of(second), before);
}

TEST_F(TerminalSettings, ArePutBackWhenTheLineCannotBeSet) {
    Cable cable;
    lead_com1_to(cable.device);
    for (const int refused : {1, 2}) { // the settings of the line, and those put back too
        int settings_made = 0;
        const tests::WatchedCalls watch([&](int, std::string_view name) {
            const bool fails = name == "tcsetattr" && ++settings_made <= refused;
            return tests::Fate{.error = fails ? EIO : 0};
        });
        expect_open_fails(EIO);
        EXPECT_EQ(settings_made, 2);
        EXPECT_EQ(watch.names().back(), "close");
    }
    EXPECT_EQ(open_com1(), std::nullopt);
}

TEST_F(TerminalSettings, ThatCannotComeBackDoNotBlockTheClosing) {
    Cable cable;
    connect(cable);
    {
        const tests::WatchedCalls watch(failing("tcsetattr"));
        port.close();
        EXPECT_EQ(watch.names().back(), "close");
    }
    EXPECT_FALSE(port.is_open());
    EXPECT_TRUE(OpenDevice(cable).lock());
}

// The port needs both to put a device back as it was.
TEST_F(TerminalSettings, OfADeviceThatFailsAreLeftAlone) {
    Cable cable;
    lead_com1_to(cable.device);
    for (const std::string_view call : {"fstat", "tcgetattr"}) {
        const tests::WatchedCalls watch(failing(call));
        EXPECT_NE(open_com1(), std::nullopt) << call;
        EXPECT_FALSE(port.is_open());
        EXPECT_THAT(watch.names(), testing::Not(testing::Contains("tcsetattr"))) << call;
        EXPECT_EQ(watch.names().back(), "close");
    }
}

// Another program holds the lock, so the settings are that program's too.
TEST_F(TerminalSettings, OfABusyDeviceAreLeftAlone) {
    Cable cable;
    const OpenDevice other(cable);
    ASSERT_TRUE(other.lock());
    lead_com1_to(cable.device);
    const tests::WatchedCalls watch(failing("nothing"));
    expect_open_fails(EBUSY);
    EXPECT_THAT(watch.names(), testing::Not(testing::Contains("tcsetattr")));
}

} // namespace
} // namespace zol::link
