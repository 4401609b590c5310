#include "tests/process/tour/stages.h"

namespace zol::tour {

void start_with_answering_unit(Hands& hands, UnitProcess& unit) {
    hands.see("the splash window comes first, painted",
              hands.picture_once_painted("frmSplash", "splash"));
    hands.see("the splash window goes when the unit has been read",
              hands.until([&] { return !hands.shown("frmSplash"); }, 15000));
    hands.see("an answering unit needs no connection dialog", !hands.shown("Centralina_Attiva"));
    hands.see("the engine panel is the first on view",
              hands.until([&] { return hands.visible("frame_engine"); }));
    hands.see("the engine speed is shown",
              hands.until([&] { return hands.text("Label_rpm").toInt() > 0; }));
    hands.see("live values flow", values_flow(hands, unit));
    hands.see("a unit of this version shows its battery", hands.visible("Label20"));
}

void start_with_silent_unit(Hands& hands, UnitProcess& unit) {
    hands.see("a silent unit opens the connection dialog",
              hands.until([&] { return hands.shown("Centralina_Attiva"); }));
    hands.see("the splash window is gone", !hands.shown("frmSplash"));
    hands.see("no way on without a good test", !hands.enabled("Command_ok", "Centralina_Attiva"));
    const auto result = [&] { return hands.text("Label2", "Centralina_Attiva"); };
    hands.click("Command_test", "Centralina_Attiva");
    hands.see("the test of a silent unit fails",
              hands.until([&] { return result() == "- TEST FALLITO -"; }));
    hands.picture("test-failed");
    unit.type("silence off");
    hands.click("Command_test", "Centralina_Attiva");
    hands.see("the test of an answering unit is good",
              hands.until([&] { return result() == "- OK TEST ESEGUITO -"; }));
    hands.picture("test-good");
    hands.click("Command_ok", "Centralina_Attiva");
    hands.see("the dialog goes when the unit has been read",
              hands.until([&] { return !hands.shown("Centralina_Attiva"); }, 15000));
    hands.see("the main window answers again",
              hands.until([&] { return hands.enabled("Form1"); }, 6000));
    hands.see("the watchdog brings the polling back", values_flow(hands, unit));
    Hands::rest(3500); // the window is filled three seconds after the dialog
}

void give_up_at_another_port(Hands& hands, UnitProcess&) {
    hands.see("a silent unit opens the connection dialog",
              hands.until([&] { return hands.shown("Centralina_Attiva"); }));
    hands.choose("Combo1", 1, "Centralina_Attiva");
    hands.see("another port is chosen", hands.text("Combo1", "Centralina_Attiva") == "COM2");
    hands.picture("giving-up");
    hands.click("Command_cancel", "Centralina_Attiva");
}

void start_at_a_port_that_is_not_there(Hands& hands, UnitProcess& unit) {
    const char* ports_device = "/dev/ttyUSB1";
    hands.see("the box tells which device cannot be opened, and the port given up at was stored",
              hands.until([&] { return hands.box_on_view(); }) &&
                  hands.box_text().contains(ports_device));
    Hands::rest(500);
    hands.picture("no-such-port");
    hands.answer("OK");
    hands.see("the connection dialog opens",
              hands.until([&] { return hands.shown("Centralina_Attiva"); }));
    const auto result = [&] { return hands.text("Label2", "Centralina_Attiva"); };
    hands.click("Command_test", "Centralina_Attiva");
    hands.see("the test of that port fails",
              hands.until([&] { return result() == "- TEST FALLITO -"; }));
    hands.choose("Combo1", 0, "Centralina_Attiva");
    hands.click("Command_test", "Centralina_Attiva");
    hands.see("that of the unit's is good",
              hands.until([&] { return result() == "- OK TEST ESEGUITO -"; }));
    hands.click("Command_ok", "Centralina_Attiva");
    hands.see("the dialog goes when the unit has been read",
              hands.until([&] { return !hands.shown("Centralina_Attiva"); }, 15000));
    hands.see("values flow", values_flow(hands, unit));
    Hands::rest(3500); // the window is filled three seconds after the dialog
}

void watch_the_engine(Hands& hands, UnitProcess& unit) {
    hands.picture("idling");
    unit.type("throttle 30");
    hands.see("the engine speed follows the throttle",
              hands.until([&] { return hands.text("Label_rpm").toInt() > 1800; }));
    hands.see("the warm engine goes over to gas",
              hands.until([&] { return hands.text("Label_carburante") == "LPG"; }, 30000));
    Hands::rest(1500);
    hands.picture("on-gas");
    unit.type("throttle 0");
    hands.see("the engine comes back to idle",
              hands.until([&] { return hands.text("Label_rpm").toInt() < 1200; }));
}

void pull_the_cable(Hands& hands, UnitProcess& unit) {
    unit.type("unplug");
    Hands::rest(1500);
    hands.menu({"mnu_Impostazioni"});
    hands.picture("cable-out-menu-open");
    hands.leave_menus();
    hands.see("values stand still while the cable is out", !values_flow(hands, unit, 1500));
    unit.type("plug");
    hands.see("values come back with the cable", values_flow(hands, unit, 10000));
}

} // namespace zol::tour
