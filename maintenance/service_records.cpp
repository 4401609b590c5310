#include "maintenance/service_records.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/settings_file.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "link/read_marks.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <ctime>

namespace zol::maintenance {
namespace {

using app::state;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
namespace par = link::par;

void begin_reset() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling_and_wait();
}

void write_record(int number, int value) {
    link::write_parameter(number, value);
    wait_ms(200);
}

// Shows the service line again. `poll_enabled` is still false, so the polling timer's tick only
// switches it off again. The watchdog, if it runs, restarts polling.
void end_reset() {
    link::show_service_line(link::service_line_middle, "  ");
    view::set_pointer(form1::Form1, Pointer::normal);
    form1::Timer_stato_sistema.on();
    wait_ms(400);
}

void last_check_clicked() {
    begin_reset();
    const Date date = calendar_state.today();
    write_record(par::last_check_day, date.day);
    write_record(par::last_check_month, date.month);
    write_record(par::last_check_year, date.year % 100);
    mirrors.last_check_day = date.day;
    mirrors.last_check_month = date.month;
    mirrors.last_check_year_text = std::to_string(date.year);
    end_reset();
}

void time_on_gas_clicked() {
    begin_reset();
    write_record(par::hours_on_gas, 0);
    write_record(par::minutes_on_gas, 0);
    mirrors.hours_on_gas = 0;
    mirrors.minutes_on_gas = 0;
    end_reset();
}

void version_clicked() {
    state.stored_version = app::read_stored_version();
    view::message_box({.text = "EOBD SOFTWARE VERSION NUMBER: " + state.tool_version +
                               "\r\rFIRMWARE VERSION NUMBER: " + state.firmware_text,
                       .title = "",
                       .icon = view::Icon::information});
}

} // namespace

Date local_date() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_mday, local.tm_mon + 1, local.tm_year + 1900};
}

void connect_service_records() {
    form1::mnu_reset_check.on.click = last_check_clicked;
    form1::mnu_reset_time_ongas.on.click = time_on_gas_clicked;
    form1::MNU_VERSIONE.on.click = version_clicked;
    for (view::Widget* control : {&form1::mnu_reset_time_ongas, &form1::lbl_ore})
        app::note_parameters(*control, {par::hours_on_gas, par::minutes_on_gas});
    for (view::Widget* control : {&form1::mnu_reset_check, &form1::lbl_ore})
        app::note_parameters(*control,
                             {par::last_check_day, par::last_check_month, par::last_check_year});
}

} // namespace zol::maintenance
