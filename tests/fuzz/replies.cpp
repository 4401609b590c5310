// Random replies of any length, for any firmware version, to everything that reads a reply: both
// paths of the first read, polling, live diagnosis, lambda panel, faults, acquisition, tuning,
// dump, factory reset, port test.
#include "app/app_state.h"
#include "calibration/automatic_tuning.h"
#include "link/activation.h"
#include "link/first_read.h"
#include "link/parameter_mirrors.h"
#include "maintenance/parameter_dump.h"
#include "monitor/eobd_live.h"
#include "tests/fuzz/program.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <iterator>

namespace zol::fuzz {
namespace {

using app::state;

void polling() { form1::Timer_stato_sistema.tick(); }

void dialog() {
    centralina_attiva::Combo1.on.click = nullptr;
    view::set_items(centralina_attiva::Combo1, {"COM1"});
    view::set_list_index(centralina_attiva::Combo1, 0);
    centralina_attiva::Command_test.on.click();
    centralina_attiva::Command_ok.on.click();
}

void dialog_path_with_windows() {
    link::read_for_dialog();
    form1::Timer1.tick();
    form3::Form3.on.load();
}

void acquisition() {
    acquisizione::acquisizione.on.load();
    for (int tick = 0; tick < 4; ++tick) {
        acquisizione::Timer_tinj.tick();
        acquisizione::Timer_ricerca_max.tick();
    }
    acquisizione::Command_salva.on.click();
}

void lambda_panel() {
    for (int tick = 0; tick < 50; ++tick)
        form1::Timer3.tick();
}

void tuning() {
    view::set_text(form1::Label_temp, "70");
    calibration::tune_automatically();
}

void faults() {
    form1::cmd_richiesta_par_diagnosi.on.click();
    for (view::Widget* label : {&form1::lbl_par_1, &form1::lbl_par_6})
        label->on.click();
}

void (*const readers[])() = {
    [] { link::read_version(); },
    link::read_for_dialog,
    polling,
    [] { monitor::read_eobd_live(); },
    lambda_panel,
    faults,
    acquisition,
    tuning,
    maintenance::dump_parameters,
    [] { form1::mnu_reset_centralina.on.click(); },
    // Slow ones, allowed in every eighth run.
    link::main_window_activated,
    dialog_path_with_windows,
    dialog,
};
constexpr std::size_t quick_readers = std::size(readers) - 3;

// Factory reset and tuning need the most.
constexpr std::size_t most_replies = 48;

} // namespace

void run_input(Input input) {
    Program& program = Program::instance();
    program.run([&] {
        const bool rarely = input.one_in(8);
        const auto reader = readers[input.byte() % (rarely ? std::size(readers) : quick_readers)];
        const int switches = input.byte();
        state.ui_loading = switches & 1;
        state.settings_panel_open = switches & 2;
        state.no_reread = switches & 4;
        state.current_language = switches & 8 ? "uk" : "";
        state.controls_coloured = true; // colouring takes long and reads no reply
        state.tank_type = switches & 16 ? 99 : 0;
        program.port_faults = switches & 32;
        program.port_open = !(switches & 64);
        link::mirrors.pressure_sensor = switches & 128 ? 1 : 0;
        state.ecu_family = input.byte();
        state.ecu_version = input.byte();
        state.ecu_revision = input.byte();
        while (!input.empty() && program.replies.size() < most_replies)
            program.replies.push_back(input.piece());
        reader();
    });
}

} // namespace zol::fuzz
