#include "calibration/changeover_window.h"

#include "app/app_state.h"
#include "app/captions.h"
#include "app/colours.h"
#include "app/helper_texts.h"
#include "app/message_catalogue.h"
#include "app/numbers.h"
#include "app/window_scaling.h"
#include "link/ecu_frames.h"
#include "link/entry_field.h"
#include "link/parameter_catalogue.h"
#include "link/parameter_mirrors.h"
#include "view/operator.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <cmath>

namespace zol::calibration {
namespace {

using namespace form3;
using app::number_text;
using app::state;
using link::mirrors;
using view::Pointer;
using view::Widget;
namespace par = link::par;

// Waits on the window's own timer.
void wait_ms(int ms) { view::wait_on(Timer2, ms); }

// Opens the port with the number that it already has: the connection dialog may have stored another
// number than the one in use.
void open_closed_port() {
    if (!link::port_is_open()) link::serial_port().open();
}

double tens_rounded(double number) { return app::round_half_even(number / 10) * 10; }
double whole_tens(double typed) { return std::trunc(app::round_half_even(typed) / 10); }

// The minimum is given in hundreds, the input in units: 99 becomes 100 hundreds, and 100 becomes 1
// hundred.
double whole_hundreds(double typed) {
    return typed < 100 ? 100 : std::trunc(app::round_half_even(typed) / 100);
}

link::EntryField entry(Widget& field, int parameter, double& mirror, int settle_ms,
                       double (*as_sent)(double) = nullptr) {
    return {.field = field,
            .parameter = parameter,
            .mirror = mirror,
            .settle_ms = settle_ms,
            .wait_timer = Timer2,
            .before = open_closed_port,
            .as_sent = as_sent};
}

const link::EntryField entries[] = {
    entry(Text_rpm, par::changeover_rpm, mirrors.changeover_rpm, 800),
    entry(Text_press_comm, par::changeover_pressure, mirrors.changeover_pressure, 800),
    entry(Text_123, par::cut_off_inj_time, mirrors.cut_off_inj_time, 800),
    entry(Text_124, par::cut_off_rpm, mirrors.cut_off_rpm, 800),
    entry(Text1, par::petrol_cut_off_rpm, mirrors.petrol_cut_off_rpm, 400, whole_tens),
    entry(Text2, par::petrol_cut_off_time, mirrors.petrol_cut_off_time, 800, whole_hundreds),
};

struct Choice {
    Widget& option;
    int parameter;
    double& mirror;
    double value;
    int settle_ms;
};

const Choice normal_start = {opt_norm, par::forced_start_mode, mirrors.forced_start_mode, 0, 600};
const Choice permanent_start = {opt_perm, par::forced_start_mode, mirrors.forced_start_mode, 1,
                                600};
const Choice start_on_acceleration = {opt_acc, par::forced_start_mode, mirrors.forced_start_mode, 3,
                                      600};
const Choice cut_off_by_time = {Option1, par::gas_cut_off_mode, mirrors.gas_cut_off_mode, 7, 900};
const Choice cut_off_by_rpm = {Option2, par::gas_cut_off_mode, mirrors.gas_cut_off_mode, 5, 900};
const Choice no_cut_off = {Option3, par::gas_cut_off_mode, mirrors.gas_cut_off_mode, 2, 500};
const Choice automatic = {Option_comm_auto_yes, par::auto_changeover, mirrors.auto_changeover, 1,
                          200};
const Choice by_hand = {Option_comm_auto_no, par::auto_changeover, mirrors.auto_changeover, 0, 200};

const Choice* const start_choices[] = {&normal_start, &permanent_start, &start_on_acceleration};
const Choice* const cut_off_choices[] = {&no_cut_off, &cut_off_by_rpm, &cut_off_by_time};

void write(int parameter, double& mirror, double value, int settle_ms) {
    mirror = value;
    link::send_parameter(parameter, value);
    wait_ms(settle_ms);
}

// Two choices also set a second parameter to 0, and then wait for the same time again.
struct SecondWrite {
    int parameter;
    double& mirror;
};

const SecondWrite no_modular_changeover = {par::modular_changeover, mirrors.modular_changeover};
const SecondWrite no_petrol_cut_off = {par::petrol_cut_off_rpm, mirrors.petrol_cut_off_rpm};

void choose(const Choice& choice, const SecondWrite* second = nullptr) {
    if (state.poll_enabled) return;
    view::set_pointer(choice.option, Pointer::hourglass);
    write(choice.parameter, choice.mirror, choice.value, choice.settle_ms);
    if (second) write(second->parameter, second->mirror, 0, choice.settle_ms);
    view::set_pointer(choice.option, Pointer::normal);
}

void choose_automatic(const Choice& choice, bool on) {
    if (state.poll_enabled) return;
    view::set_enabled(Slider2, on);
    choose(choice);
}

// The delays on low pressure in ms, by slider position from 1.
constexpr double delays_ms[] = {50, 500, 2000};

void delay_moved() {
    view::set_pointer(Form3, Pointer::hourglass);
    const double position = view::value(Slider2);
    const double delay = position == 1 ? delays_ms[0] : position == 2 ? delays_ms[1] : delays_ms[2];
    write(par::low_pressure_delay, mirrors.low_pressure_delay, delay, 200);
    view::set_pointer(Form3, Pointer::normal);
}

// Enter on the slider writes the changeover speed from its field again. At the end it enables the
// pressure field instead of the speed field, which stays disabled.
const link::EntryField speed_from_slider = {
    .field = Text_rpm,
    .parameter = par::changeover_rpm,
    .mirror = mirrors.changeover_rpm,
    .settle_ms = 400,
    .wait_timer = Timer2,
    .before = open_closed_port,
    .freed = &Text_press_comm,
};

void fill_fields() {
    view::set_text(Text1, number_text(mirrors.petrol_cut_off_rpm * 10));
    view::set_text(Text2, number_text(mirrors.petrol_cut_off_time * 100));
    view::set_text(Text_123, number_text(tens_rounded(mirrors.cut_off_inj_time)));
    view::set_text(Text_124, number_text(mirrors.cut_off_rpm));
    view::set_text(Text_press_comm, number_text(mirrors.changeover_pressure));
}

// Selects the option that has the mirror's value, if there is one.
template <std::size_t N>
void select_held(const Choice* const (&choices)[N]) {
    for (const Choice* choice : choices)
        if (choice->mirror == choice->value) view::select_and_run_handler(choice->option);
}

void show_choices() {
    select_held(start_choices);
    view::select_and_run_handler(mirrors.auto_changeover == 1 ? Option_comm_auto_yes
                                                              : Option_comm_auto_no);
    if (mirrors.auto_changeover == 0) view::set_enabled(Slider2, false);
    for (int position = 1; position <= 3; ++position)
        if (mirrors.low_pressure_delay == delays_ms[position - 1])
            view::place_value(Slider2, position);
    select_held(cut_off_choices);
}

// Loads the acquisition window without showing it. It stays loaded.
void load_acquisition() {
    view::load(acquisizione::acquisizione);
    if (const auto colour = app::text_colour()) {
        view::set_fore(acquisizione::Label1, *colour);
        view::set_fore(acquisizione::Label_max, *colour);
    }
    acquisizione::Timer1.on();
}

void finish_load() {
    const bool cuts_petrol_off = state.ecu_version >= 7 && state.ecu_revision >= 71;
    view::set_visible(Frame_cut_benz, cuts_petrol_off);
    for (Widget* w : Form3.controls)
        if (w->kind == view::Kind::frame || w->kind == view::Kind::label ||
            w->kind == view::Kind::option_button)
            view::set_back(*w, state.panel_colour);
    app::apply_own_captions();
    app::set_message(lbl_rpm_comm, app::messages::changeover_speed, "g/min.");
    view::set_text(Text_rpm, number_text(mirrors.changeover_rpm));
}

void window_loads() {
    state.poll_enabled = true; // the lock: options selected below write nothing
    app::Module_Resize(Form3);
    fill_fields();
    show_choices();
    view::set_enabled(form1::Form1, false);
    form1::Timer_stato_sistema.off();
    load_acquisition();
    state.poll_enabled = false;
    state.panel_colour = Form3.look.back;
    app::set_message(Form3, app::messages::changeover, "...");
    finish_load();
}

void window_left() {
    state.ui_loading = true;
    state.poll_enabled = false;
}

void exit_clicked() {
    view::set_pointer(Command1, Pointer::hourglass);
    view::set_enabled(form1::Form1, true);
    acquisizione::Timer_tinj.off();
    view::set_enabled(Command1, false);
    wait_ms(500);
    view::set_pointer(Command1, Pointer::normal);
    view::unload(Form3);
    wait_ms(300);
    state.ui_loading = true;
}

void connect_choices() {
    for (const Choice* choice :
         {&permanent_start, &start_on_acceleration, &cut_off_by_time, &cut_off_by_rpm})
        choice->option.on.click = [choice] { choose(*choice); };
    opt_norm.on.click = [] { choose(normal_start, &no_modular_changeover); };
    Option3.on.click = [] { choose(no_cut_off, &no_petrol_cut_off); };
    Option_comm_auto_yes.on.click = [] { choose_automatic(automatic, true); };
    Option_comm_auto_no.on.click = [] { choose_automatic(by_hand, false); };
    for (const Choice* choice :
         {&normal_start, &permanent_start, &start_on_acceleration, &cut_off_by_time,
          &cut_off_by_rpm, &no_cut_off, &automatic, &by_hand})
        app::note_parameters(choice->option, {choice->parameter});
    app::note_parameters(opt_norm, {no_modular_changeover.parameter});
    app::note_parameters(Option3, {no_petrol_cut_off.parameter});
    app::note_parameters(Slider2, {par::low_pressure_delay});
}

} // namespace

void connect_changeover_window() {
    Form3.on.load = window_loads;
    Form3.on.activate = [] { state.ui_loading = true; };
    Form3.on.deactivate = window_left;
    // Runs for every way of closing the window.
    Form3.on.closing = [] { view::set_enabled(form1::Form1, true); };
    Timer2.tick = [] { Timer2.off(); };
    connect_choices();
    for (const link::EntryField& field : entries)
        link::connect_entry_field(field);
    Slider2.on.change = delay_moved;
    Slider2.on.key = [](int code, int) {
        if (code == view::operator_acts::enter) link::send_entry(speed_from_slider);
    };
    Command1.on.click = exit_clicked;
}

} // namespace zol::calibration
