#include "calibration/lambda_panel.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/entry_field.h"
#include "link/parameter_catalogue.h"
#include "link/parameter_mirrors.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::calibration {
namespace {

using app::state;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
namespace par = link::par;

void show_busy() { view::set_pointer(form1::Form1, Pointer::hourglass); }

void hold_reads(int ms) {
    form1::Timer3.off();
    wait_ms(ms);
}

void resume_reads() {
    form1::Timer3.on();
    view::set_pointer(form1::Form1, Pointer::normal);
    view::set_focus(form1::cmd_focus);
}

void write(int parameter, double& mirror, double value, int settle_ms) {
    mirror = value;
    link::send_parameter(parameter, value);
    wait_ms(settle_ms);
}

void direction_clicked(double direct) {
    if (state.ui_loading) return;
    show_busy();
    hold_reads(200);
    write(par::lambda_direction, mirrors.lambda_direction, direct, 200);
    resume_reads();
}

void control_clicked(double on) {
    if (state.ui_loading) return;
    hold_reads(200);
    show_busy();
    write(par::lambda_control, mirrors.lambda_control, on, 200);
    resume_reads();
}

// Sets both limits to the initial value for the chosen kind of sensor.
void reset_limits(double limit_mv, int settle_ms) {
    const std::string shown = app::number_text(limit_mv);
    view::set_text(form1::Text_lambda_closed_loop, shown);
    write(par::lambda_closed_loop_max, mirrors.lambda_closed_loop_max, limit_mv, settle_ms);
    view::set_text(form1::Text_lambda_open_loop, shown);
    write(par::lambda_open_loop_max, mirrors.lambda_open_loop_max, limit_mv, settle_ms);
}

void voltage_clicked() {
    if (state.ui_loading) return;
    hold_reads(200);
    show_busy();
    reset_limits(400, 200);
    write(par::lambda_input_kind, mirrors.lambda_input_kind, 0, 200);
    resume_reads();
}

// Waits longer than voltage_clicked(), and shows the hourglass only before the last write.
void current_clicked() {
    if (state.ui_loading) return;
    hold_reads(500);
    reset_limits(1000, 500);
    show_busy();
    write(par::lambda_input_kind, mirrors.lambda_input_kind, 1, 500);
    resume_reads();
}

void field_done() {
    view::set_focus(form1::cmd_focus);
    form1::Timer3.on();
}

const link::EntryField closed_loop_field = {
    .field = form1::Text_lambda_closed_loop,
    .parameter = par::lambda_closed_loop_max,
    .mirror = mirrors.lambda_closed_loop_max,
    .settle_ms = 200,
    .wait_timer = form1::Timer2,
    .before =
        [] {
            form1::Timer2.off(); // ends a wait that is running
            hold_reads(200);
        },
    .done = field_done,
};

const link::EntryField open_loop_field = {
    .field = form1::Text_lambda_open_loop,
    .parameter = par::lambda_open_loop_max,
    .mirror = mirrors.lambda_open_loop_max,
    .settle_ms = 200,
    .wait_timer = form1::Timer2,
    .before = [] { hold_reads(200); },
    .done = field_done,
};

} // namespace

void connect_lambda_panel() {
    form1::lambda_dir.on.click = [] { direction_clicked(1); };
    form1::lambda_inv.on.click = [] { direction_clicked(0); };
    form1::Option_abi_controllo_lambda.on.click = [] { control_clicked(1); };
    form1::Option_disa_controllo_lambda.on.click = [] { control_clicked(0); };
    form1::Option_tens.on.click = voltage_clicked;
    form1::Option_corr.on.click = current_clicked;
    link::connect_entry_field(closed_loop_field);
    link::connect_entry_field(open_loop_field);
    using app::note_parameters;
    for (view::Widget* option : {&form1::lambda_dir, &form1::lambda_inv})
        note_parameters(*option, {par::lambda_direction});
    for (view::Widget* option :
         {&form1::Option_abi_controllo_lambda, &form1::Option_disa_controllo_lambda})
        note_parameters(*option, {par::lambda_control});
    for (view::Widget* option : {&form1::Option_tens, &form1::Option_corr})
        note_parameters(*option, {par::lambda_closed_loop_max, par::lambda_open_loop_max,
                                  par::lambda_input_kind});
}

} // namespace zol::calibration
