// The connection dialog: its list of ports, the port test, and how it is left.
#include "link/connection_dialog.h"

#include "tests/unit/link/crafted_unit.h"
#include "view/windows/frm_splash.h"
#include "view/windows/style.h"

#include <algorithm>

namespace zol::tests {
namespace {

using namespace centralina_attiva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using view::Pointer;

class ConnectionDialog : public CraftedUnitTest {
  protected:
    // Clicks on the test, which ends `ms` later with this result and not earlier.
    void expect_test(int ms, const std::string& text, bool ok_enabled) {
        forget_wire();
        operator_clicks(Command_test);
        run_for(ms - 1);
        EXPECT_EQ(view::text(Label2), "");
        run_for(1);
        EXPECT_EQ(view::text(Label2), text);
        EXPECT_EQ(Label2.look.back, text == good ? view::green : view::red);
        EXPECT_EQ(view::enabled(Command_ok), ok_enabled);
        EXPECT_EQ(Centralina_Attiva.look.pointer, Pointer::normal);
        EXPECT_EQ(Command_test.look.pointer, Pointer::normal);
    }
    static constexpr const char* good = "- OK TEST ESEGUITO -";
    static constexpr const char* bad = "- TEST FALLITO -";
};

TEST(PortsOfTheList, EachEntryOpensThePortThatItNames) {
    const double ports[] = {1, 2, 4, 5, 6, 7, 8};
    for (int entry = 0; entry < 7; ++entry)
        EXPECT_EQ(link::port_of_entry(entry), ports[entry]) << entry;
    EXPECT_EQ(link::port_of_entry(-1), 0);
}

TEST(PortsOfTheList, EachPortNumberSelectsItsEntry) {
    // The list has no COM3: its number selects COM2.
    const std::pair<double, int> entries[] = {{0, -1}, {1, 0}, {2, 1}, {3, 1}, {4, 2},
                                              {5, 3},  {6, 4}, {7, 5}, {8, 6}};
    for (const auto& [number, entry] : entries)
        EXPECT_EQ(link::entry_of_port(number), entry) << number;
}

TEST_F(ConnectionDialog, OpensOnASilentUnitWithOkDisabled) {
    crafted.present = false;
    start_program();
    run_for(1199);
    EXPECT_FALSE(Centralina_Attiva.loaded);
    run_for(1);
    EXPECT_TRUE(Centralina_Attiva.shown);
    EXPECT_THAT(Combo1.look.items,
                ElementsAre("COM1", "COM2", "COM4", "COM5", "COM6", "COM7", "COM8"));
    EXPECT_EQ(Combo1.look.list_index, 0);
    EXPECT_THAT(Combo1.look.tip, HasSubstr("COM4: /dev/ttyACM1 (not there)\n"));
    EXPECT_THAT(Combo1.look.tip, testing::StartsWith("COM1: "));
    EXPECT_EQ(std::count(Combo1.look.tip.begin(), Combo1.look.tip.end(), '\n'), 6); // 7 lines
    EXPECT_FALSE(view::enabled(Command_ok));
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_EQ(Centralina_Attiva.look.back, view::rgb(154, 0, 0));
    EXPECT_EQ(Label1.look.back, view::rgb(154, 0, 0));
    EXPECT_FALSE(frm_splash::frmSplash.loaded);
    EXPECT_TRUE(app::state.connect_dialog_open);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
    operator_clicks(Command_ok);
    run_for(60000);
    EXPECT_THAT(frames(), ElementsAre(Send(6)));
}

TEST_F(ConnectionDialog, OpensAtOnceIfThePortFaults) {
    port->unplugged = true;
    start_program();
    run_for(500);
    EXPECT_TRUE(Centralina_Attiva.shown);
}

TEST_F(ConnectionDialog, SelectsTheStoredPort) {
    const std::pair<int, int> stored[] = {{1, 0}, {2, 1}, {3, 1}, {8, 6}, {0, -1}};
    open_the_dialog();
    for (const auto& [number, entry] : stored) {
        inside_program([number = number] {
            view::unload(Centralina_Attiva);
            app::state.com_port_number = number;
            view::show(Centralina_Attiva);
        });
        EXPECT_EQ(Combo1.look.list_index, entry) << number;
    }
}

// Closed, 300 ms, opened, request, 500 ms: all of it twice.
TEST_F(ConnectionDialog, GoodTestReopensThePortTwice) {
    open_the_dialog();
    mark();
    operator_chooses(Combo1, 2); // COM4
    operator_clicks(Command_test);
    EXPECT_FALSE(port->is_open());
    EXPECT_EQ(Centralina_Attiva.look.pointer, Pointer::normal);
    run_for(300);
    EXPECT_TRUE(port->is_open());
    EXPECT_EQ(port->number, 4);
    EXPECT_EQ(port->line_settings, "9600,n,8,1");
    EXPECT_EQ(Centralina_Attiva.look.pointer, Pointer::hourglass);
    EXPECT_EQ(Command_test.look.pointer, Pointer::hourglass);
    EXPECT_EQ(Label2.look.back, windows::paper) << "the default of the toolkit";
    EXPECT_FALSE(view::enabled(Command_ok));
    run_for(1300);
    EXPECT_THAT(timed(), ElementsAre(At(300, Send(6)), At(1100, Send(6))));
    EXPECT_EQ(port->closed, 2);
    EXPECT_EQ(port->opened, 3); // the first when the main window was loaded
}

TEST_F(ConnectionDialog, AnyByteIsAReply) {
    open_the_dialog();
    crafted.instead = [](int) { return Bytes{0}; };
    expect_test(1600, good, true);
}

TEST_F(ConnectionDialog, SilentUnitFailsTheTestAfter800Ms) {
    open_the_dialog();
    crafted.present = false;
    expect_test(800, bad, false);
    EXPECT_THAT(frames(), ElementsAre(Send(6)));
}

TEST_F(ConnectionDialog, OneReplyIsNotEnough) {
    open_the_dialog();
    int replies = 0;
    crafted.instead = [&replies](int) { return ++replies == 1 ? presence_reply() : Bytes{}; };
    expect_test(1600, bad, false);
    EXPECT_EQ(replies, 2);
}

TEST_F(ConnectionDialog, PortThatCannotBeOpenedFailsTheTest) {
    open_the_dialog();
    port->open_error = "no such device";
    expect_test(300, bad, false);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(ConnectionDialog, PortThatFaultsFailsTheTest) {
    open_the_dialog();
    port->unplugged = true;
    expect_test(300, bad, false);
}

TEST_F(ConnectionDialog, FailedTestAfterAGoodOneLeavesOkEnabled) {
    open_the_dialog();
    expect_test(1600, good, true);
    crafted.present = false;
    expect_test(800, bad, true);
}

TEST_F(ConnectionDialog, WithNoEntrySelectedTheTestFails) {
    write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOM=9\n");
    open_the_dialog();
    EXPECT_EQ(Combo1.look.list_index, -1);
    port->open_error = "no such port";
    expect_test(300, bad, false);
    EXPECT_EQ(port->number, 0);
}

class PortMarks : public ConnectionDialog, public testing::WithParamInterface<int> {};

// The settings file gets the port's own number, `com_port_number` the place in the list plus 1, and
// the menu from COM5 on the tick of the port before.
TEST_P(PortMarks, OkStoresThePort) {
    const int entry = GetParam();
    const int stored[] = {1, 2, 4, 5, 6, 7, 8};
    view::Widget* const marked[] = {&form1::com1, &form1::com2, &form1::com4, &form1::com4,
                                    &form1::com5, &form1::com6, &form1::com7};
    open_the_dialog();
    operator_chooses(Combo1, entry);
    pass_the_port_test();
    inside_program([] { view::set_checked(form1::com3, true); });
    operator_clicks(Command_ok);
    EXPECT_THAT(read_text("setting.ini"), HasSubstr("COM=" + std::to_string(stored[entry]) + "\n"));
    EXPECT_EQ(app::state.com_port_number, entry + 1);
    EXPECT_EQ(port->number, stored[entry]);
    for (view::Widget* item : {&form1::com1, &form1::com2, &form1::com4, &form1::com5, &form1::com6,
                               &form1::com7, &form1::com8})
        EXPECT_EQ(view::checked(*item), item == marked[entry]) << item->name;
    EXPECT_TRUE(view::checked(form1::com3)); // not touched
}

INSTANTIATE_TEST_SUITE_P(Entries, PortMarks, testing::Range(0, 7));

TEST_F(ConnectionDialog, OkStaysDisabledUntilTheDialogCloses) {
    open_the_dialog();
    pass_the_port_test();
    operator_clicks(Command_ok);
    int ms = 0;
    for (; Centralina_Attiva.loaded && ms < 20'000; ++ms) {
        ASSERT_FALSE(view::enabled(Command_ok)) << ms;
        run_for(1);
    }
    EXPECT_GT(ms, 800);
    EXPECT_FALSE(Centralina_Attiva.loaded);
}

TEST_F(ConnectionDialog, CancelEndsTheProgram) {
    open_the_dialog();
    operator_chooses(Combo1, 3); // COM5
    forget_wire();
    operator_clicks(Command_cancel);
    EXPECT_THAT(read_text("setting.ini"), HasSubstr("COM=5\n"));
    EXPECT_FALSE(app::state.connect_dialog_open);
    EXPECT_FALSE(app::state.ui_loading);
    run_for(499);
    EXPECT_TRUE(Centralina_Attiva.loaded);
    run_for(1);
    EXPECT_FALSE(Centralina_Attiva.loaded);
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(time.ended());
    run_for(599);
    EXPECT_FALSE(time.ended());
    EXPECT_TRUE(port->is_open());
    run_for(1);
    EXPECT_TRUE(time.ended());
    EXPECT_FALSE(port->is_open());
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(ConnectionDialog, ClosedByTheTitleBarItLeavesThePollingOff) {
    open_the_dialog();
    operator_closes(Centralina_Attiva);
    EXPECT_TRUE(app::state.no_reread);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_TRUE(form1::Timer1.is_on());
    EXPECT_FALSE(view::enabled(form1::Form1));
    run_for(3000);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_EQ(form1::Form1.look.state, view::WindowState::maximised);
    EXPECT_EQ(view::focus(), &form1::Text2);
    run_for(60000);
    EXPECT_THAT(frames(), ElementsAre(Send(6)));
    // The engine button starts the polling.
    operator_clicks(form1::Command_engine);
    run_for(1000);
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

TEST_F(ConnectionDialog, ActivationEndsAfterTheDialogHasClosed) {
    open_the_dialog();
    inside_program([] { view::set_pointer(form1::Form1, Pointer::hourglass); });
    run_for(60000);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    operator_closes(Centralina_Attiva);
    run_for(399);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

TEST_F(ConnectionDialog, CancelDuringATestEndsTheProgram) {
    open_the_dialog();
    operator_clicks(Command_test);
    run_for(100);
    operator_clicks(Command_cancel);
    run_for(1100);
    EXPECT_TRUE(time.ended());
}

} // namespace
} // namespace zol::tests
