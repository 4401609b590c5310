// The serial port of the machine, over a pseudo-terminal.
#include "link/port_devices.h"
#include "tests/support/system_calls.h"
#include "tests/unit/link/serial_cable.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace zol::link {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(SerialCable, EveryByteValuePassesBothWaysAsItIs) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    Bytes all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<std::uint8_t>(byte));
    EXPECT_TRUE(port.write(all));
    EXPECT_EQ(cable.receive(256), all);
    cable.send(all);
    EXPECT_EQ(read(256), all);
}

TEST_F(SerialCable, AnEmptyLineGivesNoBytesAndNoFault) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    EXPECT_EQ(port.read_all(), Bytes{});
}

TEST_F(SerialCable, WhatArrivesBetweenTwoReadsWaitsForTheSecond) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    cable.send({80, 67, 0});
    EXPECT_THAT(read(3), ElementsAre(80, 67, 0));
    cable.send({6});
    cable.send({0, 7});
    EXPECT_THAT(read(3), ElementsAre(6, 0, 7));
}

TEST_F(SerialCable, TheLineIsRaw9600WithoutFlowControlWhateverWasSetBefore) {
    Cable cable;
    const int other = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
    termios line{};
    ::tcgetattr(other, &line);
    line.c_iflag |= IXON | IXOFF | IXANY | ICRNL | ISTRIP;
    line.c_lflag |= ECHO | ICANON;
    line.c_cflag |= CSTOPB;
    line.c_cc[VMIN] = 7;
    line.c_cc[VTIME] = 7;
    ::tcsetattr(other, TCSANOW, &line);

    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    ::tcgetattr(other, &line);
    EXPECT_EQ(line.c_iflag, 0U);
    EXPECT_EQ(line.c_lflag & (ECHO | ICANON | ISIG | IEXTEN), 0U);
    EXPECT_EQ(line.c_oflag & OPOST, 0U);
    EXPECT_EQ(line.c_cflag & (CSTOPB | CRTSCTS | CSIZE), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(line.c_cc[VMIN] + line.c_cc[VTIME], 0);
    EXPECT_EQ(::cfgetispeed(&line), static_cast<speed_t>(B9600));
    EXPECT_EQ(::cfgetospeed(&line), static_cast<speed_t>(B9600));
    ::close(other);
}

TEST_F(SerialCable, APortThatAnotherProgramHoldsIsBusy) {
    Cable cable;
    const int other = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    lead_com1_to(cable.device);
    const auto error = open_com1();
    ASSERT_TRUE(error);
    EXPECT_THAT(*error, HasSubstr("COM1"));
    EXPECT_THAT(*error, HasSubstr("ports/com1"));
    EXPECT_THAT(*error, HasSubstr(std::strerror(EBUSY)));
    EXPECT_FALSE(port.is_open());
    ::close(other);
    EXPECT_EQ(open_com1(), std::nullopt);
}

TEST_F(SerialCable, AClosedPortIsFreeForOthersAndCanBeOpenedAgain) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    port.close();
    EXPECT_FALSE(port.is_open());
    port.close(); // a closed port stays closed
    const int other = ::open(cable.device.c_str(), O_RDWR | O_NOCTTY);
    EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    ::close(other);
    EXPECT_EQ(open_com1(), std::nullopt);
}

TEST_F(SerialCable, AnOpenPortIsNotOpenedTwiceAndStaysWithItsDevice) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    port.set_number(2);
    EXPECT_THAT(port.open().value_or(""), HasSubstr(std::strerror(EBUSY)));
    EXPECT_TRUE(port.is_open());
    EXPECT_TRUE(port.write(Bytes{80}));
    EXPECT_THAT(cable.receive(1), ElementsAre(80));
    // Nor does it look for another one when its own is pulled and comes back.
    cable.pull();
    EXPECT_FALSE(port.write(Bytes{80}));
    Cable back;
    lead_com1_to(back.device);
    EXPECT_TRUE(port.write(Bytes{67}));
    EXPECT_THAT(back.receive(1), ElementsAre(67));
}

TEST_F(SerialCable, APortThatIsNotThereSaysSoInTheSystemsWords) {
    lead_com1_to("/dev/no-such-adapter");
    const auto error = open_com1();
    ASSERT_TRUE(error);
    EXPECT_EQ(*error, "COM1 (" + (folder / "ports/com1").string() + "): " + std::strerror(ENOENT));
    EXPECT_FALSE(port.is_open());
    EXPECT_FALSE(port.write(Bytes{80}));
    EXPECT_EQ(port.read_all(), std::nullopt);
}

TEST_F(SerialCable, APortThatTheUserMayNotOpenSaysSo) {
    Cable cable;
    ::chmod(cable.device.c_str(), 0);
    lead_com1_to(cable.device);
    // Nothing is forbidden to the superuser: the test becomes somebody else for a moment.
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

TEST_F(SerialCable, AFileIsNoPort) {
    const auto file = folder / "no_port";
    ::close(::open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600));
    lead_com1_to(file);
    EXPECT_THAT(open_com1().value_or(""), HasSubstr(std::strerror(ENOTTY)));
    EXPECT_FALSE(port.is_open());
}

