#include "tests/process/rough/faults.h"
#include "tests/process/rough/port_holder.h"
#include "tests/process/tour/stages.h"

#include "app/application_folder.h"

namespace zol::rough {
namespace {

const QString dialog = "Centralina_Attiva";

void test(Ui& ui, const QString& result) {
    ui.click("Command_test", dialog);
    rest(400);
    ui.expect("the port test shows " + result.toStdString(),
              [&] { return ui.text("Label2", dialog) == result; });
}
void test_fails(Ui& ui) { test(ui, "- TEST FALLITO -"); }
void test_is_good(Ui& ui) { test(ui, "- OK TEST ESEGUITO -"); }

void dialog_comes(Ui& ui) { ui.expect_shown(dialog); }
void dialog_goes(Ui& ui) { ui.expect_gone(dialog, 20000); }
void main_window_answers(Ui& ui) {
    ui.expect(
        "the main window answers again", [&] { return ui.enabled("Form1"); }, 8000);
}

} // namespace

void in_the_connection_dialog(Ui& ui) {
    if (fault == &gone_adapter) ui.answer_box("No such file or directory", "OK");
    dialog_comes(ui);
    test_fails(ui);
    restore_line(ui);
    rest(300);
    ui.click("Command_test", dialog);
    rest(1000); // during the second of its two requests
    break_line(ui);
    ui.expect("a test that loses the unit fails",
              [&] { return ui.text("Label2", dialog) == "- TEST FALLITO -"; });
    ui.check("OK is disabled until a port test succeeds", !ui.enabled("Command_ok", dialog));
    restore_line(ui);
    rest(300);
    test_is_good(ui);
    break_line(ui);
    ui.click("Command_ok", dialog);
    rest(4000);
    ui.check("the request is repeated", ui.shown(dialog));
    restore_line(ui);
    dialog_goes(ui);
    break_line(ui);
    main_window_answers(ui);
    rest(500);
    check_responsive(ui, "with the line lost after the dialog");
    restore_line(ui);
    expect_values(ui);
}

void with_a_busy_port(Ui& ui) {
    ui.answer_box("Device or resource busy", "OK");
    dialog_comes(ui);
    test_fails(ui);
    holder->release();
    rest(300);
    test_is_good(ui);
    ui.click("Command_ok", dialog);
    dialog_goes(ui);
    main_window_answers(ui);
    expect_values(ui);
}

void with_a_port_busy_later(Ui& ui) {
    measured(ui, "port busy while the adapter was out", 2, [&] {
        // The tool tries to open its device too, but less often. Repeat until the other program
        // wins.
        for (int tries = 0; tries < 5; ++tries) {
            ui.unit.type("unplug");
            rest(500);
            const PortHolder other(app::application_file("\\ports\\com1"));
            ui.unit.type("plug");
            if (!other.holds_within(1000)) continue;
            check_responsive(ui, "with its port busy");
            expect_no_values(ui);
            other.release();
            expect_values(ui);
            return;
        }
        ui.check("the other program gets the port", false);
    });
}

} // namespace zol::rough
