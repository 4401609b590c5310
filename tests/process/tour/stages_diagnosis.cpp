#include "tests/process/tour/stages.h"

#include <algorithm>
#include <cmath>

namespace zol::tour {
namespace {

constexpr int first_fault = 145, fault_count = 151;

QString label_with(Ui& ui, const QString& code) {
    for (int place = 1; place <= 6; ++place) {
        const QString label = "lbl_par_" + QString::number(place);
        if (ui.text(label) == code) return label;
    }
    return {};
}

void read(Ui& ui) {
    ui.click("cmd_richiesta_par_diagnosi");
    rest(1500);
    ui.expect("the faults are read", [&] { return ui.enabled("cmd_richiesta_par_diagnosi"); });
}

void click_protocols(Ui& ui) {
    constexpr const char* protocols[] = {
        "mnu_KWP2000_fast",   "mnu_KWP2000_slow",   "mnu_iso9141",
        "mnuCAN250KStandard", "mnuCAN250KExtended", "mnuCAN500KStandard",
        "mnuCAN500KExtended", "mnuJ1850vpw",        "mnuJ1850pwm"};
    const auto ticked = [&] {
        return std::count_if(std::begin(protocols), std::end(protocols),
                             [&](const char* each) { return ui.ticked(each); });
    };
    const auto found = std::find_if(std::begin(protocols), std::end(protocols),
                                    [&](const char* each) { return ui.ticked(each); });
    ui.check("one protocol is ticked", ticked() == 1);
    const int before = ui.unit.parameter(143);
    for (const char* protocol : protocols) {
        ui.menu({"mnu_eobd", protocol});
        rest(250);
    }
    ui.check("a protocol item sends nothing", ui.unit.parameter(143) == before);
    ui.check("a protocol item keeps the tick",
             ticked() == 1 && found != std::end(protocols) && ui.ticked(*found));
}

// The read repeats its request until the unit answers. Its button is disabled meanwhile.
void wait_for_a_silent_unit(Ui& ui) {
    ui.unit.type("silence on");
    ui.click("cmd_richiesta_par_diagnosi");
    rest(4000);
    ui.check("the read waits for a silent unit", !ui.enabled("cmd_richiesta_par_diagnosi"));
    ui.screenshot("faults-asked-for");
    ui.unit.type("silence off");
    ui.expect("the faults are read once the unit answers",
              [&] { return ui.enabled("cmd_richiesta_par_diagnosi"); });
}

const QString window = "acquisizione";

void open_acquisition(Ui& ui) {
    ui.click("Command5");
    ui.expect_shown(window);
}

void close_acquisition(Ui& ui) {
    ui.click("Command_chiudi", window);
    ui.expect_gone(window);
    rest(900);
}

} // namespace

void read_faults(Ui& ui) {
    for (const char* command : {"fault clear", "fault add 301", "fault add 1500", "fault add 2004"})
        ui.unit.type(command);
    ui.go_to("Command_diagnosi", "Frame_diagnosi");
    wait_for_a_silent_unit(ui);
    read(ui);
    ui.check("three faults are counted", ui.text("lbl_num_errori") == "3");
    ui.check("a fault from 1000 to 2000 has no text", ui.text("lbl_par_2").isEmpty());
    ui.check("a fault above 2000 has a text", ui.text("lbl_par_3") == "P2004");
    ui.check("an empty place shows NO ERROR", ui.text("lbl_par_4") == "NO ERROR");
    const QString misfire = label_with(ui, "P0301");
    ui.check("the misfire is among the faults", !misfire.isEmpty());
    if (!misfire.isEmpty()) ui.click(misfire);
    ui.expect("a click on a code explains it",
              [&] { return ui.text("Text_note_error").contains("Misfire"); });
    ui.screenshot("faults");
    ui.click("Text_note_error");
    ui.check("a click on the note keeps it", ui.text("Text_note_error").contains("Misfire"));
    ui.click("Command10");
    ui.wait_until([&] { return ui.unit.parameter(fault_count) == 0; });
    ui.wait_idle();
    for (int number = first_fault; number <= fault_count; ++number)
        ui.check("the unit has no fault", ui.unit.parameter(number) == 0);
    ui.check("clearing shows 0", ui.text("lbl_par_1") == "0");
    read(ui);
    ui.check("the next read shows NO ERROR", ui.text("lbl_par_1") == "NO ERROR");
    ui.screenshot("faults-cleared");
    ui.go_home();
}

void use_eobd_menus(Ui& ui) {
    ui.menu({"mnu_eobd"});
    ui.screenshot("eobd-menu");
    ui.close_menus();
    ui.menu({"mnu_eobd", "mnu_setting_eobd", "mnu_direction_inverse_eobd"});
    ui.settle(300);
    ui.given("inverse direction", 142, 257);
    ui.check("only the inverse direction is ticked",
             ui.ticked("mnu_direction_inverse_eobd") && !ui.ticked("mnu_direction_normal_eobd"));
    ui.menu({"mnu_eobd", "mnu_setting_eobd", "mnu_direction_normal_eobd"});
    ui.settle(300);
    ui.given("normal direction", 142, 0);
    ui.menu({"mnu_eobd", "mnu_debug_error", "mnu_debug_yes"});
    ui.settle(300);
    ui.given("debug on", 153, 1);
    ui.given("the debug flag", 20, 1);
    ui.check("debug on is ticked", ui.ticked("mnu_debug_yes"));
    ui.menu({"mnu_eobd", "mnu_debug_error", "mnu_debug_no"});
    ui.settle(300);
    ui.given("debug off", 153, 0);
    ui.given("the debug flag", 20, 0);
    click_protocols(ui);
    ui.menu({"mnu_eobd", "mnu_search"});
    rest(800);
    ui.expect(
        "the search finds a protocol",
        [&] {
            const int protocol = ui.unit.parameter(143);
            return protocol >= 2 && protocol <= 10;
        },
        20000);
    ui.expect(
        "live data are shown again", [&] { return ui.text("Label1").contains("LOOP"); }, 20000);
}

void acquire_injection_time(Ui& ui) {
    open_acquisition(ui);
    ui.unit.type("throttle 80");
    const auto present = [&] { return ui.text("Label1", window).toInt(); };
    const auto highest = [&] { return ui.text("Label_max", window).toInt(); };
    ui.expect("the maximum rises with the injection time", [&] { return highest() > 5000; });
    rest(1000);
    ui.unit.type("throttle 0");
    ui.expect("the maximum stays when the injection time falls",
              [&] { return present() < highest() / 2; });
    ui.screenshot("acquisition");
    ui.click("Command_salva", window);
    ui.expect_gone(window, 8000);
    const int upper = ui.unit.parameter(6), reached = upper - 2000;
    ui.check("the upper point is 2000 above the maximum", reached > 5000 && reached < 12000);
    ui.given("the upper point", 6, upper);
    ui.given("the lower point", 5, static_cast<int>(std::nearbyint(reached / 2.0 - 500)));
    ui.given("the third point", 7, static_cast<int>(std::nearbyint(reached - upper * 3 / 10.0)));
    rest(1500);
    open_acquisition(ui);
    ui.expect("the saved value is shown",
              [&] { return ui.text("Label2", window) == "saved:  " + QString::number(upper); });
    rest(600);
    ui.click("Command_reset", window);
    rest(300);
    ui.check("the reset clears the maximum", ui.text("Label_max", window).toInt() < 5000);
    close_acquisition(ui);
    ui.check("live values are updated again", ui.values_flow());
    open_acquisition(ui);
    rest(600);
    ui.close(window);
    ui.expect_gone(window);
    ui.expect("the main window is enabled again", [&] { return ui.enabled("Form1"); });
    ui.go_home();
    ui.check("the engine button restarts the polling", ui.values_flow());
}

} // namespace zol::tour