TEST_F(SerialCable, ANumberWithoutAPortFailsWithItsName) {
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

TEST_F(SerialCable, APulledAdapterMakesWritesAndReadsFailAndNothingElse) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    cable.pull();
    EXPECT_FALSE(port.write(Bytes{80, 67, 0, 5, 3}));
    EXPECT_FALSE(port.write(Bytes{80, 67, 0, 5, 3}));
    EXPECT_EQ(port.read_all(), std::nullopt);
    // The tool's rule is that the port stays open until it is closed.
    EXPECT_TRUE(port.is_open());
    port.close();
    EXPECT_FALSE(port.is_open());
}

TEST_F(SerialCable, AnAdapterThatComesBackIsFoundByTheNextWrite) {
    Cable first;
    lead_com1_to(first.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    first.pull();
    EXPECT_FALSE(port.write(Bytes{3}));
    Cable second;
    lead_com1_to(second.device);
    EXPECT_TRUE(port.write(Bytes{80, 67, 0, 5, 3}));
    EXPECT_THAT(second.receive(5), ElementsAre(80, 67, 0, 5, 3));
    second.send({1, 0, 2});
    EXPECT_THAT(read(3), ElementsAre(1, 0, 2));
}

TEST_F(SerialCable, ALineThatTakesNothingFailsInsteadOfHolding) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    const Bytes block(4096, 0);
    bool taken = true;
    for (int i = 0; i < 1000 && taken; ++i)
        taken = port.write(block); // nobody reads at the far end
    EXPECT_FALSE(taken);
    EXPECT_TRUE(port.is_open());
    EXPECT_NE(port.read_all(), std::nullopt); // slow is not gone: the device is kept
}

TEST(PortNumbers, WithoutALinkEachNumberHasItsUsualDevice) {
    app::use_application_folder("/no/such/folder");
    const char* devices[] = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyACM0", "/dev/ttyACM1",
                             "/dev/ttyS0",   "/dev/ttyS1",   "/dev/ttyS2",   "/dev/ttyS3"};
    for (int number = 1; number <= 8; ++number)
        EXPECT_EQ(device_of_port(number), devices[number - 1]);
    EXPECT_THAT(device_of_port(0).string(), IsEmpty());
    EXPECT_THAT(device_of_port(9).string(), IsEmpty());
    EXPECT_THAT(port_tip(4), StartsWith("COM4: /dev/ttyACM1 ("));
}

TEST_F(SerialCable, ALinkInThePortsFolderGoesBeforeTheUsualDeviceEvenIfItLeadsNowhere) {
    lead_com1_to("/dev/no-such-adapter");
    EXPECT_EQ(device_of_port(1), folder / "ports/com1");
    EXPECT_EQ(device_of_port(2), "/dev/ttyUSB1");
    EXPECT_EQ(port_tip(1),
              "COM1: " + (folder / "ports/com1").string() + " -> /dev/no-such-adapter (not there)");
}

TEST_F(SerialCable, AnAdapterThatRefusesTheLineSettingsFailsWithTheSystemsReasonAndIsLetGo) {
    Cable cable;
    lead_com1_to(cable.device);
    {
        const tests::WatchedCalls watch([](int, std::string_view name) {
            return tests::Fate{.error = name == "tcsetattr" ? EIO : 0, .halved = false};
        });
        EXPECT_THAT(open_com1().value_or(""), HasSubstr(std::strerror(EIO)));
        EXPECT_FALSE(port.is_open());
        EXPECT_EQ(watch.names().back(), "close");
    }
    EXPECT_EQ(open_com1(), std::nullopt);
}

TEST_F(SerialCable, AReadThatFailsIsAFaultAndOneThatFindsNothingIsNot) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    for (const int error : {EIO, EAGAIN}) {
        const tests::WatchedCalls watch(
            [error](int, std::string_view) { return tests::Fate{.error = error}; });
        EXPECT_EQ(port.read_all().has_value(), error == EAGAIN);
    }
}

TEST_F(SerialCable, ACallThatASignalInterruptsIsMadeAgainAndAPartGoesOn) {
    Cable cable;
    lead_com1_to(cable.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    const Bytes frame = {80, 67, 0, 9, 2, 0, 3, 4, 226};
    bool interrupted = false;
    {
        const tests::WatchedCalls watch([&](int, std::string_view) {
            interrupted = !interrupted;
            return tests::Fate{.error = interrupted ? EINTR : 0, .halved = true};
        });
        EXPECT_TRUE(port.write(frame));
        EXPECT_THAT(watch.names(), testing::SizeIs(testing::Ge(6u)));
    }
    EXPECT_EQ(cable.receive(frame.size()), frame);
    cable.send(frame);
    ::usleep(20'000);
    interrupted = false;
    const tests::WatchedCalls watch([&](int, std::string_view) {
        interrupted = !interrupted;
        return tests::Fate{.error = interrupted ? EINTR : 0, .halved = true};
    });
    EXPECT_EQ(port.read_all(), frame);
}

} // namespace
} // namespace zol::link
