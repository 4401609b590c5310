#include "tests/process/rough/faults.h"
#include "tests/process/rough/port_holder.h"
#include "tests/process/tour/stages.h"

#include "app/application_folder.h"

namespace zol::rough {
namespace {

const QString dialog = "Centralina_Attiva";

void test(Hands& hands, const QString& result) {
    hands.click("Command_test", dialog);
    Hands::rest(400);
    hands.see("the port's test ends with " + result.toStdString(),
              hands.until([&] { return hands.text("Label2", dialog) == result; }));
}
void test_fails(Hands& hands) { test(hands, "- TEST FALLITO -"); }
void test_is_good(Hands& hands) { test(hands, "- OK TEST ESEGUITO -"); }

void dialog_comes(Hands& hands) {
    hands.see("the connection dialog comes", hands.until([&] { return hands.shown(dialog); }));
}
void dialog_goes(Hands& hands) {
    hands.see("the dialog goes when the unit has been read",
              hands.until([&] { return !hands.shown(dialog); }, 20000));
}
void main_window_answers(Hands& hands) {
    hands.see("the main window answers again",
              hands.until([&] { return hands.enabled("Form1"); }, 8000));
}

} // namespace

void in_the_connection_dialog(Hands& hands, UnitProcess& unit) {
    if (fault == &gone_adapter) tour::answer_box(hands, "No such file or directory", "OK");
    dialog_comes(hands);
    test_fails(hands);
    mend(unit);
    Hands::rest(300);
    hands.click("Command_test", dialog);
    Hands::rest(1000); // the second of its two passes
    strike(unit);
    hands.see("a test that loses the unit fails",
              hands.until([&] { return hands.text("Label2", dialog) == "- TEST FALLITO -"; }));
    hands.see("no way on without a good test", !hands.enabled("Command_ok", dialog));
    mend(unit);
    Hands::rest(300);
    test_is_good(hands);
    strike(unit);
    hands.click("Command_ok", dialog);
    Hands::rest(4000);
    hands.see("the unit is asked on", hands.shown(dialog));
    mend(unit);
    dialog_goes(hands);
    strike(unit);
    main_window_answers(hands);
    Hands::rest(500);
    see_it_alive(hands, "with the line gone behind the dialog");
    mend(unit);
    hands.see("the watchdog brings the values", telegram_comes(hands, unit));
}

void with_the_port_taken(Hands& hands, UnitProcess& unit) {
    tour::answer_box(hands, "Device or resource busy", "OK");
    dialog_comes(hands);
    test_fails(hands);
    holder->let_go();
    Hands::rest(300);
    test_is_good(hands);
    hands.click("Command_ok", dialog);
    dialog_goes(hands);
    main_window_answers(hands);
    hands.see("the watchdog brings the values", telegram_comes(hands, unit));
}

void taken_while_the_adapter_was_out(Hands& hands, UnitProcess& unit) {
    measured(hands, "port taken while the adapter was out", 2, [&] {
        // The tool tries to find its device again as well, though less often: until the other wins.
        for (int tries = 0; tries < 5; ++tries) {
            unit.type("unplug");
            Hands::rest(500);
            const PortHolder other(app::application_file("\\ports\\com1"));
            unit.type("plug");
            if (!other.holds_within(1000)) continue;
            see_it_alive(hands, "with its port taken");
            hands.see("values stand still", !telegram_comes(hands, unit, 1500));
            other.let_go();
            hands.see("values come back when the other lets go", telegram_comes(hands, unit));
            return;
        }
        hands.see("the other program gets the port", false);
    });
}

} // namespace zol::rough
