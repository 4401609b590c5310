#include "calibration/injector_menu.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/panel_buttons.h"
#include "link/ecu_frames.h"
#include "link/injector_types.h"
#include "link/parameter_catalogue.h"
#include "link/read_marks.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::calibration {
namespace {

using app::state;
using link::InjectorType;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
using view::Widget;
namespace par = link::par;

struct CarType {
    Widget& item;
    double time_constant; // replaces the one that the injector choice wrote
};

constexpr CarType car_types[] = {
    {form1::type_a, 20000}, {form1::type_b, 5000}, {form1::type_c, 1500}};

// Moves the tick if the opening value belongs to an item; any other value changes nothing.
void show_marks() {
    for (const InjectorType& type : link::injector_types())
        if (type.marks && mirrors.injector_opening == type.marks->by_dialog_or_menu)
            link::tick_injector(&link::OpeningMarks::by_dialog_or_menu);
}

void begin_writing() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling_and_wait();
}

// `poll_enabled` is still false, so the polling timer's tick only switches it off again. The
// watchdog, if it runs, restarts polling.
void end_writing() {
    view::set_pointer(form1::Form1, Pointer::normal);
    form1::Timer_stato_sistema.on();
    wait_ms(400);
}

void write_and_wait(double number, double value, int after_ms) {
    link::write_parameter(number, value);
    wait_ms(after_ms);
}

void write_injector(const InjectorType& injector) {
    begin_writing();
    write_and_wait(par::injector_time_constant, injector.time_constant,
                   injector.wait_after_write_ms);
    write_and_wait(par::injector_constant, injector.constant, injector.wait_after_write_ms);
    if (injector.held_opening) mirrors.injector_opening = *injector.held_opening;
    write_and_wait(par::injector_opening, injector.opening, injector.wait_after_write_ms);
    if (injector.marks) show_marks();
    end_writing();
}

void injector_chosen(const InjectorType& injector) {
    if (injector.marks) app::show_busy_on_buttons();
    if (!state.ui_loading) write_injector(injector);
    if (injector.marks) app::show_normal_on_buttons();
}

void car_type_chosen(const CarType& type) {
    if (state.ui_loading) return;
    begin_writing();
    write_and_wait(par::injector_time_constant, type.time_constant, 200);
    end_writing();
}

} // namespace

void connect_injector_menu() {
    for (const InjectorType& injector : link::injector_types()) {
        injector.item.on.click = [&injector] { injector_chosen(injector); };
        app::note_parameters(injector.item, {par::injector_time_constant, par::injector_constant,
                                             par::injector_opening});
    }
    for (const CarType& type : car_types) {
        type.item.on.click = [&type] { car_type_chosen(type); };
        app::note_parameters(type.item, {par::injector_time_constant});
    }
}

} // namespace zol::calibration
