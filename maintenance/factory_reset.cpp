#include "maintenance/factory_reset.h"

#include "app/message_catalogue.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "monitor/polling.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <vector>

namespace zol::maintenance {
namespace {

using link::Command;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
using P = link::ParameterMirrors;

struct Default {
    int parameter;
    int value;
    double P::*mirror = nullptr;
};

// In the order of writing. Four values go into the one mirror of PAR_128, which thus holds 8000
// when all is done, whatever the unit holds.
constexpr Default defaults[] = {
    {106, 50, &P::low_pressure_delay},
    {51, 50, &P::calibration_temperature},
    {52, 2, &P::temperature_correction},
    {30, 3900, &P::tank_min_mv},
    {31, 4200, &P::tank_max_mv},
    {32, 3, &P::tank_threshold_1},
    {33, 25, &P::tank_threshold_2},
    {34, 50, &P::tank_threshold_3},
    {35, 75, &P::tank_threshold_4},
    {61, 0},
    {23, 0, &P::modular_changeover},
    {101, 20, &P::attenuation},
    {103, 50, &P::par_103},
    {104, 1200, &P::calibration_pressure},
    {1, 10, &P::rpm_multiplier},
    {107, 800, &P::injector_latency},
    {120, 1},
    {121, 1400, &P::changeover_rpm},
    {123, 500, &P::cut_off_inj_time},
    {124, 1500},
    {125, 1500},
    {127, 0},
    {128, 0, &P::reference_inj_threshold},
    {129, 1001, &P::reference_inj_threshold},
    {215, 30000, &P::par_215},
    {202, 2000, &P::reference_inj_threshold},
    {201, 8000, &P::reference_inj_threshold},
    {140, 15},
    {141, 15},
    {54, 60},
    {55, 20},
    {45, 1},
    {143, 0},
    {14, 5},
    {19, 250},
    {20, 0},
    {21, 0},
    {22, 800},
};

constexpr int correction_cell_default = 100;

// The correction cells, from first to last number of each run.
constexpr struct {
    int first, last;
} correction_cell_runs[] = {{74, 98}, {108, 109}, {111, 119}, {159, 170}};

std::vector<int> correction_cells() {
    std::vector<int> cells;
    for (const auto& run : correction_cell_runs)
        for (int number = run.first; number <= run.last; ++number)
            cells.push_back(number);
    return cells;
}

// A language without the question still gets one, by the menu's own word: nothing is reset unasked.
bool fitter_says_yes() {
    const auto question = app::message(1252);
    return view::message_box({.text = question.value_or(view::text(form1::mnu_reset_centralina)),
                              .title = "",
                              .buttons = view::Buttons::yes_no,
                              .icon = view::Icon::question}) == view::Answer::yes;
}

// Asks until the unit says that it resets itself.
void reset_unit() {
    for (;;) {
        wait_ms(400);
        link::send_command(Command::reset);
        wait_ms(600);
        const link::Reply reply = link::read_reply();
        const bool good_length = reply.length() == 5 || reply.length() == 6;
        if (good_length && reply.echoes(Command::reset)) return;
    }
}

void write_defaults() {
    for (const Default& d : defaults) {
        if (d.mirror) mirrors.*d.mirror = d.value;
        link::send_parameter(d.parameter, d.value);
        wait_ms(100);
    }
}

} // namespace

void reset_control_unit() {
    const std::vector<int> cells = correction_cells();
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling();
    if (fitter_says_yes()) {
        view::set_pointer(form1::Form1, Pointer::hourglass);
        reset_unit();
        // The unit starts anew in this time.
        wait_ms(1200);
        wait_ms(1800);
        view::set_pointer(form1::Form1, Pointer::hourglass);
        write_defaults();
        for (const int cell : cells)
            link::write_parameter(cell, correction_cell_default);
        view::message_box({.text = "FINE RESET ECU", .title = "", .icon = view::Icon::information});
    }
    view::set_pointer(form1::Form1, Pointer::normal);
}

void send_reset_only() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling();
    wait_ms(400);
    link::send_command(Command::reset);
    wait_ms(400);
    view::set_pointer(form1::Form1, Pointer::normal);
}

void connect_factory_reset() { form1::mnu_reset_centralina.on.click = reset_control_unit; }

} // namespace zol::maintenance
