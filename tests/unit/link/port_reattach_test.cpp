// Which device a port takes back after its own was pulled, and which it leaves alone.
#include "link/port_devices.h"
#include "tests/unit/link/machine.h"
#include "tests/unit/link/serial_cable.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <thread>

namespace zol::link {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const Bytes poll_frame = {80, 67, 0, 5, 3};

class Reattach : public SerialCable {
  protected:
    // The cable's device is this adapter's.
    void plug_in(const Cable& cable, const UsbAdapter& adapter) {
        machine.describe(device_number(cable.device), adapter);
    }
    void lead_usual_device_to(const Cable& cable) {
        replace_link(machine.root / "dev/ttyUSB0", cable.device);
    }
    void open_and_pull(Cable& cable) {
        ASSERT_EQ(open_com1(), std::nullopt);
        cable.pull();
        EXPECT_FALSE(port.write(poll_frame));
    }
    // Neither a byte nor a setting, whether the port is written to or opened again with no choice.
    void expect_left_alone(const Cable& other) {
        EXPECT_FALSE(port.write(poll_frame));
        EXPECT_EQ(port.read_all(), std::nullopt);
        EXPECT_TRUE(port.is_open());
        port.close();
        EXPECT_NE(port.open(), std::nullopt);
        EXPECT_FALSE(port.is_open());
        EXPECT_FALSE(port.write(poll_frame));
        int bytes = -1;
        EXPECT_EQ(::ioctl(other.far_end, FIONREAD, &bytes), 0);
        EXPECT_EQ(bytes, 0);
        const int near_end = ::open(other.device.c_str(), O_RDWR | O_NOCTTY);
        termios line{};
        EXPECT_EQ(::tcgetattr(near_end, &line), 0);
        EXPECT_NE(line.c_lflag & ECHO, 0u);
        ::close(near_end);
    }
    void expect_taken(const Cable& cable) {
        EXPECT_TRUE(port.write(poll_frame));
        EXPECT_EQ(cable.receive(poll_frame.size()), poll_frame);
    }
    void expect_reopened(const Cable& cable) {
        EXPECT_EQ(port.open(), std::nullopt);
        expect_taken(cable);
    }

