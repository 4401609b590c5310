#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

// One option of the window: what it gives the unit, and how long its handler takes.
struct Choice {
    const char* option;
    int number, value;
    int settle_ms;
};

constexpr Choice choices[] = {
    {"opt_acc", 122, 3, 700},
    {"opt_norm", 122, 0, 1300},
    {"opt_perm", 122, 1, 700},
    {"Option1", 41, 7, 1000},
    {"Option3", 41, 2, 1100},
    {"Option2", 41, 5, 1000},
    {"Option_comm_auto_no", 105, 0, 300},
    {"Option_comm_auto_yes", 105, 1, 300},
};

struct Field {
    const char* name;
    const char* typed;
    int number, value;
};

constexpr Field fields[] = {
    {"Text_rpm", "1600", 121, 1600}, {"Text_press_comm", "700", 22, 700},
    {"Text_123", "640", 123, 640},   {"Text_124", "1800", 124, 1800},
    {"Text1", "6789", 47, 678},      {"Text2", "250", 53, 2},
};

} // namespace

void visit_changeover_window(Hands& hands, UnitProcess& unit) {
    go_to(hands, "Command_impostazioni", "Frame_impostazioni");
    hands.click("Command303");
    hands.see("the changeover window opens", hands.until([&] { return hands.shown("Form3"); }));
    Hands::rest(500);
    hands.see("the main window waits meanwhile", !hands.enabled("Form1"));
    hands.see("a unit of this version has a petrol cut-off",
              hands.visible("Frame_cut_benz", "Form3"));
    hands.picture("changeover");
    for (const Choice& choice : choices) {
        hands.click(choice.option, "Form3");
        given(hands, unit, choice.option, choice.number, choice.value);
        const bool automatic = choice.number == 105;
        if (automatic)
            hands.see("the delay goes with the automatic changeover",
                      hands.enabled("Slider2", "Form3") == (choice.value == 1));
        Hands::rest(choice.settle_ms);
    }
    given(hands, unit, "the normal changeover ends the modular one", 23, 0);
    hands.drag("Slider2", 2, "Form3");
    given(hands, unit, "the delay on low pressure", 106, 500);
    hands.until_idle("Form3");
    for (const Field& field : fields) {
        hands.enter(field.name, field.typed, "Form3");
        given(hands, unit, field.name, field.number, field.value);
        hands.until_idle("Form3");
    }
    hands.picture("changeover-set");
    hands.click("Command1", "Form3");
    hands.see("the changeover window closes", hands.until([&] { return !hands.shown("Form3"); }));
    hands.see("the main window answers again", hands.until([&] { return hands.enabled("Form1"); }));
    Hands::rest(500);
    go_home(hands);
}

} // namespace zol::tour
