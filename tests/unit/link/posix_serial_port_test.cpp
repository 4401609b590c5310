// The serial port of the computer, over a pseudo-terminal.
#include "link/port_devices.h"
#include "tests/support/system_calls.h"
#include "tests/unit/link/serial_cable.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace zol::link {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(ConnectedCable, EveryByteValuePassesBothWays) {
    Bytes all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<std::uint8_t>(byte));
    EXPECT_TRUE(port.write(all));
    EXPECT_EQ(cable.receive(256), all);
    cable.send(all);
    EXPECT_EQ(read(256), all);
}

TEST_F(ConnectedCable, EmptyLineGivesNoBytes) { EXPECT_EQ(port.read_all(), Bytes{}); }

TEST_F(ConnectedCable, BytesBetweenTwoReadsWaitForTheSecond) {
    cable.send({80, 67, 0});
    EXPECT_THAT(read(3), ElementsAre(80, 67, 0));
    cable.send({6});
    cable.send({0, 7});
    EXPECT_THAT(read(3), ElementsAre(6, 0, 7));
}

TEST_F(SerialCable, LineIsSetToRaw9600WithoutFlowControl) {
    Cable cable;
    const OpenDevice other(cable);
    termios line = other.settings();
    line.c_iflag |= IXON | IXOFF | IXANY | ICRNL | ISTRIP;
    line.c_lflag |= ECHO | ICANON;
    line.c_cflag |= CSTOPB;
    line.c_cc[VMIN] = 7;
    line.c_cc[VTIME] = 7;
    other.set(line);

    connect(cable);
    line = other.settings();
    EXPECT_EQ(line.c_iflag, 0U);
    EXPECT_EQ(line.c_lflag & (ECHO | ICANON | ISIG | IEXTEN), 0U);
    EXPECT_EQ(line.c_oflag & OPOST, 0U);
    EXPECT_EQ(line.c_cflag & (CSTOPB | CRTSCTS | CSIZE), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(line.c_cc[VMIN] + line.c_cc[VTIME], 0);
    EXPECT_EQ(::cfgetispeed(&line), static_cast<speed_t>(B9600));
    EXPECT_EQ(::cfgetospeed(&line), static_cast<speed_t>(B9600));
}

TEST_F(SerialCable, PortThatAnotherProgramHoldsIsBusy) {
    Cable cable;
    lead_com1_to(cable.device);
    {
        const OpenDevice other(cable);
        ASSERT_TRUE(other.lock());
        EXPECT_THAT(open_com1().value_or(""), AllOf(HasSubstr("COM1"), HasSubstr("ports/com1"),
                                                    HasSubstr(std::strerror(EBUSY))));
        EXPECT_FALSE(port.is_open());
    }
    EXPECT_EQ(open_com1(), std::nullopt);
}

TEST_F(ConnectedCable, ClosedPortIsFreeForOthers) {
    port.close();
    EXPECT_FALSE(port.is_open());
    port.close(); // a closed port stays closed
    EXPECT_TRUE(OpenDevice(cable).lock());
    EXPECT_EQ(open_com1(), std::nullopt);
}

TEST_F(ConnectedCable, OpenPortStaysWithItsDevice) {
    port.set_number(2);
    EXPECT_THAT(port.open().value_or(""), HasSubstr(std::strerror(EBUSY)));
    EXPECT_TRUE(port.is_open());
    EXPECT_TRUE(port.write(Bytes{80}));
    EXPECT_THAT(cable.receive(1), ElementsAre(80));
    // It does not look for port 2 when its own is pulled and comes back.
    cable.pull();
    EXPECT_FALSE(port.write(Bytes{80}));
    Cable back;
    lead_com1_to(back.device);
    EXPECT_TRUE(port.write(Bytes{67}));
    EXPECT_THAT(back.receive(1), ElementsAre(67));
}

TEST_F(SerialCable, MissingDeviceFailsWithTheSystemsText) {
    lead_com1_to("/dev/no-such-adapter");
    EXPECT_EQ(open_com1(),
              "COM1 (" + (folder / "ports/com1").string() + "): " + std::strerror(ENOENT));
    EXPECT_FALSE(port.is_open());
    EXPECT_FALSE(port.write(Bytes{80}));
    EXPECT_EQ(port.read_all(), std::nullopt);
}

TEST_F(SerialCable, ForbiddenDeviceFailsWithTheSystemsText) {
    Cable cable;
    ::chmod(cable.device.c_str(), 0);
    lead_com1_to(cable.device);
    // The superuser may open everything, so the test gives these rights up for a moment.
    const uid_t user = ::geteuid();
    if (user == 0) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    const auto error = open_com1();
    if (user == 0) {
        ASSERT_EQ(::seteuid(user), 0);
    }
    EXPECT_THAT(error.value_or(""), HasSubstr(std::strerror(EACCES)));
    EXPECT_FALSE(port.is_open());
}

TEST_F(SerialCable, FileIsNoPort) {
    const auto file = folder / "no_port";
    ::close(::open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600));
    lead_com1_to(file);
    expect_open_fails(ENOTTY);
}

