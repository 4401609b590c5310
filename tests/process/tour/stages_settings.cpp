#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

void open_settings(Hands& hands) { go_to(hands, "Command_impostazioni", "Frame_impostazioni"); }

void settle(Hands& hands) {
    hands.until_idle();
    Hands::rest(200);
}

void drag_upper_rows(Hands& hands, UnitProcess& unit) {
    hands.drag("Slider1(2)", 60);
    settle(hands);
    given(hands, unit, "the third threshold is dragged", 34, hands.value("Slider1(2)"));
    hands.drag("Slider1(3)", 80);
    settle(hands);
    const int fourth = hands.value("Slider1(3)");
    given(hands, unit, "the fourth threshold is dragged", 35, fourth);
    hands.see("and takes the top row along", hands.value("Slider1(4)") == fourth);
    hands.drag("Slider1(4)", 90);
    settle(hands);
    hands.see("the top row takes the fourth along",
              hands.value("Slider1(4)") > fourth &&
                  hands.value("Slider1(3)") == hands.value("Slider1(4)"));
    given(hands, unit, "and sends nothing", 35, fourth);
}

} // namespace

void set_fuel_and_changeover(Hands& hands, UnitProcess& unit) {
    open_settings(hands);
    hands.see("no way out of the program from the settings", !hands.visible("Command_exit"));
    hands.picture("settings");
    hands.click("Option_metano");
    settle(hands);
    given(hands, unit, "methane", 10, 0);
    given(hands, unit, "methane's calibration temperature", 51, 60);
    given(hands, unit, "methane's fuel offset", 144, 92);
    hands.click("Option_gpl");
    settle(hands);
    given(hands, unit, "LPG", 10, 1);
    given(hands, unit, "LPG's calibration pressure", 104, 1600);
    given(hands, unit, "LPG's fuel offset", 144, 100);
    hands.click("Option_press_no");
    given(hands, unit, "no pressure sensor", 50, 0);
    settle(hands);
    hands.click("Option_press_yes");
    given(hands, unit, "a pressure sensor", 50, 1);
    settle(hands);
    hands.click("text_temp_comm");
    Hands::rest(200);
    hands.see("a field is emptied by a click", hands.text("text_temp_comm").isEmpty());
    hands.picture("field-entered");
    hands.enter("text_temp_comm", "45x");
    given(hands, unit, "the changeover temperature", 15, 45);
    settle(hands);
    hands.enter("Text_time_comm", "12");
    given(hands, unit, "the changeover time", 110, 12);
    settle(hands);
    hands.click("Opt_modulare_yes");
    given(hands, unit, "the modular changeover", 23, 1);
    settle(hands);
    hands.click("Opt_modulare_no");
    given(hands, unit, "and none", 23, 0);
    settle(hands);
    hands.click("Opt_modulare_yes");
    given(hands, unit, "the modular changeover again", 23, 1);
    settle(hands);
    hands.drag("Slider3", 7);
    given(hands, unit, "the temperature correction", 52, 7);
    settle(hands);
    go_home(hands);
}

void set_tank(Hands& hands, UnitProcess& unit) {
    open_settings(hands);
    hands.choose("Combo_tank_level", 2);
    settle(hands);
    given(hands, unit, "the sender of the list's third entry", 130, 2);
    given(hands, unit, "its voltage when empty", 30, 150);
    given(hands, unit, "its voltage when full", 31, 400);
    // The third and fourth threshold come one above the list's.
    given(hands, unit, "its first threshold", 32, 3);
    given(hands, unit, "its second threshold", 33, 30);
    given(hands, unit, "its third threshold", 34, 51);
    given(hands, unit, "its fourth threshold", 35, 76);
    hands.see("the voltage at the third threshold stands beside it",
              hands.text("lbl_202") == QString::number(qRound(150 + 250 * 0.51)));
    hands.picture("tank-preset");
    hands.drag("Slider1(1)", 20);
    settle(hands);
    const int second = hands.value("Slider1(1)");
    given(hands, unit, "the second threshold is dragged", 33, second);
    hands.see("its label follows", hands.text("Label_led1") == QString::number(second) + "%");
    hands.drag("Slider1(0)", 60);
    settle(hands);
    hands.see("a threshold pulled past the next springs back",
              hands.value("Slider1(0)") == second - 1);
    given(hands, unit, "which is not sent", 32, 3);
    drag_upper_rows(hands, unit);
    hands.enter("Text_min_tank", "180");
    settle(hands);
    given(hands, unit, "the voltage of the empty tank", 30, 180);
    hands.enter("Text_max_tank", "420");
    settle(hands);
    given(hands, unit, "the voltage of the full tank", 31, 420);
    for (int row = 0; row < 4; ++row)
        hands.tally().given[static_cast<std::size_t>(32 + row)] = unit.parameter(32 + row);
    hands.click("Check1");
    given(hands, unit, "the tank is set by hand", 130, 99);
    Hands::rest(400);
    hands.picture("tank-by-hand");
    go_home(hands);
}

void set_lambda(Hands& hands, UnitProcess& unit) {
    go_to(hands, "Command_lambda", "Frame_Lambda");
    hands.see("the lambda trace is on view", hands.visible("Picture1"));
    hands.click("lambda_inv");
    given(hands, unit, "the lambda signal is inverted", 12, 0);
    Hands::rest(500);
    hands.click("lambda_dir");
    given(hands, unit, "the lambda signal is direct", 12, 1);
    Hands::rest(500);
    hands.click("Option_disa_controllo_lambda");
    given(hands, unit, "lambda control off", 11, 0);
    Hands::rest(500);
    hands.click("Option_abi_controllo_lambda");
    given(hands, unit, "lambda control on", 11, 1);
    Hands::rest(500);
    hands.click("Option_corr");
    given(hands, unit, "a current sensor", 21, 1);
    given(hands, unit, "its closed-loop limit", 36, 1000);
    given(hands, unit, "its open-loop limit", 16, 1000);
    Hands::rest(600);
    hands.click("Option_tens");
    given(hands, unit, "a voltage sensor", 21, 0);
    hands.see("its limits are shown", hands.text("Text_lambda_closed_loop") == "400" &&
                                          hands.text("Text_lambda_open_loop") == "400");
    Hands::rest(500);
    hands.enter("Text_lambda_closed_loop", "420");
    given(hands, unit, "the closed-loop limit", 36, 420);
    settle(hands);
    hands.enter("Text_lambda_open_loop", "380");
    given(hands, unit, "the open-loop limit", 16, 380);
    settle(hands);
    hands.see("the lambda value is shown large",
              hands.until([&] { return hands.text("label_lambda_2").toInt() > 20; }));
    hands.click("Command_piu");
    Hands::rest(1500);
    hands.see("the trace's scale goes up a step", hands.text("Label35") == "2");
    hands.picture("lambda");
    hands.click("Command_meno");
    hands.see("and down again", hands.until([&] { return hands.text("Label35") == "1"; }));
    go_home(hands);
}

} // namespace zol::tour
