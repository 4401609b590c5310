// Saves a screenshot of every window in one language, without a unit and connected to one.
// Arguments: the build folder, the output folder, the language. Ends with 1 if a check failed.
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

void screenshot_window(Ui& ui, const QString& window, const char* name) {
    ui.expect_shown(window, 15000);
    rest(500);
    ui.screenshot(name);
}

void stay_without_unit(Ui& ui) {
    ui.check("the splash window is painted first",
             ui.screenshot_once_painted("frmSplash", "fresh-splash"));
    screenshot_window(ui, "Centralina_Attiva", "fresh-dialog");
    ui.click("Command_test", "Centralina_Attiva");
    ui.expect("the test fails",
              [&] { return ui.text("Label2", "Centralina_Attiva") == "- TEST FALLITO -"; });
    ui.screenshot("fresh-dialog-failed");
    ui.unit.type("silence off");
    ui.click("Command_test", "Centralina_Attiva");
    ui.expect("the test is good",
              [&] { return ui.text("Label2", "Centralina_Attiva") == "- OK TEST ESEGUITO -"; });
    ui.screenshot("fresh-dialog-good");
    ui.click("Command_cancel", "Centralina_Attiva"); // ends the program
    rest(5000);
}

// A car that was tuned before and has been run for a while.
constexpr const char* tuned_car[] = {"memory 3 1480", "memory 4 1280", "memory 5 3100",
                                     "memory 27 41", "memory 28 17"};

void run_on_gas(Ui& ui) {
    start_with_answering_unit(ui);
    // Otherwise the service line flashes red.
    ui.menu({"mnu_Impostazioni", "mnu_check_car", "mnu_reset_check"});
    ui.wait_idle();
    rest(1000); // the polling that the item switched on ends with its first tick
    ui.go_home();
    ui.unit.type("throttle 20");
    ui.expect(
        "the engine changes over to gas",
        [&] {
            return ui.text("Label_carburante").size() < 5 && ui.text("Label_rpm").toInt() > 1800;
        },
        30000);
    rest(3000);
    ui.screenshot("gas-engine");
    ui.go_to("Command_impostazioni", "Frame_impostazioni");
    ui.screenshot("gas-settings");
    ui.go_to("Command_lambda", "Frame_Lambda");
    rest(4000); // the trace fills
    ui.screenshot("gas-lambda");
}

void screenshot_faults(Ui& ui) {
    ui.unit.type("throttle 0");
    for (const char* fault : {"fault clear", "fault add 301", "fault add 171", "fault add 2004"})
        ui.unit.type(fault);
    ui.go_to("Command_diagnosi", "Frame_diagnosi");
    ui.click("cmd_richiesta_par_diagnosi");
    rest(2000);
    ui.wait_until([&] { return ui.enabled("cmd_richiesta_par_diagnosi"); });
    ui.click("lbl_par_2");
    rest(500);
    ui.screenshot("gas-diagnosis");
    ui.go_home();
}

void screenshot_windows(Ui& ui) {
    ui.go_to("Command_impostazioni", "Frame_impostazioni");
    ui.click("Command303");
    screenshot_window(ui, "Form3", "gas-changeover");
    ui.click("Command1", "Form3");
    ui.wait_gone("Form3");
    ui.go_home();
    ui.click("Command5");
    ui.unit.type("throttle 80");
    rest(2500);
    ui.unit.type("throttle 0");
    screenshot_window(ui, "acquisizione", "gas-acquisition");
    ui.click("Command_chiudi", "acquisizione");
    ui.wait_gone("acquisizione");
    rest(900);
    ui.menu({"barra1"});
    screenshot_window(ui, "Form2", "gas-parameters");
    ui.click("cmd_exit", "Form2");
    rest(500);
    // No control of the program opens it.
    QMetaObject::invokeMethod(QCoreApplication::instance(),
                              [] { view::post([] { calibration::show_power_dialog(); }); });
    screenshot_window(ui, "Form_power", "gas-power");
    ui.click("cmd_cancel", "Form_power");
    ui.wait_gone("Form_power");
    rest(900);
    ui.menu({"MNU_HELP", "mnu_Manual"});
    screenshot_window(ui, "Manual", "gas-manual");
    ui.close("Manual");
    ui.go_home();
}

void screenshot_tuning(Ui& ui) {
    ui.drag("Slider_ktar", 1330);
    ui.wait_idle();
    ui.press(Qt::Key_T, Qt::ControlModifier);
    ui.screenshot_box("gas-tuning-question");
    ui.answer("Yes");
    ui.expect("the tuning line appears", [&] { return ui.visible("lbl_tuning"); });
    rest(3000);
    ui.screenshot("gas-tuning");
    ui.click("Command2");
    ui.wait_until([&] { return !ui.visible("lbl_tuning"); }, 30000);
    rest(2500);
}

const std::vector<Visit> visits = {
    {"Without a unit", "silence on", {{"Splash and dialog", stay_without_unit}}},
    {"Connected",
     "silence off",
     {{"Panels on gas", run_on_gas},
      {"Faults", screenshot_faults},
      {"Windows", screenshot_windows},
      {"Tuning", screenshot_tuning}}},
};

int make_gallery(char* program_name, const fs::path& build, const fs::path& out,
                 const std::string& language) {
    fs::remove_all(out);
    make_folder(build, out / "app", language);
    Tally* tally = shared_tally();
    if (!tally) return EXIT_FAILURE;
    {
        UnitProcess unit = start_unit(build, out);
        for (const char* command : tuned_car)
            unit.type(command);
        for (const Visit& visit : visits)
            make_visit(visit, program_name, out, *tally, unit);
    }
    return report(*tally, out);
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
