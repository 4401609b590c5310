#include "tests/tour/stages.h"

namespace zol::tour {

void run_stages(Hands& hands, UnitProcess& unit) {
    connect_by_dialog(hands, unit);
    watch_the_engine(hands, unit);
    look_around(hands);
    look_at_languages(hands);
}

void connect_by_dialog(Hands& hands, UnitProcess& unit) {
    unit.type("silence on");
    hands.see("the splash window comes first",
              hands.until([&] { return hands.shown("frmSplash"); }));
    hands.picture("splash", "frmSplash");
    hands.see("a silent unit opens the connection dialog",
              hands.until([&] { return hands.shown("Centralina_Attiva"); }));
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
    hands.see("the watchdog brings the polling back",
              hands.until([&] { return hands.text("Label_rpm").toInt() > 0; }));
    hands.see("the main window answers again",
              hands.until([&] { return hands.enabled("Form1"); }, 6000));
}

void watch_the_engine(Hands& hands, UnitProcess& unit) {
    hands.picture("idling");
    unit.type("throttle 30");
    hands.see("the engine speed follows the throttle",
              hands.until([&] { return hands.text("Label_rpm").toInt() > 1800; }));
    hands.see("the warm engine goes over to gas",
              hands.until(
                  [&] {
                      return hands.text("Label_carburante") == "LPG" ||
                             hands.text("Label_carburante") == "GAS";
                  },
                  30000));
    Hands::rest(2000);
    hands.picture("on-gas");
    unit.type("throttle 0");
    Hands::rest(2000);
}

void look_around(Hands& hands) {
    hands.click("Command_impostazioni");
    hands.see("the settings panel comes on view",
              hands.until([&] { return hands.visible("Frame_impostazioni"); }));
    Hands::rest(800);
    hands.picture("settings");
    hands.click("Command_engine");
    hands.see("the engine panel is the home",
              hands.until([&] { return hands.visible("frame_engine"); }));
    Hands::rest(800);
    hands.click("Command_lambda");
    hands.see("the lambda panel comes on view",
              hands.until([&] { return hands.visible("Frame_Lambda"); }));
    Hands::rest(3000);
    hands.picture("lambda");
    hands.click("Command_engine");
    Hands::rest(1000);
}

void look_at_languages(Hands& hands) {
    for (const char* code : {"it", "pl", "fr", "de", "uk"}) {
        hands.menu({"mnu_Lingua", QString(code)});
        Hands::rest(400);
        hands.picture(std::string("engine-") + code);
        hands.click("Command_impostazioni");
        Hands::rest(900);
        hands.picture(std::string("settings-") + code);
        hands.click("Command_engine");
        Hands::rest(900);
    }
    hands.see("the captions are English again", hands.text("Command_engine") == "ENGINE");
}

} // namespace zol::tour
