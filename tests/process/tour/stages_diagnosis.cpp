#include "tests/process/tour/stages.h"

#include <algorithm>
#include <cmath>

namespace zol::tour {
namespace {

constexpr int first_fault = 145, fault_count = 151;

QString label_with(Hands& hands, const QString& code) {
    for (int place = 1; place <= 6; ++place) {
        const QString label = "lbl_par_" + QString::number(place);
        if (hands.text(label) == code) return label;
    }
    return {};
}

void read(Hands& hands) {
    hands.click("cmd_richiesta_par_diagnosi");
    Hands::rest(1500);
    hands.see("the unit's faults are read",
              hands.until([&] { return hands.enabled("cmd_richiesta_par_diagnosi"); }));
}

void click_protocols(Hands& hands, UnitProcess& unit) {
    constexpr const char* protocols[] = {
        "mnu_KWP2000_fast",   "mnu_KWP2000_slow",   "mnu_iso9141",
        "mnuCAN250KStandard", "mnuCAN250KExtended", "mnuCAN500KStandard",
        "mnuCAN500KExtended", "mnuJ1850vpw",        "mnuJ1850pwm"};
    const int before = unit.parameter(143);
    std::vector<const char*> marked;
    for (const char* protocol : protocols)
        if (hands.ticked(protocol)) marked.push_back(protocol);
    for (const char* protocol : protocols) {
        hands.menu({"mnu_eobd", protocol});
        Hands::rest(250);
    }
    std::vector<const char*> marked_now;
    for (const char* protocol : protocols)
        if (hands.ticked(protocol)) marked_now.push_back(protocol);
    hands.see("a protocol only shows what the unit found", unit.parameter(143) == before);
    hands.see("and its mark stays", marked.size() == 1 && marked_now == marked);
}

// The window asks on until the unit answers, and says so by its pointer and its button.
void wait_for_a_silent_unit(Hands& hands, UnitProcess& unit) {
    unit.type("silence on");
    hands.click("cmd_richiesta_par_diagnosi");
    Hands::rest(4000);
    hands.see("a silent unit is waited for", !hands.enabled("cmd_richiesta_par_diagnosi"));
    hands.picture("faults-asked-for");
    unit.type("silence off");
    hands.see("and read once it answers",
              hands.until([&] { return hands.enabled("cmd_richiesta_par_diagnosi"); }));
}

const QString window = "acquisizione";

void open_acquisition(Hands& hands) {
    hands.click("Command5");
    hands.see("the acquisition window opens", hands.until([&] { return hands.shown(window); }));
}

void close_acquisition(Hands& hands) {
    hands.click("Command_chiudi", window);
    hands.see("the window closes without saving",
              hands.until([&] { return !hands.shown(window); }));
    Hands::rest(900);
}

} // namespace

void read_faults(Hands& hands, UnitProcess& unit) {
    for (const char* command : {"fault clear", "fault add 301", "fault add 1500", "fault add 2004"})
        unit.type(command);
    go_to(hands, "Command_diagnosi", "Frame_diagnosi");
    wait_for_a_silent_unit(hands, unit);
    read(hands);
    hands.see("three faults are counted", hands.text("lbl_num_errori") == "3");
    hands.see("a fault from 1000 to 2000 has no text", hands.text("lbl_par_2").isEmpty());
    hands.see("one above has one", hands.text("lbl_par_3") == "P2004");
    hands.see("an empty place says so", hands.text("lbl_par_4") == "NO ERROR");
    const QString misfire = label_with(hands, "P0301");
    hands.see("the misfire is among the faults", !misfire.isEmpty());
    if (!misfire.isEmpty()) hands.click(misfire);
    hands.see("a click on a code explains it",
              hands.until([&] { return hands.text("Text_note_error").contains("Misfire"); }));
    hands.picture("faults");
    hands.click("Text_note_error");
    hands.see("the note is there to be read", hands.text("Text_note_error").contains("Misfire"));
    hands.click("Command10");
    hands.until([&] { return unit.parameter(fault_count) == 0; });
    hands.until_idle();
    for (int number = first_fault; number <= fault_count; ++number)
        hands.see("the unit's fault places are empty", unit.parameter(number) == 0);
    hands.see("clearing shows noughts", hands.text("lbl_par_1") == "0");
    read(hands);
    hands.see("and the next read none", hands.text("lbl_par_1") == "NO ERROR");
    hands.picture("faults-cleared");
    go_home(hands);
}

void use_eobd_menus(Hands& hands, UnitProcess& unit) {
    const auto settle = [&] {
        hands.until_idle();
        Hands::rest(300);
    };
    hands.menu({"mnu_eobd"});
    hands.picture("eobd-menu");
    hands.leave_menus();
    hands.menu({"mnu_eobd", "mnu_setting_eobd", "mnu_direction_inverse_eobd"});
    settle();
    given(hands, unit, "the trims act inversely", 142, 257);
    hands.see("the mark moves", hands.ticked("mnu_direction_inverse_eobd") &&
                                    !hands.ticked("mnu_direction_normal_eobd"));
    hands.menu({"mnu_eobd", "mnu_setting_eobd", "mnu_direction_normal_eobd"});
    settle();
    given(hands, unit, "the trims act normally", 142, 0);
    hands.menu({"mnu_eobd", "mnu_debug_error", "mnu_debug_yes"});
    settle();
    given(hands, unit, "debug on", 153, 1);
    given(hands, unit, "and its flag", 20, 1);
    hands.see("the debug mark moves", hands.ticked("mnu_debug_yes"));
    hands.menu({"mnu_eobd", "mnu_debug_error", "mnu_debug_no"});
    settle();
    given(hands, unit, "debug off", 153, 0);
    given(hands, unit, "and its flag", 20, 0);
    click_protocols(hands, unit);
    hands.menu({"mnu_eobd", "mnu_search"});
    Hands::rest(800);
    hands.see("the search ends on the car's protocol",
              hands.until(
                  [&] {
                      const int protocol = unit.parameter(143);
                      return protocol >= 2 && protocol <= 10;
                  },
                  20000));
    hands.see("live data from the car come back",
              hands.until([&] { return hands.text("Label1").contains("LOOP"); }, 20000));
}

void acquire_injection_time(Hands& hands, UnitProcess& unit) {
    open_acquisition(hands);
    unit.type("throttle 80");
    const auto present = [&] { return hands.text("Label1", window).toInt(); };
    const auto highest = [&] { return hands.text("Label_max", window).toInt(); };
    hands.see("the highest injection time is kept", hands.until([&] { return highest() > 5000; }));
    Hands::rest(1000);
    unit.type("throttle 0");
    hands.see("while the present one falls again",
              hands.until([&] { return present() < highest() / 2; }));
    hands.picture("acquisition");
    hands.click("Command_salva", window);
    hands.see("saving closes the window", hands.until([&] { return !hands.shown(window); }, 8000));
    const int upper = unit.parameter(6), reached = upper - 2000;
    hands.see("the upper point lies 2000 above the highest", reached > 5000 && reached < 12000);
    given(hands, unit, "the upper point", 6, upper);
    given(hands, unit, "the lower point", 5, static_cast<int>(std::nearbyint(reached / 2.0 - 500)));
    given(hands, unit, "the third point", 7,
          static_cast<int>(std::nearbyint(reached - upper * 3 / 10.0)));
    Hands::rest(1500);
    open_acquisition(hands);
    hands.see("the saved value is shown", hands.until([&] {
        return hands.text("Label2", window) == "saved:  " + QString::number(upper);
    }));
    Hands::rest(600);
    hands.click("Command_reset", window);
    Hands::rest(300);
    hands.see("the highest begins again", hands.text("Label_max", window).toInt() < 5000);
    close_acquisition(hands);
    hands.see("live values flow again", values_flow(hands, unit));
    open_acquisition(hands);
    Hands::rest(600);
    hands.close(window);
    hands.see("the window's own frame closes it too",
              hands.until([&] { return !hands.shown(window); }));
    hands.see("the main window answers again", hands.until([&] { return hands.enabled("Form1"); }));
    go_home(hands);
    hands.see("the engine button brings the values back", values_flow(hands, unit));
}

} // namespace zol::tour
