#include "link/device_identity.h"
#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

namespace zol::rough {
namespace {

namespace fs = std::filesystem;

constexpr int gain = 3;

bool is_asked(int most_ms) { return other_car->says("  tool  ", most_ms); }

} // namespace

void start_other_car(const fs::path& unit_program, const fs::path& out) {
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

void stop_other_car() {
    other_car.reset();
    link::machine_state.root = "/";
}

void keep_off_the_other_car(Ui& ui) {
    const int gain_before = other_car->parameter(gain);
    ui.check("the other car's unit answers", gain_before > 0);
    ui.check("the other car is connected at the usual device",
             fs::exists(link::machine_state.root / "dev/ttyUSB0"));
    other_car->type("log on");
    ui.unit.type("unplug");
    ui.check("the polling does not ask the other car", !is_asked(6000));
    ui.press(Qt::Key_Left);
    ui.wait_idle();
    ui.go_to("Command_diagnosi", "Frame_diagnosi");
    ui.click("cmd_richiesta_par_diagnosi");
    ui.check("the fault read does not ask the other car", !is_asked(4000));
    ui.check("the other car keeps its gain", other_car->parameter(gain) == gain_before);
    ui.unit.type("plug");
    ui.expect("the faults are read once the unit is back",
              [&] { return ui.enabled("cmd_richiesta_par_diagnosi"); });
    return_home(ui);
    ui.check("the other car was never asked", !is_asked(200));
}

} // namespace zol::rough
