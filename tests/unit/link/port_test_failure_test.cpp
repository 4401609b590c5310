// What the connection dialog says beyond its fixed texts: why a test failed, whether the unit
// answers, and which device each port has.
#include "app/helper_texts.h"
#include "link/port_devices.h"
#include "link/port_test_failure.h"
#include "tests/unit/link/crafted_unit.h"
#include "view/windows/centralina_attiva.h"

#include <cerrno>
#include <cstring>

namespace zol::tests {
namespace {

using namespace centralina_attiva;
using testing::HasSubstr;

class ExplainedTest : public CraftedUnitTest {
  protected:
    void test_port() {
        operator_clicks(Command_test);
        run_for(1700);
    }
};

class FailureReason : public ExplainedTest {
  protected:
    // Of a test in which the port is opened with this error; for port 1.
    std::string reason_of(const std::string& error) {
        open_the_dialog();
        port->open_error = error;
        test_port();
        return Label2.look.tip;
    }
    static std::string device() { return link::port_device(1).name; }
};

TEST_F(FailureReason, IsAMissingDevice) {
    EXPECT_EQ(reason_of("COM1 (x): " + std::string(std::strerror(ENOENT))),
              "There is no device " + device() + ". Plug in the adapter, or choose another port.");
}

TEST_F(FailureReason, IsAMissingPermission) {
    EXPECT_EQ(reason_of("COM1 (x): " + std::string(std::strerror(EACCES))),
              "You have no permission for " + device() +
                  ". Join the group dialout, then log in again.");
}

TEST_F(FailureReason, IsADeviceInUse) {
    EXPECT_EQ(reason_of("COM1 (x): " + std::string(std::strerror(EBUSY))),
              device() + " is in use. Close the other program that uses it.");
}

TEST_F(FailureReason, IsADeviceThatIsNoSerialPort) {
    open_the_dialog();
    for (const int cause : {ENOTTY, EINVAL})
        EXPECT_EQ(link::why_port_failed(1, "COM1 (x): " + std::string(std::strerror(cause))),
                  device() + " is not a serial port. Correct the link in the folder ports, or "
                             "choose another port.");
}

TEST_F(FailureReason, ContainsTheSystemsTextForAnythingElse) {
    EXPECT_EQ(reason_of("COM1 (x): " + std::string(std::strerror(ELOOP))),
              "The port cannot be opened: COM1 (x): " + std::string(std::strerror(ELOOP)) +
                  ". Plug in the adapter again, or choose another port.");
}

TEST_F(FailureReason, IsThePortsOwnTextForATerminal) {
    open_the_dialog();
    const std::string error = "COM1 (x): " + app::helper_word("terminal of a session");
    EXPECT_EQ(link::why_port_failed(1, error), error);
}

TEST_F(FailureReason, IsASilentUnit) {
    open_the_dialog();
    crafted.present = false;
    test_port();
    EXPECT_EQ(Label2.look.tip,
              device() + " is open, but nothing answers. Check cable, ignition and port.");
}

TEST_F(FailureReason, IsThatNoPortIsChosen) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOM=9\n");
    open_the_dialog();
    port->open_error = "no such port";
    test_port();
    EXPECT_EQ(Label2.look.tip, "No port is chosen. Choose one in the list.");
}

TEST_F(FailureReason, GoesWithTheNextTest) {
    open_the_dialog();
    crafted.present = false;
    test_port();
    crafted.present = true;
    operator_clicks(Command_test);
    EXPECT_EQ(Label2.look.tip, "");
    run_for(2000);
    EXPECT_EQ(view::text(Label2), "- OK TEST ESEGUITO -");
    EXPECT_EQ(Label2.look.tip, "");
}

TEST_F(ExplainedTest, TheHeadingFollowsTheLastTest) {
    open_the_dialog();
    const std::string silent = view::text(Label1);
    EXPECT_THAT(silent, HasSubstr("does not answer"));
    test_port();
    EXPECT_EQ(view::text(Label1), "The control unit answers. Press OK to read it.");
    crafted.present = false;
    test_port();
    EXPECT_EQ(view::text(Label1), silent);
}

TEST_F(ExplainedTest, EachEntryIsNotedWithItsDevice) {
    open_the_dialog();
    ASSERT_EQ(Combo1.look.item_notes.size(), Combo1.look.items.size());
    EXPECT_EQ(Combo1.look.item_notes[0].text, link::port_device(1).name);
    EXPECT_EQ(Combo1.look.item_notes[2].text, link::port_device(4).name) << "COM4";
    EXPECT_EQ(Combo1.look.item_notes[0].pale, !link::port_device(1).is_there);
}

} // namespace
} // namespace zol::tests
