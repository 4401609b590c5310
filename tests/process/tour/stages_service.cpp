#include "tests/process/tour/stages.h"

#include <QDate>

#include <algorithm>

namespace zol::tour {
void look_at_boxes(Hands& hands, UnitProcess& unit) {
    hands.menu({"MNU_INFOMATION", "MNU_VERSIONE"});
    hands.until([&] { return hands.box_on_view(); });
    hands.picture("version");
    answer_box(hands, "FIRMWARE VERSION NUMBER: 2.7.71", "OK");
    hands.menu({"barra1"});
    hands.see("the parameter window opens", hands.until([&] { return hands.shown("Form2"); }));
    Hands::rest(300);
    hands.see("it shows the unit's values",
              hands.text("Label4", "Form2") == "PAR_121 = " + QString::number(unit.parameter(121)));
    hands.picture("parameter-window");
    hands.click("cmd_exit", "Form2");
    hands.see("the parameter window closes", hands.until([&] { return !hands.shown("Form2"); }));
    Hands::rest(500);
    hands.menu({"barra1"});
    hands.until([&] { return hands.shown("Form2"); });
    hands.close("Form2");
    hands.until([&] { return !hands.shown("Form2"); });
    hands.see("closed by its frame it lets the values flow", values_flow(hands, unit));
    Hands::rest(1500); // the values of before are shown again
    hands.click("Command31");
    hands.see("the button for it keeps the reading going", values_flow(hands, unit));
    hands.menu({"mnu_Schermo", "mnu_color_testo"});
    hands.until([&] { return hands.box_on_view(); });
    hands.picture("colours");
    hands.answer("OK", "#00ff80");
    hands.see("the text colour is stored", hands.until([] {
        return whole_file("\\setting.ini").find("COLORETESTO=8453888") != std::string::npos;
    }));
    Hands::rest(400);
    hands.picture("other-colour");
    hands.menu({"MNU_HELP", "mnu_Manual"});
    hands.see("the manual opens in a window of the program",
              hands.until([&] { return hands.shown("Manual"); }));
    Hands::rest(300);
    hands.picture("manual");
    hands.close("Manual");
    Hands::rest(300);
    go_home(hands);
}

void reset_service_records(Hands& hands, UnitProcess& unit) {
    const QDate today = QDate::currentDate();
    hands.menu({"mnu_Impostazioni", "mnu_check_car"});
    hands.picture("service-menu");
    hands.leave_menus();
    hands.menu({"mnu_Impostazioni", "mnu_check_car", "mnu_reset_check"});
    hands.until_idle();
    given(hands, unit, "the day of the check", 29, today.day());
    given(hands, unit, "its month", 39, today.month());
    given(hands, unit, "its year", 40, today.year() % 100);
    hands.see("the line shows today", hands.until([&] {
        return hands.text("lbl_ore").contains(today.toString(" d / M / yyyy"));
    }));
    unit.type("memory 27 3");
    unit.type("memory 28 25");
    hands.menu({"mnu_Impostazioni", "mnu_check_car", "mnu_reset_time_ongas"});
    hands.until_idle();
    given(hands, unit, "the hours on gas", 27, 0);
    hands.see("the minutes on gas begin again", unit.parameter(28) < 2);
    hands.see("the line begins again",
              hands.until([&] { return hands.text("lbl_ore").contains("0 hour - 0 min"); }));
    Hands::rest(600);
    go_home(hands);
}

void save_parameters(Hands& hands, UnitProcess& unit) {
    hands.menu({"MNU_INFOMATION", "mnu_dump_parametri"});
    hands.until_idle();
    const std::string dump = whole_file("\\log\\setting.txt");
    hands.see("the file has a line for each of 51 parameters",
              std::count(dump.begin(), dump.end(), '\n') == 51);
    const std::string gain = "Par 3  = " + std::to_string(unit.parameter(3)) + "  ";
    hands.see("the gain stands in it", dump.find(gain) != std::string::npos);
    go_home(hands);
}

void reset_to_factory_values(Hands& hands, UnitProcess& unit) {
    hands.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    const int gain = unit.parameter(3);
    answer_box(hands, "Reset the control unit", "No");
    Hands::rest(1000);
    hands.see("No leaves the unit as it is", unit.parameter(3) == gain);
    hands.see("and the polling stopped", !values_flow(hands, unit, 1500));
    hands.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    hands.until([&] { return hands.box_on_view(); });
    hands.picture("reset-question");
    answer_box(hands, "Reset the control unit", "Yes");
    Hands::rest(8000);
    hands.picture("resetting");
    hands.until([&] { return hands.box_on_view(); }, 40000);
    hands.picture("reset-done");
    answer_box(hands, "FINE RESET ECU", "OK");
    struct Default {
        int number, value;
    };
    constexpr Default defaults[] = {{121, 1400}, {31, 4200}, {33, 25},  {202, 2000},
                                    {74, 100},   {170, 100}, {22, 800}, {3, 1200}};
    for (const Default& each : defaults)
        given(hands, unit, "factory value", each.number, each.value);
    go_home(hands);
    hands.see("live values flow again", values_flow(hands, unit));
}

// Nothing is asked and nothing waits: the window goes at once, and the unit keeps what it has got.
void close_in_the_middle_of_the_reset(Hands& hands, UnitProcess& unit) {
    hands.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    answer_box(hands, "Reset the control unit", "Yes");
    // The unit has taken the reset by then, a second one too where a telegram stood before its
    // first answer; the last of the single values and the last of the cells are still to come.
    Hands::rest(6500);
    unit.type("memory 22 1");
    unit.type("memory 170 90");
    constexpr int most_ms = 20000;
    hands.see("the tool's single values come",
              hands.until([&] { return unit.parameter(22) == 800; }, most_ms));
    Hands::rest(3000);
    hands.picture("reset-to-be-closed");
    hands.see("and the last cell has not come yet", unit.parameter(170) == 90);
    hands.close("Form1");
}

} // namespace zol::tour
