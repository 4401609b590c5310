#include "maintenance/parameter_window.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "monitor/polling.h"
#include "view/view.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

namespace zol::maintenance {
namespace {

using namespace form2;
using link::mirrors;
using link::wait_ms;

constexpr view::Colour window_red = view::rgb(154, 0, 0);

double to_tens(double number) { return app::round_half_even(number / 10) * 10; }

void show_parameter(view::Widget& label, const char* name, double value) {
    view::set_text(label, name + app::number_text(value));
}

void window_loads() {
    for (view::Widget* w : {&Form2, &Label1, &Label2, &Label3, &Label4, &Label5, &Label6})
        view::set_back(*w, window_red);
    show_parameter(Label1, "PAR_107 = ", to_tens(mirrors.injector_latency));
    show_parameter(Label2, "PAR_202 = ", mirrors.injector_opening);
    show_parameter(Label3, "PAR_200 = ", mirrors.injector_constant);
    show_parameter(Label4, "PAR_121 = ", mirrors.changeover_rpm);
    show_parameter(Label5, "PAR_124 = ", mirrors.cut_off_rpm);
    show_parameter(Label6, "PAR_123 = ", to_tens(mirrors.cut_off_inj_time));
}

void exit_clicked() {
    view::unload(Form2);
    wait_ms(100);
    app::state.ui_loading = false;
    monitor::start_polling();
    wait_ms(100);
    view::set_focus(form1::Text2);
}

} // namespace

void connect_parameter_window() {
    Form2.on.load = window_loads;
    cmd_exit.on.click = exit_clicked;
}

} // namespace zol::maintenance
