// Stages of the tour: start, connection dialog, engine and a pulled cable.
#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

const QString dialog = "Centralina_Attiva";
const QString good = "- OK TEST ESEGUITO -", failed = "- TEST FALLITO -";

void expect_test(Ui& ui, const QString& result) {
    ui.click("Command_test", dialog);
    ui.expect("the port test shows " + result.toStdString(),
              [&] { return ui.text("Label2", dialog) == result; });
}

void leave_dialog(Ui& ui) {
    ui.click("Command_ok", dialog);
    ui.expect_gone(dialog, 15000);
    ui.expect(
        "the main window is enabled again", [&] { return ui.enabled("Form1"); }, 6000);
    ui.check("the watchdog restarts the polling", ui.values_flow());
    rest(3500); // the window is filled three seconds after the dialog closes
}

} // namespace

void start_with_answering_unit(Ui& ui) {
    ui.check("the splash window is painted first",
             ui.screenshot_once_painted("frmSplash", "splash"));
    ui.expect_gone("frmSplash", 15000);
    ui.check("the connection dialog stays closed if the unit answers", !ui.shown(dialog));
    ui.expect_panel("frame_engine");
    ui.expect("the engine speed is shown", [&] { return ui.text("Label_rpm").toInt() > 0; });
    ui.check("live values are updated", ui.values_flow());
    ui.check("the battery voltage is shown for this firmware version", ui.visible("Label20"));
}

void start_with_silent_unit(Ui& ui) {
    ui.expect_shown(dialog);
    ui.check("the splash window is closed", !ui.shown("frmSplash"));
    ui.check("OK is disabled until a port test succeeds", !ui.enabled("Command_ok", dialog));
    expect_test(ui, failed);
    ui.screenshot("test-failed");
    ui.unit.type("silence off");
    expect_test(ui, good);
    ui.screenshot("test-good");
    leave_dialog(ui);
}

void cancel_at_another_port(Ui& ui) {
    ui.expect_shown(dialog);
    ui.choose("Combo1", 1, dialog);
    ui.check("another port is selected", ui.text("Combo1", dialog) == "COM2");
    ui.screenshot("other-port");
    ui.click("Command_cancel", dialog);
}

void start_at_a_missing_port(Ui& ui) {
    ui.screenshot_box("no-such-port");
    ui.answer_box("/dev/ttyUSB1", "OK"); // the port stored when the dialog was cancelled
    ui.expect_shown(dialog);
    expect_test(ui, failed);
    ui.choose("Combo1", 0, dialog);
    expect_test(ui, good);
    leave_dialog(ui);
}

void watch_the_engine(Ui& ui) {
    ui.screenshot("idling");
    ui.unit.type("throttle 30");
    ui.expect("the engine speed follows the throttle",
              [&] { return ui.text("Label_rpm").toInt() > 1800; });
    ui.expect(
        "the warm engine changes over to gas", [&] { return ui.text("Label_carburante") == "LPG"; },
        30000);
    rest(1500);
    ui.screenshot("on-gas");
    ui.unit.type("throttle 0");
    ui.expect("the engine returns to idle", [&] { return ui.text("Label_rpm").toInt() < 1200; });
}

void pull_the_cable(Ui& ui) {
    ui.unit.type("unplug");
    rest(1500);
    ui.menu({"mnu_Impostazioni"});
    ui.screenshot("cable-out-menu-open");
    ui.close_menus();
    ui.check("values are not updated without the cable", !ui.values_flow(1500));
    ui.unit.type("plug");
    ui.check("values are updated when the cable is back", ui.values_flow(10000));
}

} // namespace zol::tour
