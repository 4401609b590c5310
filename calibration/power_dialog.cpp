#include "calibration/power_dialog.h"

#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"
#include "view/windows/form_power.h"

#include <algorithm>

namespace zol::calibration {
namespace {

using link::mirrors;
using link::wait_ms;
using view::Pointer;

struct PowerOption {
    view::Widget& option;
    double percent;
};

constexpr PowerOption options[] = {
    {form_power::Option_5, 5},         {form_power::Option_15, 15},
    {form_power::Option_25, 25},       {form_power::Option_meno_5, -5},
    {form_power::Option_meno_15, -15}, {form_power::Option_meno_25, -25},
};

// A percentage below 0 is limited to the slider's minimum, one above 0 is not limited.
void percent_chosen(double percent) {
    mirrors.ktar_high = mirrors.ktar_low + mirrors.ktar_low * percent / 100;
    if (percent < 0)
        mirrors.ktar_high = std::max(mirrors.ktar_high, form1::Slider_power.design.min);
}

void ok_clicked() {
    view::set_pointer(form_power::Form_power, Pointer::hourglass);
    monitor::stop_polling();
    // The gain is sent as the parameter number, and the parameter number as the value. This is
    // required: see docs/not-bugs.md.
    link::write_parameter(mirrors.ktar_high, link::par::ktar_high);
    wait_ms(link::send_settle_ms);
    view::set_pointer(form_power::Form_power, Pointer::normal);
}

void cancel_clicked() {
    view::set_enabled(form1::Form1, true);
    wait_ms(400);
    view::unload(form_power::Form_power);
    wait_ms(400);
    app::state.ui_loading = false;
    monitor::start_polling();
    wait_ms(400);
    view::set_pointer(form1::Form1, Pointer::normal);
    view::set_focus(form1::Text2);
}

// Acts only if the dialog was closed by its title bar: CANCEL has enabled the main window before
// and does the rest itself.
void dialog_closes() {
    if (view::enabled(form1::Form1)) return;
    view::set_enabled(form1::Form1, true);
    monitor::start_polling();
}

} // namespace

void show_power_dialog() {
    monitor::stop_polling();
    view::set_enabled(form1::Form1, false);
    view::show(form_power::Form_power);
}

void connect_power_dialog() {
    for (const PowerOption& choice : options)
        choice.option.on.click = [&choice] { percent_chosen(choice.percent); };
    form_power::cmd_ok.on.click = ok_clicked;
    form_power::cmd_cancel.on.click = cancel_clicked;
    form_power::Form_power.on.closing = dialog_closes;
}

} // namespace zol::calibration
