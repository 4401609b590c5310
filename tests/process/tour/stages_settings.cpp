#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

int drag_row(Ui& ui, int row, int value) {
    const QString slider = QString("Slider1(%1)").arg(row);
    ui.drag(slider, value);
    ui.settle();
    return ui.value(slider);
}

void drag_tank_rows(Ui& ui) {
    const int second = drag_row(ui, 1, 20);
    ui.given("the second threshold is dragged", 33, second);
    ui.check("its label follows", ui.text("Label_led1") == QString::number(second) + "%");
    ui.check("a threshold dragged past the next returns", drag_row(ui, 0, 60) == second - 1);
    ui.given("the returned threshold is not sent", 32, 3);
    ui.given("the third threshold is dragged", 34, drag_row(ui, 2, 60));
    const int fourth = drag_row(ui, 3, 80);
    ui.given("the fourth threshold is dragged", 35, fourth);
    ui.check("the top row follows the fourth", ui.value("Slider1(4)") == fourth);
    const int top = drag_row(ui, 4, 90);
    ui.check("the fourth row follows the top row", top > fourth && ui.value("Slider1(3)") == top);
    ui.given("the top row sends nothing", 35, fourth);
}

} // namespace

void set_fuel_and_changeover(Ui& ui) {
    ui.go_to("Command_impostazioni", "Frame_impostazioni");
    ui.check("the settings panel has no EXIT", !ui.visible("Command_exit"));
    ui.screenshot("settings");
    ui.change({{"Option_metano", nullptr, 10, 0}});
    ui.given("methane's calibration temperature", 51, 60);
    ui.given("methane's fuel offset", 144, 92);
    ui.change({{"Option_gpl", nullptr, 10, 1}});
    ui.given("LPG's calibration pressure", 104, 1600);
    ui.given("LPG's fuel offset", 144, 100);
    ui.change({{"Option_press_no", nullptr, 50, 0}, {"Option_press_yes", nullptr, 50, 1}});
    ui.click("text_temp_comm");
    rest(200);
    ui.check("a click empties a field", ui.text("text_temp_comm").isEmpty());
    ui.screenshot("field-entered");
    ui.change({{"text_temp_comm", "45x", 15, 45},
               {"Text_time_comm", "12", 110, 12},
               {"Opt_modulare_yes", nullptr, 23, 1},
               {"Opt_modulare_no", nullptr, 23, 0},
               {"Opt_modulare_yes", nullptr, 23, 1}});
    ui.drag("Slider3", 7);
    ui.given("the temperature correction", 52, 7);
    ui.settle();
    ui.go_home();
}

void set_tank(Ui& ui) {
    ui.go_to("Command_impostazioni", "Frame_impostazioni");
    ui.choose("Combo_tank_level", 2);
    ui.settle();
    // The third and fourth threshold are one above the preset's.
    constexpr int preset[][2] = {{130, 2}, {30, 150}, {31, 400}, {32, 3},
                                 {33, 30}, {34, 51},  {35, 76}};
    for (const auto& [number, value] : preset)
        ui.given("the preset of the third sender", number, value);
    ui.check("the voltage of the third threshold is shown",
             ui.text("lbl_202") == QString::number(qRound(150 + 250 * 0.51)));
    ui.screenshot("tank-preset");
    drag_tank_rows(ui);
    ui.change({{"Text_min_tank", "180", 30, 180}, {"Text_max_tank", "420", 31, 420}});
    for (int row = 0; row < 4; ++row)
        ui.tally.given[static_cast<std::size_t>(32 + row)] = ui.unit.parameter(32 + row);
    ui.change({{"Check1", nullptr, 130, 99, 400}});
    ui.screenshot("tank-by-hand");
    ui.go_home();
}

void set_lambda(Ui& ui) {
    ui.go_to("Command_lambda", "Frame_Lambda");
    ui.check("the lambda trace is visible", ui.visible("Picture1"));
    ui.change({{"lambda_inv", nullptr, 12, 0, 500},
               {"lambda_dir", nullptr, 12, 1, 500},
               {"Option_disa_controllo_lambda", nullptr, 11, 0, 500},
               {"Option_abi_controllo_lambda", nullptr, 11, 1, 500},
               {"Option_corr", nullptr, 21, 1, 600}});
    ui.given("the closed-loop limit of a current sensor", 36, 1000);
    ui.given("the open-loop limit of a current sensor", 16, 1000);
    ui.change({{"Option_tens", nullptr, 21, 0, 500}});
    for (const char* limit : {"Text_lambda_closed_loop", "Text_lambda_open_loop"})
        ui.check(std::string(limit) + " shows a voltage sensor's limit", ui.text(limit) == "400");
    ui.change(
        {{"Text_lambda_closed_loop", "420", 36, 420}, {"Text_lambda_open_loop", "380", 16, 380}});
    ui.expect("the lambda value is shown", [&] { return ui.text("label_lambda_2").toInt() > 20; });
    ui.click("Command_piu");
    rest(1500);
    ui.check("the scale of the trace goes up a step", ui.text("Label35") == "2");
    ui.screenshot("lambda");
    ui.click("Command_meno");
    ui.expect("the scale goes down again", [&] { return ui.text("Label35") == "1"; });
    ui.go_home();
}

void visit_changeover_window(Ui& ui) {
    ui.go_to("Command_impostazioni", "Frame_impostazioni");
    ui.click("Command303");
    ui.expect_shown("Form3");
    rest(500);
    ui.check("the main window is disabled", !ui.enabled("Form1"));
    ui.check("a unit of this version has a petrol cut-off", ui.visible("Frame_cut_benz", "Form3"));
    ui.screenshot("changeover");
    ui.change({{"opt_acc", nullptr, 122, 3, 700},
               {"opt_norm", nullptr, 122, 0, 1300},
               {"opt_perm", nullptr, 122, 1, 700},
               {"Option1", nullptr, 41, 7, 1000},
               {"Option3", nullptr, 41, 2, 1100},
               {"Option2", nullptr, 41, 5, 1000}},
              "Form3");
    ui.change({{"Option_comm_auto_no", nullptr, 105, 0, 300}}, "Form3");
    ui.check("without automatic changeover the delay is disabled", !ui.enabled("Slider2", "Form3"));
    ui.change({{"Option_comm_auto_yes", nullptr, 105, 1, 300}}, "Form3");
    ui.check("automatic changeover enables the delay", ui.enabled("Slider2", "Form3"));
    ui.given("the normal changeover ends the modular one", 23, 0);
    ui.drag("Slider2", 2, "Form3");
    ui.given("the delay on low pressure", 106, 500);
    ui.wait_idle("Form3");
    ui.change({{"Text_rpm", "1600", 121, 1600},
               {"Text_press_comm", "700", 22, 700},
               {"Text_123", "640", 123, 640},
               {"Text_124", "1800", 124, 1800},
               {"Text1", "6789", 47, 678},
               {"Text2", "250", 53, 2}},
              "Form3");
    ui.screenshot("changeover-set");
    ui.click("Command1", "Form3");
    ui.expect_gone("Form3");
    ui.expect("the main window is enabled again", [&] { return ui.enabled("Form1"); });
    rest(500);
    ui.go_home();
}

} // namespace zol::tour
