#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

struct Panel {
    const char* button;
    const char* frame;
    const char* name;
};

constexpr Panel panels[] = {
    {"Command_impostazioni", "Frame_impostazioni", "settings"},
    {"Command_lambda", "Frame_Lambda", "lambda"},
    {"Command_diagnosi", "Frame_diagnosi", "diagnosis"},
    {"Command_engine", "frame_engine", "engine"},
};

void look_at_windows(Hands& hands, const std::string& code) {
    hands.click("Command303");
    hands.until([&] { return hands.shown("Form3"); });
    Hands::rest(300);
    hands.picture(code + "-changeover");
    hands.click("Command1", "Form3");
    hands.until([&] { return !hands.shown("Form3"); });
    Hands::rest(400);
}

} // namespace

void look_at_languages(Hands& hands, UnitProcess&) {
    for (const char* code : {"it", "pl", "fr", "de", "uk"}) {
        hands.menu({"mnu_Lingua", code});
        Hands::rest(300);
        hands.see(std::string("the language is ticked: ") + code, hands.ticked(code));
        for (const Panel& panel : panels) {
            go_to(hands, panel.button, panel.frame);
            // Closing the window activates the main one, which then captions its button anew.
            if (panel.name == std::string("settings")) look_at_windows(hands, code);
            hands.picture(std::string(code) + "-" + panel.name);
        }
    }
    hands.see("the captions are English again", hands.text("Command_engine") == "ENGINE");
}

} // namespace zol::tour
