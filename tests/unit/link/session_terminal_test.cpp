// What a port does to the settings of a terminal, and which terminals it leaves alone.
#include "app/helper_texts.h"
#include "tests/support/system_calls.h"
#include "tests/unit/link/serial_cable.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>

namespace zol::link {
namespace {

using testing::HasSubstr;

// A process with a session of its own, whose controlling terminal is the cable's device: a terminal
// window.
class Session {
  public:
    explicit Session(const Cable& cable) {
        int news[2];
        EXPECT_EQ(::pipe2(news, O_CLOEXEC), 0);
        process_ = ::fork();
        if (process_ == 0) {
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
    static termios settings_of(const Cable& cable) {
        termios line{};
        const int near_end = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
        EXPECT_EQ(::tcgetattr(near_end, &line), 0);
        ::close(near_end);
        return line;
    }
    static void expect_same(const termios& now, const termios& before) {
        EXPECT_EQ(now.c_iflag, before.c_iflag);
        EXPECT_EQ(now.c_oflag, before.c_oflag);
        // An adapter powered by the modem lines must keep them while the port is closed.
        EXPECT_EQ(now.c_cflag & ~HUPCL, before.c_cflag & ~HUPCL);
        EXPECT_EQ(now.c_lflag, before.c_lflag);
        EXPECT_TRUE(std::equal(std::begin(now.c_cc), std::end(now.c_cc), std::begin(before.c_cc)));
    }
    static void expect_no_bytes(const Cable& cable) {
        int bytes = -1;
        EXPECT_EQ(::ioctl(cable.far_end, FIONREAD, &bytes), 0);
        EXPECT_EQ(bytes, 0);
    }
};

TEST_F(TerminalSettings, TheTerminalOfASessionIsRefused) {
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
    expect_no_bytes(cable);
    expect_same(settings_of(cable), before);
}

// Whoever waits at a pipe would take the opening for a visit.
TEST_F(TerminalSettings, APipeIsNotEvenOpened) {
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    lead_com1_to(pipe);
    EXPECT_THAT(open_com1().value_or(""), HasSubstr(std::strerror(ENOTTY)));
    pollfd watched{reader, POLLIN, 0};
    EXPECT_EQ(::poll(&watched, 1, 0), 0) << "a writer was there";
    ::close(reader);
}

TEST_F(TerminalSettings, ATerminalBehindAStaleLinkIsLeftAlone) {
    Cable unit;
    lead_com1_to(unit.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    unit.pull();
    EXPECT_FALSE(port.write(Bytes{80}));
    Cable window;
    const Session session(window);
    const termios before = settings_of(window);
    const int shell = ::open(window.device.c_str(), O_RDWR | O_NOCTTY);
    EXPECT_EQ(::write(shell, "prompt", 6), 6);
    lead_com1_to(window.device);
    for (int telegrams = 0; telegrams < 3; ++telegrams)
        EXPECT_FALSE(port.write(Bytes{80, 67, 0, 5, 3}));
    EXPECT_EQ(window.receive(6), Bytes({'p', 'r', 'o', 'm', 'p', 't'}));
    expect_no_bytes(window);
    expect_same(settings_of(window), before);
    ::close(shell);
}

TEST_F(TerminalSettings, ATerminalWhoseSessionEndedIsAPort) {
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
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
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
    lead_com1_to(first.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    first.pull();
    EXPECT_FALSE(port.write(Bytes{80}));
    Cable second;
    const int near_end = ::open(second.device.c_str(), O_RDWR | O_NOCTTY);
    termios before = settings_of(second);
    before.c_iflag |= IXANY;
    ASSERT_EQ(::tcsetattr(near_end, TCSANOW, &before), 0);
    lead_com1_to(second.device);
    EXPECT_TRUE(port.write(Bytes{80}));
    port.close();
    expect_same(settings_of(second), before);
    ::close(near_end);
}

TEST_F(TerminalSettings, ComeBackWhenTheLineCannotBeSet) {
    Cable cable;
    lead_com1_to(cable.device);
    int settings_made = 0;
    const tests::WatchedCalls watch([&](int, std::string_view name) {
        const bool first = name == "tcsetattr" && ++settings_made == 1;
        return tests::Fate{.error = first ? EIO : 0, .halved = false};
    });
    EXPECT_NE(open_com1(), std::nullopt);
    EXPECT_EQ(settings_made, 2);
    EXPECT_EQ(watch.names().back(), "close");
}

TEST_F(TerminalSettings, ThatCannotComeBackDoNotHoldTheClosing) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    {
        const tests::WatchedCalls watch([](int, std::string_view name) {
            return tests::Fate{.error = name == "tcsetattr" ? EIO : 0, .halved = false};
        });
        port.close();
        EXPECT_EQ(watch.names().back(), "close");
    }
    EXPECT_FALSE(port.is_open());
    const int other = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
    EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    ::close(other);
}

// A device of which one of these is not known is let go as it is.
TEST_F(TerminalSettings, OfADeviceThatFailsAreLeftAlone) {
    Cable cable;
    lead_com1_to(cable.device);
    for (const std::string_view call : {"fstat", "tcgetattr"}) {
        const tests::WatchedCalls watch([&](int, std::string_view name) {
            return tests::Fate{.error = name == call ? EIO : 0, .halved = false};
        });
        EXPECT_NE(open_com1(), std::nullopt) << call;
        EXPECT_FALSE(port.is_open());
        EXPECT_THAT(watch.names(), testing::Not(testing::Contains("tcsetattr"))) << call;
        EXPECT_EQ(watch.names().back(), "close");
    }
}

// Another program's lock is on it, so another program's settings are too.
TEST_F(TerminalSettings, OfABusyDeviceAreLeftAlone) {
    Cable cable;
    const int other = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    lead_com1_to(cable.device);
    const tests::WatchedCalls watch([](int, std::string_view) { return tests::Fate{}; });
    EXPECT_THAT(open_com1().value_or(""), HasSubstr(std::strerror(EBUSY)));
    EXPECT_THAT(watch.names(), testing::Not(testing::Contains("tcsetattr")));
    ::close(other);
}

} // namespace
} // namespace zol::link
