#include "tests/soak/recovery.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "tests/soak/weather.h"
#include "view/operator.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"

#include <cmath>

namespace zol::soak {
namespace {

using view::reachable;
using view::Widget;

constexpr std::int64_t minute_ms = 60'000;

void click(Desk& desk, Widget& widget) {
    desk.act("clicks " + widget_name(widget), [&widget] { view::operator_acts::click(widget); });
}

// One round of what stands between him and the main window.
void clear_the_way(Desk& desk) {
    using namespace centralina_attiva;
    if (reachable(Command_test) && form1::Timer3.is_on()) {
        click(desk,
              Command_cancel); // the lambda panel's read takes the answers of test and reading
        desk.pass(5000);
    } else if (reachable(Command_test)) {
        click(desk, Command_test);
        desk.pass(4000);
        if (reachable(Command_ok)) click(desk, Command_ok);
        desk.pass(20'000); // and Timer1 fills the window
    }
    for (Widget* button : {&form3::Command1, &acquisizione::Command_chiudi, &form2::cmd_exit})
        if (reachable(*button)) {
            click(desk, *button);
            desk.pass(5000);
        }
}

// Sequences under way come to their end on a good line, behind one another. What takes longest is
// tuning, of which there may be several runs with many rounds each.
bool comes_to_rest(Desk& desk) {
    const auto busy = [&] {
        if (reachable(centralina_attiva::Command_test)) return false; // the activation waits for it
        for (const Running& running : desk.handlers.stack())
            if (running.name != "Form1.Timer_stato_sistema tick" &&
                running.name != "acquisizione.Timer_tinj tick")
                return true;
        return desk.box_is_up() || app::state.tuning_mode == 1;
    };
    for (int minute = 0; minute < 240 && busy() && !desk.ended(); ++minute) {
        // Whoever asks until he is answered goes hungry beside the lambda panel's read, the
        // acquisition and the polling, and these beside one another: the settings panel stops them
        // all. A tuning run that waits for a warm engine sees none where nobody polls: he goes
        // home.
        if (minute % 10 == 9) {
            clear_the_way(desk);
            Widget& panel = minute % 20 == 9 ? form1::Command_impostazioni : form1::Command_engine;
            if (reachable(panel)) click(desk, panel);
        }
        desk.pass(minute_ms);
    }
    return !busy();
}

// A telegram each 350 ms or so, and the unit's own speed on view.
std::string polling_is_back(Desk& desk) {
    int beats = 0;
    desk.boxes.on_changed = [&, inner = desk.boxes.on_changed](Widget& w, view::Aspect aspect) {
        beats += &w == &form1::Shape2;
        inner(w, aspect);
    };
    desk.pass(10'000);
    if (beats < 10) return "only " + std::to_string(beats) + " telegrams came in ten seconds";
    const double shown = app::val(view::text(form1::Label_rpm));
    const double real = desk.the_unit().rpm();
    if (std::abs(shown - real) > 100 + real / 5)
        return view::text(form1::Label_rpm) + " rpm are shown and " + app::number_text(real) +
               " are real";
    return "";
}

std::string fail(Desk& desk, const std::string& why) {
    desk.log.find("no way back: " + why + "; running: " + desk.handlers.describe() +
                  (link::port_is_open() ? "" : "; the port is closed") +
                  (form1::Timer3.is_on() ? "; the lambda panel reads" : "") +
                  (form1::Timer6.is_on() ? "; the watchdog runs" : ""));
    return "not recovered";
}

// Terminal and download mode leave the port to another program for the rest of the run; a port test
// that fails while the reading behind a good one still runs leaves it closed when the dialog goes.
// Nothing but another test, which needs the dialog, opens it again.
std::string closed_for_good(Desk& desk) {
    // The read of the faults may have opened it, but nobody answers at the other end.
    const bool listens = desk.the_unit().mode() == sim::ControlUnit::Mode::normal;
    if (desk.checks.handed_over && !(link::port_is_open() && listens))
        return "the line had been handed over";
    if (link::port_is_open() || reachable(centralina_attiva::Command_test)) return "";
    if (desk.checks.closed_by == "Centralina_Attiva.Command_test click")
        return "a failed test had closed the port";
    // What asks in the waits of the read of the faults asks a closed port: that read opens it only
    // when the other has ended.
    constexpr const char* fault_read = "Form1.cmd_richiesta_par_diagnosi click";
    const Running* top = desk.handlers.top();
    if (desk.checks.closed_by == fault_read && desk.handlers.runs(fault_read) && top &&
        top->name != fault_read)
        return "asking behind a read of the faults";
    return "";
}

} // namespace

std::string recover(Desk& desk) {
    desk.log.note("--- all is good again ---");
    Weather::calm(desk);
    desk.pass(2 * minute_ms);
    for (int round = 0; round < 4 && !desk.ended(); ++round) {
        if (const auto how = closed_for_good(desk); !how.empty()) return how;
        if (!comes_to_rest(desk)) {
            if (desk.checks.may_be_tuning()) return "still tuning";
            if (const auto how = closed_for_good(desk); !how.empty()) return how;
            // A garbled version reply: he starts the program anew.
            if (app::state.ecu_family != desk.the_unit().options().family)
                return "taken for a unit of another family";
            return fail(desk, "a sequence does not end");
        }
        clear_the_way(desk);
    }
    if (desk.ended()) return "the program had been ended";
    if (!link::port_is_open()) return fail(desk, "the port is closed");
    if (!reachable(form1::Command_engine)) return fail(desk, "the engine button does not answer");
    click(desk, form1::Command_engine);
    desk.pass(3000);
    const std::string wrong = polling_is_back(desk);
    if (wrong.empty()) return "polling again";
    return desk.checks.may_be_tuning() ? "still tuning" : fail(desk, wrong);
}

} // namespace zol::soak
