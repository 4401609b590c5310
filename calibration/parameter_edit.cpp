#include "calibration/parameter_edit.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::calibration {
namespace {

namespace par = link::par;

double ask(const std::string& prompt) {
    return app::val(view::input_box(prompt, "Modifica Parametro"));
}

constexpr int not_a_parameter = 4000; // used by the tool only, never sent

// Writes and waits. If the write fails, returns false at once.
bool write(double number, double value) {
    if (!link::send_parameter(number, value)) return false;
    link::wait_ms(300);
    return true;
}

// If a write fails, the rest is not written.
void write_edited(double number, double value) {
    // A rising coil signal needs a long filter, which must be set first.
    if (number == par::coil_signal_direction && value == 1) {
        if (!write(par::coil_signal_filter, 4000)) return;
        link::wait_ms(link::send_settle_ms);
    }
    if (number == not_a_parameter)
        app::state.local_flag_4000 = value;
    else
        write(number, value);
}

} // namespace

void edit_parameter_by_number() {
    view::set_pointer(form1::Form1, view::Pointer::hourglass);
    monitor::stop_polling();
    const double number = ask("Digita il Parametro da Modificare");
    const double value =
        ask("Inserisci il valore da assegnare al Parametro : " + app::number_text(number));
    if (number == par::injector_latency) link::mirrors.injector_latency = value;
    write_edited(number, value);
    link::wait_ms(link::send_settle_ms);
    view::set_pointer(form1::Form1, view::Pointer::normal);
}

} // namespace zol::calibration
