// Takes a picture of every window in one language, on a program that has not met its unit yet and
// on one that is connected. Arguments: the build folder, the folder for the pictures, the language.
// Ends with 1 if a window did not come.
#include "calibration/power_dialog.h"
#include "tests/process/tour/stages.h"
#include "tests/process/tour/visit.h"
#include "view/timers.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace zol::tour {
namespace {

namespace fs = std::filesystem;

void open_and_picture(Hands& hands, const QString& window, const char* name) {
    hands.see(window.toStdString() + " opens",
              hands.until([&] { return hands.shown(window); }, 15000));
    Hands::rest(500);
    hands.picture(name);
}

void stay_without_unit(Hands& hands, UnitProcess& unit) {
    hands.see("the splash window comes first, painted",
              hands.picture_once_painted("frmSplash", "fresh-splash"));
    open_and_picture(hands, "Centralina_Attiva", "fresh-dialog");
    hands.click("Command_test", "Centralina_Attiva");
    hands.see("the test fails", hands.until([&] {
        return hands.text("Label2", "Centralina_Attiva") == "- TEST FALLITO -";
    }));
    hands.picture("fresh-dialog-failed");
    unit.type("silence off");
    hands.click("Command_test", "Centralina_Attiva");
    hands.see("the test is good", hands.until([&] {
        return hands.text("Label2", "Centralina_Attiva") == "- OK TEST ESEGUITO -";
    }));
    hands.picture("fresh-dialog-good");
    hands.click("Command_cancel", "Centralina_Attiva"); // ends the program
    Hands::rest(5000);
}

// A car that was tuned before and has been run for a while.
void let_the_car_be_in_order(UnitProcess& unit) {
    for (const char* command :
         {"memory 3 1480", "memory 4 1280", "memory 5 3100", "memory 27 41", "memory 28 17"})
        unit.type(command);
}

void run_on_gas(Hands& hands, UnitProcess& unit) {
    start_with_answering_unit(hands, unit);
    // Checked today: what was never checked flashes red.
    hands.menu({"mnu_Impostazioni", "mnu_check_car", "mnu_reset_check"});
    hands.until_idle();
    Hands::rest(1000); // The polling that the entry switched on ends with its first tick.
    go_home(hands);
    unit.type("throttle 20");
    hands.see("the engine goes over to gas", hands.until(
                                                 [&] {
                                                     return hands.text("Label_carburante").size() <
                                                                5 &&
                                                            hands.text("Label_rpm").toInt() > 1800;
                                                 },
                                                 30000));
    Hands::rest(3000);
    hands.picture("gas-engine");
    go_to(hands, "Command_impostazioni", "Frame_impostazioni");
    hands.picture("gas-settings");
    go_to(hands, "Command_lambda", "Frame_Lambda");
    Hands::rest(4000); // the trace fills
    hands.picture("gas-lambda");
}

void look_at_faults(Hands& hands, UnitProcess& unit) {
    unit.type("throttle 0");
    for (const char* fault : {"fault clear", "fault add 301", "fault add 171", "fault add 2004"})
        unit.type(fault);
    go_to(hands, "Command_diagnosi", "Frame_diagnosi");
    hands.click("cmd_richiesta_par_diagnosi");
    Hands::rest(2000);
    hands.until([&] { return hands.enabled("cmd_richiesta_par_diagnosi"); });
    hands.click("lbl_par_2");
    Hands::rest(500);
    hands.picture("gas-diagnosis");
    go_home(hands);
}

void look_at_windows(Hands& hands, UnitProcess& unit) {
    go_to(hands, "Command_impostazioni", "Frame_impostazioni");
    hands.click("Command303");
    open_and_picture(hands, "Form3", "gas-changeover");
    hands.click("Command1", "Form3");
    hands.until([&] { return !hands.shown("Form3"); });
    go_home(hands);
    hands.click("Command5");
    unit.type("throttle 80");
    Hands::rest(2500);
    unit.type("throttle 0");
    open_and_picture(hands, "acquisizione", "gas-acquisition");
    hands.click("Command_chiudi", "acquisizione");
    hands.until([&] { return !hands.shown("acquisizione"); });
    Hands::rest(900);
    hands.menu({"barra1"});
    open_and_picture(hands, "Form2", "gas-parameters");
    hands.click("cmd_exit", "Form2");
    Hands::rest(500);
    // No entry of the program leads to it.
    QMetaObject::invokeMethod(QCoreApplication::instance(),
                              [] { view::post([] { calibration::show_power_dialog(); }); });
    open_and_picture(hands, "Form_power", "gas-power");
    hands.click("cmd_cancel", "Form_power");
    hands.until([&] { return !hands.shown("Form_power"); });
    Hands::rest(900);
    hands.menu({"MNU_HELP", "mnu_Manual"});
    open_and_picture(hands, "Manual", "gas-manual");
    hands.close("Manual");
    go_home(hands);
}

void look_at_tuning(Hands& hands, UnitProcess&) {
    hands.drag("Slider_ktar", 1330);
    hands.until_idle();
    hands.press(Qt::Key_T, Qt::ControlModifier);
    hands.until([&] { return hands.box_on_view(); });
    hands.picture("gas-tuning-question");
    hands.answer("Yes");
    hands.see("the tuning line comes on view",
              hands.until([&] { return hands.visible("lbl_tuning"); }));
    Hands::rest(3000);
    hands.picture("gas-tuning");
    hands.click("Command2");
    hands.until([&] { return !hands.visible("lbl_tuning"); }, 30000);
    Hands::rest(2500);
}

const std::vector<Visit> visits = {
    {"Without a unit", "silence on", {{"Splash and dialog", stay_without_unit}}},
    {"Connected",
     "silence off",
     {{"Panels on gas", run_on_gas},
      {"Faults", look_at_faults},
      {"Windows", look_at_windows},
      {"Tuning", look_at_tuning}}},
};

int make_gallery(char* program_name, const fs::path& build, const fs::path& out,
                 const std::string& language) {
    fs::remove_all(out);
    make_folder(build, out / "app", language);
    Tally* tally = shared_tally();
    if (!tally) return EXIT_FAILURE;
    {
        UnitProcess unit(build / "simulator" / "control-unit",
                         {"--link", (out / "app" / "ports" / "com1").string(), "--warm",
                          "--firmware", "2.7.71"});
        let_the_car_be_in_order(unit);
        for (const Visit& visit : visits)
            make_visit(visit, program_name, out, *tally, unit);
    }
    std::printf("%d pictures in %s, %d things missed, the windows compared %d times\n",
                tally->pictures, out.c_str(), tally->missed, tally->compared);
    return tally->missed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace zol::tour

int main(int count, char** arguments) {
    constexpr std::array languages{"it", "uk", "pl", "fr", "de"};
    if (count != 4 || std::ranges::find(languages, std::string(arguments[3])) == languages.end()) {
        std::fprintf(stderr, "usage: gallery BUILD_FOLDER OUTPUT_FOLDER it|uk|pl|fr|de\n");
        return 2;
    }
    namespace fs = std::filesystem;
    return zol::tour::make_gallery(arguments[0], fs::absolute(arguments[1]),
                                   fs::absolute(arguments[2]), arguments[3]);
}
