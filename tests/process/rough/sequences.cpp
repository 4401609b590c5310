#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

#include <algorithm>

namespace zol::rough {

using tour::answer_box;
using tour::given;
using tour::go_to;

namespace {

// The unit is asked until it answers, with no word, and the windows live.
void be_asked_in_vain(Hands& hands) {
    Hands::rest(3500);
    see_it_alive(hands, "while the unit is asked in vain");
}

void ask_for_reset(Hands& hands) {
    hands.menu({"mnu_Impostazioni", "mnu_reset_centralina"});
    answer_box(hands, "Reset the control unit", "Yes");
}

void end_reset(Hands& hands, UnitProcess& unit) {
    constexpr int longest_reset_ms = 60000;
    answer_box(hands, "FINE RESET ECU", "OK", {}, longest_reset_ms);
    hands.until_idle();
    mend(unit);
    come_home(hands);
    hands.see("values come back by the engine button", telegram_comes(hands, unit));
}

} // namespace

void in_the_fault_read(Hands& hands, UnitProcess& unit) {
    const auto read = [&] { return hands.enabled("cmd_richiesta_par_diagnosi"); };
    phase(hands, "fault read", [&] {
        unit.type("fault clear");
        unit.type("fault add 301");
        go_to(hands, "Command_diagnosi", "Frame_diagnosi");
        strike(unit);
        hands.click("cmd_richiesta_par_diagnosi");
        be_asked_in_vain(hands);
        hands.see("the faults are not read", !read());
        mend(unit);
        hands.see("the faults are read once the line is back", hands.until(read));
        hands.see("the fault is there", hands.text("lbl_par_1") == "P0301");
        unit.type("fault clear");
        come_home(hands);
        hands.see("values come back by the engine button", telegram_comes(hands, unit));
    });
}

void in_the_parameter_file(Hands& hands, UnitProcess& unit) {
    constexpr auto lines = [] {
        const std::string dump = tour::whole_file("\\log\\setting.txt");
        return std::count(dump.begin(), dump.end(), '\n');
    };
    phase(hands, "parameter file", [&] {
        strike(unit);
        hands.menu({"MNU_INFOMATION", "mnu_dump_parametri"});
        be_asked_in_vain(hands);
        hands.see("no file is begun", lines() == 0);
        mend(unit);
        constexpr int whole_image_lines = 51;
        hands.see("the file is whole once the line is back",
                  hands.until([&] { return lines() == whole_image_lines; }));
        hands.until_idle();
        come_home(hands);
        hands.see("values come back by the engine button", telegram_comes(hands, unit));
    });
}

void in_the_tuning(Hands& hands, UnitProcess& unit) {
    const auto running = [&] { return hands.visible("lbl_tuning"); };
    phase(hands, "tuning", [&] {
        // Near the end, so that few rounds are needed.
        hands.drag("Slider_ktar", 1470);
        hands.until_idle();
        hands.press(Qt::Key_T, Qt::ControlModifier);
        answer_box(hands, "Automatic Tuning System", "Yes");
        hands.see("the run begins", hands.until(running));
        Hands::rest(6000);
        strike(unit);
        be_asked_in_vain(hands);
        hands.see("the run waits for its samples", running());
        mend(unit);
        constexpr int longest_run_ms = 240000;
        hands.see("the run comes to its end",
                  hands.until([&] { return hands.box_on_view() || !running(); }, longest_run_ms));
        if (hands.box_on_view()) hands.answer("OK");
        hands.see("its line goes", hands.until([&] { return !running(); }));
        Hands::rest(2500); // the run's last wait
        hands.see("values come back by themselves", telegram_comes(hands, unit));
    });
}

void in_the_reset_request(Hands& hands, UnitProcess& unit) {
    phase(hands, "factory reset, request", [&] {
        strike(unit);
        ask_for_reset(hands);
        be_asked_in_vain(hands);
        hands.see("nothing is said to be reset", !hands.box_on_view());
        mend(unit);
        end_reset(hands, unit);
        given(hands, unit, "a factory value", 121, 1400);
        given(hands, unit, "the last cell", 170, 100);
    });
}

// A write is never confirmed: the run goes to its end, and what was lost stays lost.
void in_the_reset_writes(Hands& hands, UnitProcess& unit) {
    phase(hands, "factory reset, writes", [&] {
        ask_for_reset(hands);
        Hands::rest(6500); // the unit has taken the request and is writing single values
        unit.type("memory 22 1");
        unit.type("memory 170 90");
        hands.see("the last single value comes",
                  hands.until([&] { return unit.parameter(22) == 800; }, 20000));
        strike(unit);
        end_reset(hands, unit);
        hands.see("the last cell was lost", unit.parameter(170) == 90);
    });
}

} // namespace zol::rough
