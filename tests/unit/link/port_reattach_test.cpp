// Which device a port takes back after its own was pulled, and which it leaves alone.
#include "link/port_devices.h"
#include "tests/unit/link/machine.h"
#include "tests/unit/link/serial_cable.h"

#include <cerrno>
#include <chrono>
#include <thread>

namespace zol::link {
namespace {

using testing::HasSubstr;

class Reattach : public SerialCable {
  protected:
    // The cable's device belongs to the adapter with this serial number.
    void plug_in(const Cable& cable, const std::string& serial) {
        machine.describe(device_number(cable.device), {.serial = serial});
    }
    void lead_usual_device_to(const Cable& cable) {
        replace_link(machine.root / "dev/ttyUSB0", cable.device);
    }
    void open_and_pull(Cable& cable) {
        ASSERT_EQ(open_com1(), std::nullopt);
        cable.pull();
        EXPECT_FALSE(port.write(poll_frame));
    }
    // COM1 leads to `own`, which is opened and pulled, and then to the other device.
    void swap_link(Cable& own, const Cable& other) {
        lead_com1_to(own.device);
        open_and_pull(own);
        lead_com1_to(other.device);
    }
    // No byte reaches it and no setting of it changes, whether the port is written to or opened
    // again without a choice.
    void expect_left_alone(const Cable& other) {
        EXPECT_FALSE(port.write(poll_frame));
        EXPECT_EQ(port.read_all(), std::nullopt);
        EXPECT_TRUE(port.is_open());
        port.close();
        EXPECT_NE(port.open(), std::nullopt);
        EXPECT_FALSE(port.is_open());
        EXPECT_FALSE(port.write(poll_frame));
        other.expect_no_bytes();
        EXPECT_NE(OpenDevice(other).settings().c_lflag & ECHO, 0u);
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

TEST_F(Reattach, AdapterUnderAnotherNumberIsTaken) {
    Cable first;
    Cable holds_the_number; // so that the next one has another
    Cable second;
    plug_in(first, "A1");
    plug_in(second, "A1");
    const auto by_id = machine.root / "dev/serial/by-id/adapter";
    replace_link(by_id, first.device);
    lead_com1_to(by_id);
    open_and_pull(first);
    replace_link(by_id, second.device);
    expect_taken(second);
}

// The kernel gives the old name to no device while the port still holds the one that was pulled.
TEST_F(Reattach, OnlyASerialNumberIsSearchedUnderOtherNames) {
    for (const std::string serial : {"A1", ""}) {
        SCOPED_TRACE(serial);
        Cable first, second;
        plug_in(first, serial);
        plug_in(second, serial);
        lead_usual_device_to(first);
        open_and_pull(first);
        std::filesystem::remove(machine.root / "dev/ttyUSB0");
        replace_link(machine.root / "dev/ttyUSB1", second.device);
        serial.empty() ? expect_left_alone(second) : expect_taken(second);
        port.close();
    }
}

// A killed simulated unit leaves such a link.
TEST_F(Reattach, ReusedNumberUnderAnOldLinkIsLeftAlone) {
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

// What COM1 leads to at first, and after that device was pulled. A practice unit has no serial
// number.
struct Swap {
    const char* name;
    std::optional<std::string> own, other;
};

class SwappedLink : public Reattach, public testing::WithParamInterface<Swap> {};

TEST_P(SwappedLink, IsLeftAlone) {
    Cable own, other;
    if (GetParam().own) plug_in(own, *GetParam().own);
    if (GetParam().other) plug_in(other, *GetParam().other);
    swap_link(own, other);
    expect_left_alone(other);
}

INSTANTIATE_TEST_SUITE_P(To, SwappedLink,
                         testing::Values(Swap{"AnotherAdapter", "A1", "B2"},
                                         Swap{"AnAdapterInPlaceOfAUnit", {}, "A1"},
                                         Swap{"AUnitInPlaceOfAnAdapter", "A1", {}}),
                         [](const auto& swap) { return swap.param.name; });

// With another adapter in place of the own one.
class ReattachOther : public Reattach {
  protected:
    ReattachOther() {
        plug_in(own, "A1");
        plug_in(other, "B2");
    }
    Cable own, other;
};

TEST_F(ReattachOther, IsTakenByAChoice) {
    swap_link(own, other);
    port.close();
    EXPECT_EQ(open_com1(), std::nullopt);
    expect_taken(other);
    port.close();
    expect_reopened(other);
}

TEST_F(ReattachOther, RefusedThenOwnAdapterIsTaken) {
    Cable back;
    plug_in(back, "A1");
    swap_link(own, other);
    EXPECT_FALSE(port.write(poll_frame));
    lead_com1_to(back.device);
    expect_taken(back);
}

TEST_F(ReattachOther, FailedChoiceForgetsNothing) {
    Cable back;
    plug_in(back, "A1");
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

TEST_F(ReattachOther, ChoiceOfAnOpenPortIsNone) {
    connect(own);
    port.set_number(1);
    own.pull();
    EXPECT_FALSE(port.write(poll_frame));
    lead_com1_to(other.device);
    expect_left_alone(other);
}

TEST_F(ReattachOther, AtTheUsualDeviceIsLeftAlone) {
    lead_usual_device_to(own);
    open_and_pull(own);
    lead_usual_device_to(other);
    expect_left_alone(other);
}

TEST_F(ReattachOther, EachPortNumberKeepsItsOwnDevice) {
    lead_com1_to(own.device);
    replace_link(folder / "ports/com2", other.device);
    ASSERT_EQ(open_com1(), std::nullopt);
    port.close();
    port.set_number(2);
    expect_reopened(other);
    port.close();
    port.set_number(1);
    expect_reopened(own);
    port.close();
    lead_com1_to(other.device);
    EXPECT_THAT(port.open().value_or(""), HasSubstr(std::strerror(ENODEV)));
}

// A practice unit may have the usual name as well as an adapter.
TEST_F(Reattach, UsualDeviceDoesNotReplaceALinkThatGoes) {
    for (const bool usual_is_an_adapter : {true, false}) {
        SCOPED_TRACE(usual_is_an_adapter);
        Cable unit, usual;
        if (usual_is_an_adapter) plug_in(usual, "A1");
        lead_usual_device_to(usual);
        lead_com1_to(unit.device);
        open_and_pull(unit);
        std::filesystem::remove(folder / "ports/com1");
        expect_left_alone(usual);
        found_devices = {};
    }
}

TEST_F(Reattach, ChoiceStaysWithTheLinkThatIsGone) {
    Cable unit, car;
    lead_usual_device_to(car);
    lead_com1_to(unit.device);
    open_and_pull(unit);
    std::filesystem::remove(folder / "ports/com1");
    port.close();
    const auto link = (folder / "ports/com1").string();
    EXPECT_EQ(open_com1(), "COM1 (" + link + "): " + std::strerror(ENOENT));
    EXPECT_EQ(port_tip(1), "COM1: " + link + " (not there)");
    car.expect_no_bytes();
    Cable back;
    lead_com1_to(back.device);
    EXPECT_EQ(open_com1(), std::nullopt);
    expect_taken(back);
}

TEST_F(Reattach, LinkMadeLaterWaitsForAChoice) {
    Cable own, back, unit;
    plug_in(own, "A1");
    plug_in(back, "A1");
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

// No device was found yet that could be replaced by another.
TEST_F(Reattach, NumberThatNeverOpenedTakesItsDevice) {
    lead_com1_to("/dev/no-such-adapter");
    EXPECT_NE(open_com1(), std::nullopt);
    Cable cable;
    lead_com1_to(cable.device);
    expect_reopened(cable);
}

} // namespace
} // namespace zol::link
