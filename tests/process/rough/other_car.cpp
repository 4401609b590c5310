#include "link/device_identity.h"
#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

namespace zol::rough {
namespace {

namespace fs = std::filesystem;

constexpr int gain = 3;

bool is_asked(int most_ms) { return other_car->says("  tool  ", most_ms); }

} // namespace

void bring_other_car(const fs::path& unit_program, const fs::path& out) {
    const fs::path machine = out / "machine";
    fs::create_directories(machine / "dev");
    for (const char* system_folder : {"proc", "sys"})
        if (!fs::exists(machine / system_folder))
            fs::create_directory_symlink(fs::path("/") / system_folder, machine / system_folder);
    other_car.emplace(unit_program,
                      std::vector<std::string>{"--link", (machine / "dev/ttyUSB0").string(),
                                               "--warm", "--firmware", "2.7.71"});
    link::machine_state.root = machine;
}

void send_other_car_away() {
    other_car.reset();
    link::machine_state.root = "/";
}

void leave_the_other_car_alone(Hands& hands, UnitProcess& unit) {
    const int gain_before = other_car->parameter(gain);
    hands.see("the other car's unit is there", gain_before > 0);
    hands.see("and can be asked at the usual device",
              fs::exists(link::machine_state.root / "dev/ttyUSB0"));
    other_car->type("log on");
    unit.type("unplug");
    hands.see("the polling does not go over to it", !is_asked(6000));
    hands.press(Qt::Key_Left);
    hands.until_idle();
    tour::go_to(hands, "Command_diagnosi", "Frame_diagnosi");
    hands.click("cmd_richiesta_par_diagnosi");
    hands.see("nor does the read of the faults", !is_asked(4000));
    hands.see("it keeps its gain", other_car->parameter(gain) == gain_before);
    unit.type("plug");
    hands.see("the faults are read once the unit is back",
              hands.until([&] { return hands.enabled("cmd_richiesta_par_diagnosi"); }));
    come_home(hands);
    hands.see("values come back by the engine button", telegram_comes(hands, unit));
    hands.see("the other car was never asked", !is_asked(200));
}

} // namespace zol::rough
