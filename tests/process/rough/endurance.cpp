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

// False if the panel is not shown.
bool switch_to(Ui& ui, const Panel& to) {
    ui.click(to.button);
    return ui.wait_until([&] { return ui.visible(to.panel); });
}

} // namespace

// Fonts, menus and panels stay in memory once loaded. The endurance is measured after that.
void warm_up(Ui& ui) {
    for (int turn = 0; turn < 5; ++turn)
        for (const Panel& panel : panels)
            ui.check("a panel is shown", switch_to(ui, panel));
    return_home(ui);
    check_responsive(ui, "at the start");
    ui.unit.type("throttle 40");
    rest(15000);
    ui.unit.type("throttle 0");
    expect_values(ui);
}

void reconnect_often(Ui& ui) {
    constexpr int times = 50;
    measured(ui, "50 times the adapter pulled and put back", 2, [&] {
        int came = 0;
        for (int time = 0; time < times; ++time) {
            ui.unit.type("unplug");
            rest(500 + time * 10); // at another time of the polling's cycle
            ui.unit.type("plug");
            came += telegram_comes(ui);
        }
        ui.check("values are updated after each reconnection", came == times);
    });
}

void switch_panels_often(Ui& ui) {
    constexpr int times = 200;
    measured(ui, "200 panel switches", 2, [&] {
        int came = 0;
        for (std::size_t time = 0; time < times; ++time) {
            came += switch_to(ui, panels[time % panels.size()]);
            rest(static_cast<int>(time % 5) * 150); // also during the waits of a switch
        }
        ui.check("each panel is shown", came == times);
        return_home(ui);
    });
}

void poll_for_long(Ui& ui) {
    using clock = std::chrono::steady_clock;
    const std::string what = std::to_string(polling_minutes) + " minutes of polling";
    measured(ui, what, 2, [&] {
        const auto end = clock::now() + std::chrono::minutes(polling_minutes);
        int asked = 0, came = 0;
        while (clock::now() < end) {
            ui.unit.type("throttle " + std::to_string(asked % 5 * 10)); // every field changes
            ++asked;
            came += telegram_comes(ui);
            rest(2000);
        }
        ui.check("values are updated all the time", came == asked);
    });
}

} // namespace zol::rough