TEST_F(SerialCable, NumberWithoutAPortFailsWithItsName) {
    for (const int number : {0, 9, -1}) {
        port.set_number(number);
        port.set_line_settings("9600,n,8,1");
        EXPECT_THAT(port.open().value_or(""), HasSubstr("COM" + std::to_string(number)));
        EXPECT_FALSE(port.is_open());
    }
}

TEST_F(SerialCable, OtherLineSettingsAreRefused) {
    Cable cable;
    lead_com1_to(cable.device);
    port.set_number(1);
    port.set_line_settings("19200,e,7,2");
    EXPECT_THAT(port.open().value_or(""), HasSubstr(std::strerror(EINVAL)));
    EXPECT_FALSE(port.is_open());
}

TEST_F(ConnectedCable, PulledAdapterLeavesThePortOpen) {
    cable.pull();
    EXPECT_FALSE(port.write(poll_frame));
    EXPECT_FALSE(port.write(poll_frame));
    EXPECT_EQ(port.read_all(), std::nullopt);
    EXPECT_TRUE(port.is_open());
    port.close();
    EXPECT_FALSE(port.is_open());
}

TEST_F(SerialCable, NextWriteFindsTheAdapterThatCameBack) {
    Cable first;
    connect(first);
    first.pull();
    EXPECT_FALSE(port.write(Bytes{3}));
    Cable second;
    lead_com1_to(second.device);
    EXPECT_TRUE(port.write(poll_frame));
    EXPECT_EQ(second.receive(5), poll_frame);
    second.send({1, 0, 2});
    EXPECT_THAT(read(3), ElementsAre(1, 0, 2));
}

TEST_F(ConnectedCable, LineThatTakesNothingFailsInsteadOfBlocking) {
    const Bytes block(4096, 0);
    bool taken = true;
    for (int i = 0; i < 1000 && taken; ++i)
        taken = port.write(block); // the far end reads nothing
    EXPECT_FALSE(taken);
    EXPECT_TRUE(port.is_open());
    EXPECT_NE(port.read_all(), std::nullopt); // a slow device is kept
}

TEST(PortNumbers, WithoutALinkAreTheUsualDevices) {
    app::use_application_folder("/no/such/folder");
    const char* devices[] = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyACM0", "/dev/ttyACM1",
                             "/dev/ttyS0",   "/dev/ttyS1",   "/dev/ttyS2",   "/dev/ttyS3"};
    for (int number = 1; number <= 8; ++number)
        EXPECT_EQ(device_of_port(number), devices[number - 1]);
    EXPECT_THAT(device_of_port(0).string(), IsEmpty());
    EXPECT_THAT(device_of_port(9).string(), IsEmpty());
    EXPECT_THAT(port_tip(4), StartsWith("COM4: /dev/ttyACM1 ("));
}

TEST_F(SerialCable, DanglingLinkReplacesTheUsualDevice) {
    lead_com1_to("/dev/no-such-adapter");
    EXPECT_EQ(device_of_port(1), folder / "ports/com1");
    EXPECT_EQ(device_of_port(2), "/dev/ttyUSB1");
    EXPECT_EQ(port_tip(1),
              "COM1: " + (folder / "ports/com1").string() + " -> /dev/no-such-adapter (not there)");
}

TEST_F(ConnectedCable, OnlyAFailedReadIsAFault) {
    for (const int error : {EIO, EAGAIN}) {
        const tests::WatchedCalls watch(
            [error](int, std::string_view) { return tests::Fate{.error = error}; });
        EXPECT_EQ(port.read_all().has_value(), error == EAGAIN);
    }
}

TEST_F(ConnectedCable, InterruptedCallIsRepeated) {
    const Bytes frame = tests::write_bytes(3, 1250);
    // Each first try is interrupted, and each second one moves a part of its bytes.
    const auto interrupt = [](int count, std::string_view) {
        return tests::Fate{.error = count % 2 ? EINTR : 0, .halved = true};
    };
    {
        const tests::WatchedCalls watch(interrupt);
        EXPECT_TRUE(port.write(frame));
        EXPECT_THAT(watch.names(), testing::SizeIs(testing::Ge(6u)));
    }
    EXPECT_EQ(cable.receive(frame.size()), frame);
    cable.send(frame);
    ::usleep(20'000);
    const tests::WatchedCalls watch(interrupt);
    EXPECT_EQ(port.read_all(), frame);
}

} // namespace
} // namespace zol::link
