#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

#include <array>
#include <chrono>

namespace zol::rough {
namespace {

struct Panel {
    const char *button, *panel;
};
constexpr std::array panels = {
    Panel{"Command_impostazioni", "Frame_impostazioni"}, Panel{"Command_engine", "frame_engine"},
    Panel{"Command_lambda", "Frame_Lambda"}, Panel{"Command_diagnosi", "Frame_diagnosi"}};

// False if the panel does not come.
bool switch_to(Hands& hands, const Panel& to) {
    hands.click(to.button);
    return hands.until([&] { return hands.visible(to.panel); });
}

} // namespace

// What is loaded once stays: fonts, menus, panels. The endurance is measured from there.
void warm_up(Hands& hands, UnitProcess& unit) {
    for (int turn = 0; turn < 5; ++turn)
        for (const Panel& panel : panels)
            hands.see("a panel comes", switch_to(hands, panel));
    come_home(hands);
    see_it_alive(hands, "at the start");
    unit.type("throttle 40");
    Hands::rest(15000);
    unit.type("throttle 0");
    hands.see("values come", telegram_comes(hands, unit));
}

void reconnect_often(Hands& hands, UnitProcess& unit) {
    constexpr int times = 50;
    measured(hands, "50 times the adapter pulled and put back", 2, [&] {
        int came = 0;
        for (int time = 0; time < times; ++time) {
            unit.type("unplug");
            Hands::rest(500 + time * 10); // at ever other places of the polling's cycle
            unit.type("plug");
            came += telegram_comes(hands, unit);
        }
        hands.see("values come back each time", came == times);
    });
}

void switch_panels_often(Hands& hands, UnitProcess& unit) {
    constexpr int times = 200;
    measured(hands, "200 panel switches", 2, [&] {
        int came = 0;
        for (std::size_t time = 0; time < times; ++time) {
            came += switch_to(hands, panels[time % panels.size()]);
            Hands::rest(static_cast<int>(time % 5) * 150); // also in the middle of a switch's waits
        }
        hands.see("each panel comes on view", came == times);
        come_home(hands);
        hands.see("values come back", telegram_comes(hands, unit));
    });
}

void poll_for_long(Hands& hands, UnitProcess& unit) {
    using clock = std::chrono::steady_clock;
    const std::string what = std::to_string(polling_minutes) + " minutes of polling";
    measured(hands, what, 2, [&] {
        const auto end = clock::now() + std::chrono::minutes(polling_minutes);
        int asked = 0, came = 0;
        while (clock::now() < end) {
            unit.type("throttle " + std::to_string(asked % 5 * 10)); // every field keeps changing
            ++asked;
            came += telegram_comes(hands, unit);
            Hands::rest(2000);
        }
        hands.see("values come all the time", came == asked);
    });
}

} // namespace zol::rough
