#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

#include <algorithm>

namespace zol::rough {

namespace {

// The request is repeated without a message, and the windows respond.
void wait_without_reply(Ui& ui) {
    rest(3500);
    check_responsive(ui, "while the unit does not answer");
}

void ask_for_reset(Ui& ui) {
    ui.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    ui.answer_box("Reset the control unit", "Yes");
}

void end_reset(Ui& ui) {
    constexpr int longest_reset_ms = 60000;
    ui.answer_box("FINE RESET ECU", "OK", {}, longest_reset_ms);
    ui.wait_idle();
    restore_line(ui);
    return_home(ui);
}

} // namespace

void in_the_fault_read(Ui& ui) {
    const auto read = [&] { return ui.enabled("cmd_richiesta_par_diagnosi"); };
    phase(ui, "fault read", [&] {
        ui.unit.type("fault clear");
        ui.unit.type("fault add 301");
        ui.go_to("Command_diagnosi", "Frame_diagnosi");
        break_line(ui);
        ui.click("cmd_richiesta_par_diagnosi");
        wait_without_reply(ui);
        ui.check("the faults are not read", !read());
        restore_line(ui);
        ui.expect("the faults are read once the line is back", read);
        ui.check("the fault is shown", ui.text("lbl_par_1") == "P0301");
        ui.unit.type("fault clear");
        return_home(ui);
    });
}

void in_the_parameter_file(Ui& ui) {
    constexpr auto lines = [] {
        const std::string dump = tour::whole_file("\\log\\setting.txt");
        return std::count(dump.begin(), dump.end(), '\n');
    };
    phase(ui, "parameter file", [&] {
        break_line(ui);
        ui.menu({"MNU_INFOMATION", "mnu_dump_parametri"});
        wait_without_reply(ui);
        ui.check("no file is written", lines() == 0);
        restore_line(ui);
        constexpr int whole_image_lines = 51;
        ui.expect("the file is complete once the line is back",
                  [&] { return lines() == whole_image_lines; });
        ui.wait_idle();
        return_home(ui);
    });
}

void in_the_tuning(Ui& ui) {
    const auto running = [&] { return ui.visible("lbl_tuning"); };
    phase(ui, "tuning", [&] {
        // Near the end, so that few rounds are needed.
        ui.drag("Slider_ktar", 1470);
        ui.wait_idle();
        ui.press(Qt::Key_T, Qt::ControlModifier);
        ui.answer_box("Automatic Tuning System", "Yes");
        ui.expect("the run begins", running);
        rest(6000);
        break_line(ui);
        wait_without_reply(ui);
        ui.check("the run waits for its samples", running());
        restore_line(ui);
        constexpr int longest_run_ms = 240000;
        ui.expect(
            "the run comes to its end", [&] { return ui.box_open() || !running(); },
            longest_run_ms);
        if (ui.box_open()) ui.answer("OK");
        ui.expect("the tuning line disappears", [&] { return !running(); });
        rest(2500); // the run's last wait
        expect_values(ui);
    });
}

void in_the_reset_request(Ui& ui) {
    phase(ui, "factory reset, request", [&] {
        break_line(ui);
        ask_for_reset(ui);
        wait_without_reply(ui);
        ui.check("no box says that the reset is done", !ui.box_open());
        restore_line(ui);
        end_reset(ui);
        ui.given("a factory value", 121, 1400);
        ui.given("the last cell", 170, 100);
    });
}

// A write is never confirmed: the reset ends normally, and lost writes stay lost.
void in_the_reset_writes(Ui& ui) {
    phase(ui, "factory reset, writes", [&] {
        ask_for_reset(ui);
        rest(6500); // the unit has the request, and the tool sends single values
        ui.unit.type("memory 22 1");
        ui.unit.type("memory 170 90");
        ui.expect(
            "the last single value comes", [&] { return ui.unit.parameter(22) == 800; }, 20000);
        break_line(ui);
        end_reset(ui);
        ui.check("the last cell was lost", ui.unit.parameter(170) == 90);
    });
}

} // namespace zol::rough
