#include "calibration/injector_menu.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/main_window.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <optional>

namespace zol::calibration {
namespace {

using app::state;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
using view::Widget;

constexpr int time_constant_parameter = 201, constant_parameter = 200, opening_parameter = 202;

struct Injector {
    Widget& item;
    double time_constant;
    double constant;
    double opening;
    int wait_after_write_ms;
    // What the opening's mirror holds afterwards, not the value written: a choice thus moves no
    // mark; the marks follow at the next reading of the unit.
    std::optional<double> held_opening;
    bool shows_work; // hourglass on the panel buttons, and the marks
};

constexpr Injector injectors[] = {
    {form1::mnu_matrix_2_ohm, 3000, 30, 2100, 200, 2000, true},
    {form1::mnu_matrix_3_ohm, 20000, 40, 3900, 300, 3800, true},
    {form1::mnu_valtek, 8000, 60, 4000, 200, std::nullopt, false},
    {form1::mnu_mivra, 3000, 27, 2700, 200, std::nullopt, true},
};

struct Mark {
    Widget& item;
    double opening;
};

constexpr Mark marks[] = {
    {form1::mnu_matrix_2_ohm, 2100}, {form1::mnu_matrix_3_ohm, 3900}, {form1::mnu_mivra, 2300}};

struct CarType {
    Widget& item;
    double time_constant; // over what the injector entry wrote there
};

constexpr CarType car_types[] = {
    {form1::type_a, 20000}, {form1::type_b, 5000}, {form1::type_c, 1500}};

// A value that belongs to no mark moves none.
void show_marks() {
    for (const Mark& found : marks)
        if (mirrors.injector_opening == found.opening)
            for (const Mark& mark : marks)
                view::set_checked(mark.item, &mark.item == &found.item);
}

void begin_writing() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling();
    wait_ms(400);
}

// The polling stays forbidden: the timer's next tick ends it, and the watchdog really restarts it.
void end_writing() {
    view::set_pointer(form1::Form1, Pointer::normal);
    form1::Timer_stato_sistema.on();
    wait_ms(400);
}

void write_and_wait(double number, double value, int after_ms) {
    link::write_parameter(number, value);
    wait_ms(after_ms);
}

void write_injector(const Injector& injector) {
    begin_writing();
    write_and_wait(time_constant_parameter, injector.time_constant, injector.wait_after_write_ms);
    write_and_wait(constant_parameter, injector.constant, injector.wait_after_write_ms);
    if (injector.held_opening) mirrors.injector_opening = *injector.held_opening;
    write_and_wait(opening_parameter, injector.opening, injector.wait_after_write_ms);
    if (injector.shows_work) show_marks();
    end_writing();
}

void injector_chosen(const Injector& injector) {
    if (injector.shows_work) app::show_busy_on_buttons();
    if (!state.ui_loading) write_injector(injector);
    if (injector.shows_work) app::show_normal_on_buttons();
}

void car_type_chosen(const CarType& type) {
    if (state.ui_loading) return;
    begin_writing();
    write_and_wait(time_constant_parameter, type.time_constant, 200);
    end_writing();
}

} // namespace

void connect_injector_menu() {
    for (const Injector& injector : injectors) {
        injector.item.on.click = [&injector] { injector_chosen(injector); };
        app::note_parameters(injector.item,
                             {time_constant_parameter, constant_parameter, opening_parameter});
    }
    for (const CarType& type : car_types) {
        type.item.on.click = [&type] { car_type_chosen(type); };
        app::note_parameters(type.item, {time_constant_parameter});
    }
}

} // namespace zol::calibration
