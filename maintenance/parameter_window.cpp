#include "maintenance/parameter_window.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/style.h"

#include <string>

namespace zol::maintenance {
namespace {

using namespace form2;
using link::mirrors;
using link::Parameter;
using link::parameter;
using link::wait_ms;
namespace par = link::par;

double to_tens(double number) { return app::round_half_even(number / 10) * 10; }

double as_it_is(double number) { return number; }

struct Line {
    view::Widget& label;
    const Parameter& parameter;
    double (*shown)(double);
};

const Line lines[] = {
    {Label1, parameter(par::injector_latency), to_tens},
    {Label2, parameter(par::injector_opening), as_it_is},
    {Label3, parameter(par::injector_constant), as_it_is},
    {Label4, parameter(par::changeover_rpm), as_it_is},
    {Label5, parameter(par::cut_off_rpm), as_it_is},
    {Label6, parameter(par::cut_off_inj_time), to_tens},
};

void window_loads() {
    view::set_back(Form2, windows::claret);
    for (const Line& line : lines)
        view::set_back(line.label, windows::claret);
    for (const Line& line : lines)
        view::set_text(line.label,
                       "PAR_" + std::to_string(line.parameter.number) + " = " +
                           app::number_text(line.shown(mirrors.*line.parameter.mirror)));
}

// Runs for every way of closing the window.
void restart_polling() {
    wait_ms(100);
    app::state.ui_loading = false;
    monitor::start_polling();
    wait_ms(100);
    view::set_focus(form1::Text2);
}

} // namespace

void connect_parameter_window() {
    Form2.on.load = window_loads;
    Form2.on.unload = [] { view::post(restart_polling); };
    cmd_exit.on.click = [] { view::unload(Form2); };
    for (const Line& line : lines)
        app::note_parameters(line.label, {line.parameter.number});
}

} // namespace zol::maintenance
