#include "tests/process/tour/stages.h"

#include "app/application_folder.h"

#include <QDate>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace zol::tour {

std::string whole_file(const char* name) {
    std::ifstream in(app::application_file(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void open_boxes(Ui& ui) {
    ui.menu({"MNU_INFOMATION", "MNU_VERSIONE"});
    ui.screenshot_box("version");
    ui.answer_box("FIRMWARE VERSION NUMBER: 2.7.71", "OK");
    ui.menu({"barra1"});
    ui.expect_shown("Form2");
    rest(300);
    ui.check("the parameter window shows the unit's values",
             ui.text("Label4", "Form2") == "PAR_121 = " + QString::number(ui.unit.parameter(121)));
    ui.screenshot("parameter-window");
    ui.click("cmd_exit", "Form2");
    ui.expect_gone("Form2");
    rest(500);
    ui.menu({"barra1"});
    ui.wait_shown("Form2");
    ui.close("Form2");
    ui.wait_gone("Form2");
    ui.check("closing it by the title bar keeps the polling", ui.values_flow());
    rest(1500); // the old values are shown again
    ui.click("Command31");
    ui.check("its button keeps the polling", ui.values_flow());
    ui.menu({"mnu_Schermo", "mnu_color_testo"});
    ui.screenshot_box("colours");
    ui.answer("OK", "#00ff80");
    ui.expect("the text colour is stored", [] {
        return whole_file("\\setting.ini").find("COLORETESTO=8453888") != std::string::npos;
    });
    rest(400);
    ui.screenshot("other-colour");
    ui.menu({"MNU_HELP", "mnu_Manual"});
    ui.expect_shown("Manual");
    rest(300);
    ui.screenshot("manual");
    ui.close("Manual");
    rest(300);
    ui.go_home();
}

void reset_service_records(Ui& ui) {
    const QDate today = QDate::currentDate();
    ui.menu({"mnu_Impostazioni", "mnu_check_car"});
    ui.screenshot("service-menu");
    ui.close_menus();
    ui.menu({"mnu_Impostazioni", "mnu_check_car", "mnu_reset_check"});
    ui.wait_idle();
    ui.given("the day of the check", 29, today.day());
    ui.given("the month of the check", 39, today.month());
    ui.given("the year of the check", 40, today.year() % 100);
    ui.expect("the service line shows today",
              [&] { return ui.text("lbl_ore").contains(today.toString(" d / M / yyyy")); });
    ui.unit.type("memory 27 3");
    ui.unit.type("memory 28 25");
    ui.menu({"mnu_Impostazioni", "mnu_check_car", "mnu_reset_time_ongas"});
    ui.wait_idle();
    ui.given("the hours on gas", 27, 0);
    ui.check("the minutes on gas restart", ui.unit.parameter(28) < 2);
    ui.expect("the service line shows no time on gas",
              [&] { return ui.text("lbl_ore").contains("0 hour - 0 min"); });
    rest(600);
    ui.go_home();
}

void save_parameters(Ui& ui) {
    ui.menu({"MNU_INFOMATION", "mnu_dump_parametri"});
    ui.wait_idle();
    const std::string dump = whole_file("\\log\\setting.txt");
    ui.check("the file has a line for each of 51 parameters",
             std::count(dump.begin(), dump.end(), '\n') == 51);
    const std::string gain = "Par 3  = " + std::to_string(ui.unit.parameter(3)) + "  ";
    ui.check("the file has the gain", dump.find(gain) != std::string::npos);
    ui.go_home();
}

void reset_to_factory_values(Ui& ui) {
    ui.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    const int gain = ui.unit.parameter(3);
    ui.answer_box("Reset the control unit", "No");
    rest(1000);
    ui.check("No keeps the unit's values", ui.unit.parameter(3) == gain);
    ui.check("No leaves the polling stopped", !ui.values_flow(1500));
    ui.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    ui.screenshot_box("reset-question");
    ui.answer_box("Reset the control unit", "Yes");
    rest(8000);
    ui.screenshot("resetting");
    ui.wait_until([&] { return ui.box_open(); }, 40000);
    ui.screenshot("reset-done");
    ui.answer_box("FINE RESET ECU", "OK");
    struct Default {
        int number, value;
    };
    constexpr Default defaults[] = {{121, 1400}, {31, 4200}, {33, 25},  {202, 2000},
                                    {74, 100},   {170, 100}, {22, 800}, {3, 1200}};
    for (const Default& each : defaults)
        ui.given("factory value", each.number, each.value);
    ui.go_home();
    ui.check("live values are updated again", ui.values_flow());
}

// Closing asks nothing and waits for nothing; the unit keeps the values it has received.
void close_during_the_reset(Ui& ui) {
    ui.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    ui.answer_box("Reset the control unit", "Yes");
    // The unit has received the reset by then, twice if its first reply followed a telegram. The
    // last single value and the last cell have not been sent yet.
    rest(6500);
    ui.unit.type("memory 22 1");
    ui.unit.type("memory 170 90");
    constexpr int most_ms = 20000;
    ui.expect(
        "the tool's single values arrive", [&] { return ui.unit.parameter(22) == 800; }, most_ms);
    rest(3000);
    ui.screenshot("reset-to-be-closed");
    ui.check("the last cell has not arrived", ui.unit.parameter(170) == 90);
    ui.close("Form1");
}

} // namespace zol::tour
