#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

namespace zol::rough {

// Each request of the first read is lost once. The program repeats it, and the splash stays open.
void in_first_read(Ui& ui) {
    constexpr int longest_wait_ms = 10000;
    ui.expect_shown("frmSplash");
    for (const char* request : {"version", "image"}) {
        ui.check(std::string("the unit receives the request for its ") + request,
                 ui.unit.says(request, longest_wait_ms));
        break_line(ui);
        rest(4500);
        ui.check("the first read continues", ui.shown("frmSplash"));
        restore_line(ui);
    }
    ui.expect_gone("frmSplash", 2 * longest_wait_ms);
    ui.unit.type("log off");
    ui.check("no connection dialog", !ui.shown("Centralina_Attiva"));
    expect_values(ui);
}

void open_a_box(Ui& ui) {
    ui.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    ui.answer_box("Reset the control unit", "No");
    return_home(ui);
}

void while_polling(Ui& ui) {
    phase(ui, "polling", [&] {
        break_line(ui);
        rest(2000);
        check_responsive(ui, "while no telegram arrives");
        expect_no_values(ui);
        restore_line(ui);
        expect_values(ui);
    });
}

void with_a_menu_open(Ui& ui) {
    phase(ui, "menu open", [&] {
        ui.menu({"mnu_Impostazioni"});
        break_line(ui);
        rest(2000);
        ui.check("the menu stays open", ui.menu_open());
        restore_line(ui);
        expect_values(ui);
        ui.close_menus();
        ui.check("the menu closes", !ui.menu_open());
    });
}

void in_the_panels(Ui& ui) {
    phase(ui, "panels", [&] {
        ui.go_to("Command_impostazioni", "Frame_impostazioni");
        break_line(ui);
        rest(300);
        ui.enter("text_temp_comm", "37");
        ui.wait_idle();
        ui.check("the field keeps the number", ui.text("text_temp_comm") == "37");
        ui.check("the unit does not get the lost number", ui.unit.parameter(15) != 37);
        ui.go_to("Command_lambda", "Frame_Lambda");
        ui.go_to("Command_diagnosi", "Frame_diagnosi");
        ui.go_to("Command_impostazioni", "Frame_impostazioni");
        restore_line(ui);
        rest(300);
        ui.enter("text_temp_comm", "36");
        ui.given("a number with the line back", 15, 36);
        ui.wait_idle();
        return_home(ui);
    });
}

void in_the_changeover_windows_load(Ui& ui) {
    phase(ui, "changeover window's load", [&] {
        ui.go_to("Command_impostazioni", "Frame_impostazioni");
        ui.click("Command303");
        break_line(ui);
        ui.expect_shown("Form3");
        rest(1000);
        const int before = ui.unit.parameter(41);
        const bool by_speed = before == 5;
        ui.click(by_speed ? "Option1" : "Option2", "Form3");
        rest(1200);
        ui.check("the unit does not get the lost choice", ui.unit.parameter(41) == before);
        restore_line(ui);
        rest(300);
        ui.click("Option3", "Form3");
        ui.given("a choice with the line back", 41, 2);
        rest(1200);
        ui.click("Command1", "Form3");
        ui.expect_gone("Form3");
        rest(1000); // its handler waits after closing, and blocks writes of the main window
        return_home(ui);
    });
}

void during_a_write(Ui& ui) {
    phase(ui, "write", [&] {
        ui.drag("Slider_ktar", 1300);
        ui.wait_idle();
        ui.given("the gain", 3, ui.value("Slider_ktar"));
        ui.drag("Slider_ktar", 1400); // its frames are sent 400 ms later
        break_line(ui);
        ui.wait_idle();
        ui.check("the slider keeps its new value", ui.value("Slider_ktar") > 1380);
        ui.check("the unit keeps the old gain", ui.unit.parameter(3) < 1320);
        check_responsive(ui, "after a lost write");
        restore_line(ui);
        expect_values(ui);
        ui.drag("Slider_ktar", 1450);
        ui.wait_idle();
        ui.given("the gain once more", 3, ui.value("Slider_ktar"));
        expect_values(ui);
    });
}

void in_the_acquisition(Ui& ui) {
    const QString window = "acquisizione";
    const auto time = [&] { return ui.text("Label1", window).toInt(); };
    phase(ui, "acquisition", [&] {
        ui.click("Command5");
        ui.expect_shown(window);
        ui.unit.type("throttle 60");
        ui.expect("the injection time rises", [&] { return time() > 4000; });
        break_line(ui);
        rest(1500);
        const int before = time();
        ui.unit.type("throttle 0");
        rest(2000);
        ui.check("the injection time is not updated", time() == before);
        restore_line(ui);
        ui.expect("the injection time falls once the line is back", [&] { return time() < 4000; });
        ui.click("Command_chiudi", window);
        ui.expect_gone(window);
        expect_values(ui);
        // The main window reads the unit again first; then the button's handler opens the engine
        // panel.
        rest(2000);
    });
}

void for_a_minute(Ui& ui) {
    break_line(ui);
    rest(1000);
    const double share =
        measured(ui, std::string(fault->name) + ", out for a minute", 1, [] { rest(60000); });
    ui.check("a dead line takes less than 1 % of a processor", share < 1);
    restore_line(ui);
    expect_values(ui);
}

} // namespace zol::rough
