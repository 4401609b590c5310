#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

namespace zol::rough {

using tour::given;
using tour::go_to;

// Each request of the first read is lost once. The program asks on, with the splash window on view.
void in_first_read(Hands& hands, UnitProcess& unit) {
    constexpr int longest_wait_ms = 10000;
    hands.see("the splash window comes", hands.until([&] { return hands.shown("frmSplash"); }));
    for (const char* request : {"version", "image"}) {
        hands.see(std::string("the unit is asked for its ") + request,
                  unit.says(request, longest_wait_ms));
        strike(unit);
        Hands::rest(4500);
        hands.see("the first read goes on", hands.shown("frmSplash"));
        mend(unit);
    }
    hands.see("the unit is read",
              hands.until([&] { return !hands.shown("frmSplash"); }, 2 * longest_wait_ms));
    unit.type("log off");
    hands.see("no connection dialog", !hands.shown("Centralina_Attiva"));
    hands.see("values come", telegram_comes(hands, unit));
}

void see_a_box(Hands& hands, UnitProcess& unit) {
    hands.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    tour::answer_box(hands, "Reset the control unit", "No");
    come_home(hands);
    hands.see("values come back by the engine button", telegram_comes(hands, unit));
}

void while_polling(Hands& hands, UnitProcess& unit) {
    phase(hands, "polling", [&] {
        strike(unit);
        Hands::rest(2000);
        see_it_alive(hands, "while no telegram comes");
        hands.see("values stand still", !telegram_comes(hands, unit, 1500));
        mend(unit);
        hands.see("values come back by themselves", telegram_comes(hands, unit));
    });
}

void with_a_menu_open(Hands& hands, UnitProcess& unit) {
    phase(hands, "menu open", [&] {
        hands.menu({"mnu_Impostazioni"});
        strike(unit);
        Hands::rest(2000);
        hands.see("the menu stays", hands.menu_open());
        mend(unit);
        hands.see("values come back behind it", telegram_comes(hands, unit));
        hands.leave_menus();
        hands.see("the menu goes", !hands.menu_open());
    });
}

void in_the_panels(Hands& hands, UnitProcess& unit) {
    phase(hands, "panels", [&] {
        go_to(hands, "Command_impostazioni", "Frame_impostazioni");
        strike(unit);
        Hands::rest(300);
        hands.enter("text_temp_comm", "37");
        hands.until_idle();
        hands.see("the field takes the number", hands.text("text_temp_comm") == "37");
        hands.see("the unit does not", unit.parameter(15) != 37);
        go_to(hands, "Command_lambda", "Frame_Lambda");
        go_to(hands, "Command_diagnosi", "Frame_diagnosi");
        go_to(hands, "Command_impostazioni", "Frame_impostazioni");
        mend(unit);
        Hands::rest(300);
        hands.enter("text_temp_comm", "36");
        given(hands, unit, "once more, with the line back", 15, 36);
        hands.until_idle();
        come_home(hands);
        hands.see("values come back by the engine button", telegram_comes(hands, unit));
    });
}

void in_the_changeover_windows_load(Hands& hands, UnitProcess& unit) {
    phase(hands, "changeover window's load", [&] {
        go_to(hands, "Command_impostazioni", "Frame_impostazioni");
        hands.click("Command303");
        strike(unit);
        hands.see("the window comes", hands.until([&] { return hands.shown("Form3"); }));
        Hands::rest(1000);
        const int before = unit.parameter(41);
        const bool by_speed = before == 5;
        hands.click(by_speed ? "Option1" : "Option2", "Form3");
        Hands::rest(1200);
        hands.see("what is chosen does not arrive", unit.parameter(41) == before);
        mend(unit);
        Hands::rest(300);
        hands.click("Option3", "Form3");
        given(hands, unit, "what is chosen with the line back", 41, 2);
        Hands::rest(1200);
        hands.click("Command1", "Form3");
        hands.see("the window goes", hands.until([&] { return !hands.shown("Form3"); }));
        Hands::rest(1000); // its handler has a wait behind that, and locks the main window's writes
        come_home(hands);
        hands.see("values come back by the engine button", telegram_comes(hands, unit));
    });
}

void during_a_write(Hands& hands, UnitProcess& unit) {
    phase(hands, "write", [&] {
        hands.drag("Slider_ktar", 1300);
        hands.until_idle();
        given(hands, unit, "the gain", 3, hands.value("Slider_ktar"));
        hands.drag("Slider_ktar", 1400); // its frames leave 400 ms later
        strike(unit);
        hands.until_idle();
        hands.see("the slider stands where it was left", hands.value("Slider_ktar") > 1380);
        hands.see("the unit keeps the old gain", unit.parameter(3) < 1320);
        see_it_alive(hands, "behind a lost write");
        mend(unit);
        hands.see("values come back by themselves", telegram_comes(hands, unit));
        hands.drag("Slider_ktar", 1450);
        hands.until_idle();
        given(hands, unit, "the gain once more", 3, hands.value("Slider_ktar"));
        hands.see("values come", telegram_comes(hands, unit));
    });
}

void in_the_acquisition(Hands& hands, UnitProcess& unit) {
    const QString window = "acquisizione";
    const auto time = [&] { return hands.text("Label1", window).toInt(); };
    phase(hands, "acquisition", [&] {
        hands.click("Command5");
        hands.see("the window comes", hands.until([&] { return hands.shown(window); }));
        unit.type("throttle 60");
        hands.see("the time rises", hands.until([&] { return time() > 4000; }));
        strike(unit);
        Hands::rest(1500);
        const int before = time();
        unit.type("throttle 0");
        Hands::rest(2000);
        hands.see("the time stands still", time() == before);
        mend(unit);
        hands.see("and falls when the line is back", hands.until([&] { return time() < 4000; }));
        hands.click("Command_chiudi", window);
        hands.see("the window goes", hands.until([&] { return !hands.shown(window); }));
        hands.see("values come back by themselves", telegram_comes(hands, unit));
        // The main window, come to again, has read the unit anew by then; only behind that does the
        // handler of the button bring the engine panel back.
        Hands::rest(2000);
    });
}

void for_a_minute(Hands& hands, UnitProcess& unit) {
    strike(unit);
    Hands::rest(1000);
    const double share = measured(hands, std::string(fault->name) + ", out for a minute", 1,
                                  [] { Hands::rest(60000); });
    hands.see("a dead line costs less than 1 % of a processor", share < 1);
    mend(unit);
    hands.see("values come back by themselves", telegram_comes(hands, unit));
}

} // namespace zol::rough