    Machine machine{folder / "machine"};
};

TEST_F(Reattach, AnAdapterUnderAnotherNumberIsTaken) {
    Cable first;
    Cable holds_the_number; // so that the next one has another
    Cable second;
    plug_in(first, {.serial = "A1"});
    plug_in(second, {.serial = "A1"});
    const auto by_id = machine.root / "dev/serial/by-id/adapter";
    replace_link(by_id, first.device);
    lead_com1_to(by_id);
    open_and_pull(first);
    replace_link(by_id, second.device);
    expect_taken(second);
}

// The kernel gives the old name to nobody while the port still holds the device that was pulled.
TEST_F(Reattach, AnAdapterUnderAnotherUsualNameIsTaken) {
    Cable first, second;
    plug_in(first, {.serial = "A1"});
    plug_in(second, {.serial = "A1"});
    lead_usual_device_to(first);
    open_and_pull(first);
    std::filesystem::remove(machine.root / "dev/ttyUSB0");
    replace_link(machine.root / "dev/ttyUSB1", second.device);
    expect_taken(second);
}

// As after a kill of the simulated unit, which leaves its link.
TEST_F(Reattach, AReusedNumberBehindAnOldLinkIsLeftAlone) {
    Cable first;
    const auto device = first.device;
    lead_com1_to(device);
    // The kernel's clock for file times advances every few milliseconds.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    open_and_pull(first);
    Cable second;
    ASSERT_EQ(second.device, device) << "the kernel gives the lowest free number";
    expect_left_alone(second);
    lead_com1_to(second.device);
    expect_reopened(second);
}

TEST_F(Reattach, AModelWithoutSerialNumberIsNotSearchedFor) {
    Cable first, second;
    plug_in(first, {});
    plug_in(second, {});
    lead_usual_device_to(first);
    open_and_pull(first);
    std::filesystem::remove(machine.root / "dev/ttyUSB0");
    replace_link(machine.root / "dev/ttyUSB1", second.device);
    expect_left_alone(second);
}

TEST_F(Reattach, AnotherSerialNumberIsLeftAlone) {
    Cable own, other;
    plug_in(own, {.serial = "A1"});
    plug_in(other, {.serial = "B2"});
    lead_com1_to(own.device);
    open_and_pull(own);
    lead_com1_to(other.device);
    expect_left_alone(other);
}

TEST_F(Reattach, AnotherAdapterIsTakenByAChoice) {
    Cable own, other;
    plug_in(own, {.serial = "A1"});
    plug_in(other, {.serial = "B2"});
    lead_com1_to(own.device);
    open_and_pull(own);
    lead_com1_to(other.device);
    port.close();
    EXPECT_EQ(open_com1(), std::nullopt);
    expect_taken(other);
    port.close();
    expect_reopened(other);
}

TEST_F(Reattach, OwnAdapterIsTakenAfterAnotherWasRefused) {
    Cable own, other, back;
    plug_in(own, {.serial = "A1"});
    plug_in(other, {.serial = "B2"});
    plug_in(back, {.serial = "A1"});
    lead_com1_to(own.device);
    open_and_pull(own);
    lead_com1_to(other.device);
    EXPECT_FALSE(port.write(poll_frame));
    lead_com1_to(back.device);
    expect_taken(back);
}

TEST_F(Reattach, AFailedChoiceForgetsNothing) {
    Cable own, other, back;
    plug_in(own, {.serial = "A1"});
    plug_in(other, {.serial = "B2"});
    plug_in(back, {.serial = "A1"});
    lead_com1_to(own.device);
    open_and_pull(own);
    port.close();
    lead_com1_to("/dev/no-such-adapter");
    EXPECT_NE(open_com1(), std::nullopt);
    lead_com1_to(other.device);
    EXPECT_NE(port.open(), std::nullopt);
    lead_com1_to(back.device);
    expect_reopened(back);
}

TEST_F(Reattach, AChoiceOfAnOpenPortIsNone) {
    Cable own, other;
    plug_in(own, {.serial = "A1"});
    plug_in(other, {.serial = "B2"});
    lead_com1_to(own.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    port.set_number(1);
    own.pull();
    EXPECT_FALSE(port.write(poll_frame));
    lead_com1_to(other.device);
    expect_left_alone(other);
}

TEST_F(Reattach, AnAdapterInPlaceOfAUnitIsLeftAlone) {
    Cable unit, car;
    plug_in(car, {.serial = "A1"});
    lead_com1_to(unit.device);
    open_and_pull(unit);
    lead_com1_to(car.device);
    expect_left_alone(car);
}

TEST_F(Reattach, AUnitInPlaceOfAnAdapterIsLeftAlone) {
    Cable adapter, unit;
    plug_in(adapter, {.serial = "A1"});
    lead_com1_to(adapter.device);
    open_and_pull(adapter);
    lead_com1_to(unit.device);
    expect_left_alone(unit);
}

TEST_F(Reattach, ALinkThatGoesIsNotReplacedByAnAdapter) {
    Cable unit, car;
    plug_in(car, {.serial = "A1"});
    lead_usual_device_to(car);
    lead_com1_to(unit.device);
    open_and_pull(unit);
    std::filesystem::remove(folder / "ports/com1");
    expect_left_alone(car);
}

// A practice unit may have the usual name as well.
TEST_F(Reattach, ALinkThatGoesIsNotReplacedByAUnit) {
    Cable unit, other;
    lead_usual_device_to(other);
    lead_com1_to(unit.device);
    open_and_pull(unit);
    std::filesystem::remove(folder / "ports/com1");
    expect_left_alone(other);
}

TEST_F(Reattach, AChoiceStaysWithTheLinkThatIsGone) {
    Cable unit, car;
    lead_usual_device_to(car);
    lead_com1_to(unit.device);
    open_and_pull(unit);
    std::filesystem::remove(folder / "ports/com1");
    port.close();
    const auto link = (folder / "ports/com1").string();
    EXPECT_EQ(open_com1(), "COM1 (" + link + "): " + std::strerror(ENOENT));
    EXPECT_EQ(port_tip(1), "COM1: " + link + " (not there)");
    int bytes = -1;
    EXPECT_EQ(::ioctl(car.far_end, FIONREAD, &bytes), 0);
    EXPECT_EQ(bytes, 0);
    Cable back;
    lead_com1_to(back.device);
    EXPECT_EQ(open_com1(), std::nullopt);
    expect_taken(back);
}

TEST_F(Reattach, AnotherAdapterAtTheUsualDeviceIsLeftAlone) {
    Cable own, other;
    plug_in(own, {.serial = "A1"});
    plug_in(other, {.serial = "B2"});
    lead_usual_device_to(own);
    open_and_pull(own);
    lead_usual_device_to(other);
    expect_left_alone(other);
}

TEST_F(Reattach, ALinkMadeLaterWaitsForAChoice) {
    Cable own, back, unit;
    plug_in(own, {.serial = "A1"});
    plug_in(back, {.serial = "A1"});
    lead_usual_device_to(own);
    open_and_pull(own);
    lead_com1_to(unit.device);
    EXPECT_FALSE(port.write(poll_frame));
    lead_usual_device_to(back);
    expect_taken(back);
    port.close();
    EXPECT_EQ(open_com1(), std::nullopt);
    expect_taken(unit);
}

TEST_F(Reattach, EachPortNumberKeepsItsOwnDevice) {
    Cable first, second;
    plug_in(first, {.serial = "A1"});
    plug_in(second, {.serial = "B2"});
    lead_com1_to(first.device);
    replace_link(folder / "ports/com2", second.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    port.close();
    port.set_number(2);
    expect_reopened(second);
    port.close();
    port.set_number(1);
    expect_reopened(first);
    port.close();
    lead_com1_to(second.device);
    EXPECT_THAT(port.open().value_or(""), HasSubstr(std::strerror(ENODEV)));
}

// Nothing was found yet that could be taken for another.
TEST_F(Reattach, ANumberThatNeverOpenedTakesItsDevice) {
    lead_com1_to("/dev/no-such-adapter");
    EXPECT_NE(open_com1(), std::nullopt);
    Cable cable;
    lead_com1_to(cable.device);
    expect_reopened(cable);
}

} // namespace
} // namespace zol::link
