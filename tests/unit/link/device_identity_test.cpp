// What tells one device from another.
#include "link/device_identity.h"

#include "tests/unit/link/machine.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace zol::link {
namespace {

class DeviceIdentity : public testing::Test {
  protected:
    ~DeviceIdentity() override { std::filesystem::remove_all(machine.root); }

    std::string identity(dev_t device, const UsbAdapter& adapter) {
        machine.describe(device, adapter);
        return device_identity(device);
    }

    Machine machine{std::filesystem::temp_directory_path() /
                    ("zol_identity_" + std::to_string(::getpid()))};
    const dev_t usb0 = makedev(188, 0), usb1 = makedev(188, 1);
};

TEST_F(DeviceIdentity, OfAUsbAdapterDoesNotDependOnItsNumber) {
    EXPECT_EQ(identity(usb0, {.serial = "A1"}), identity(usb1, {.serial = "A1"}));
}

TEST_F(DeviceIdentity, OfTwoUsbAdaptersDiffersInOnePart) {
    const std::string one = identity(usb0, {.serial = "A1"});
    EXPECT_NE(one, identity(usb1, {.serial = "A2"}));
    EXPECT_NE(one, identity(usb1, {.serial = ""}));
    EXPECT_NE(one, identity(usb1, {.vendor = "1a86", .serial = "A1"}));
    EXPECT_NE(one, identity(usb1, {.product = "6015", .serial = "A1"}));
}

TEST_F(DeviceIdentity, WithoutASerialNumberIsTheModel) {
    EXPECT_EQ(identity(usb0, {}), identity(usb1, {}));
    EXPECT_NE(identity(usb0, {}), identity(usb1, {.product = "7523"}));
}

TEST_F(DeviceIdentity, OfThePortsOfOneAdapterDiffers) {
    const std::string one = identity(usb0, {.serial = "A1"});
    EXPECT_NE(one, identity(usb1, {.serial = "A1", .interface_number = "01"}));
    EXPECT_NE(one, identity(usb1, {.serial = "A1", .port_number = "1"}));
}

TEST_F(DeviceIdentity, OfABuiltInPortIsItsNumber) {
    EXPECT_EQ(device_identity(makedev(4, 64)), "4:64");
    const auto platform = machine.root / "sys/devices/platform/serial8250/tty/ttyS1";
    std::filesystem::create_directories(platform);
    replace_link(machine.root / "sys/dev/char/4:65", platform);
    EXPECT_EQ(device_identity(makedev(4, 65)), "4:65");
}

TEST_F(DeviceIdentity, OfAllPseudoTerminalsIsTheSame) {
    EXPECT_EQ(device_identity(makedev(136, 0)), device_identity(makedev(143, 7)));
    EXPECT_EQ(device_identity(makedev(135, 0)), "135:0");
    EXPECT_EQ(device_identity(makedev(144, 0)), "144:0");
}

struct ProcessLine {
    const char* line;
    dev_t terminal;
};

class ProcessTable : public DeviceIdentity, public testing::WithParamInterface<ProcessLine> {};

TEST_P(ProcessTable, NamesTheTerminalOfASession) {
    write_text(machine.root / "proc/self/stat", "1 (init) S 0 1 1 0 -1");
    write_text(machine.root / "proc/1/stat", "1 (init) S 0 1 1 0 -1");
    write_text(machine.root / "proc/77/stat", GetParam().line);
    EXPECT_TRUE(is_terminal_of_a_session(GetParam().terminal));
    EXPECT_FALSE(is_terminal_of_a_session(GetParam().terminal + 1));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ProcessTable,
    testing::Values(ProcessLine{"77 (sh) S 1 77 77 34816 77 4194304", makedev(136, 0)},
                    ProcessLine{"77 (sh) S 1 77 77 34821 77 4194304", makedev(136, 5)},
                    ProcessLine{"77 (agetty) S 1 77 77 1088 77", makedev(4, 64)},
                    // Minor numbers have 20 bits, in two pieces.
                    ProcessLine{"77 (sh) S 1 77 77 1083436 77", makedev(136, 300)},
                    ProcessLine{"77 (sh) S 1 77 77 -1794 77", makedev(0xff8, 0xffffe)},
                    // A program may have any name.
                    ProcessLine{"77 (a b) c) S 1 77 77 34821 77", makedev(136, 5)},
                    ProcessLine{"77 (x\n) R 1 1 1 34818) S 1 77 77 34821 77", makedev(136, 5)}));

TEST_F(DeviceIdentity, AProcessWithoutATerminalHasNoDevice) {
    write_text(machine.root / "proc/77/stat", "77 (sh) S 1 77 77 0 -1");
    EXPECT_FALSE(is_terminal_of_a_session(makedev(136, 0)));
}

TEST_F(DeviceIdentity, OwnTerminalBelongsToASession) {
    for (const dev_t name : {makedev(5, 0), makedev(5, 1), makedev(5, 2), makedev(4, 0)})
        EXPECT_TRUE(is_terminal_of_a_session(name)) << major(name) << ":" << minor(name);
    EXPECT_FALSE(is_terminal_of_a_session(makedev(4, 64))) << "/dev/ttyS0";
}

TEST_F(DeviceIdentity, AnUnreadableProcessTableNamesNoTerminal) {
    EXPECT_FALSE(is_terminal_of_a_session(makedev(136, 0)));
    for (const char* line : {"", "77", "77 (sh)", "77 (sh) S 1 77", "77 (sh) S 1 77 77 x"}) {
        write_text(machine.root / "proc/77/stat", line);
        EXPECT_FALSE(is_terminal_of_a_session(makedev(136, 0))) << line;
    }
}

} // namespace
} // namespace zol::link
