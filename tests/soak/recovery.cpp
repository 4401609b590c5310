#include "tests/soak/recovery.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "tests/soak/disturbances.h"
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

void click(Session& session, Widget& widget) {
    session.act("clicks " + widget_name(widget), [&widget] { view::operator_acts::click(widget); });
}

// Leaves the windows in front of the main window.
void close_other_windows(Session& session) {
    using namespace centralina_attiva;
    if (reachable(Command_test) && form1::Timer3.is_on()) {
        click(session,
              Command_cancel); // the lambda panel's read takes the replies to the port test
        session.pass(5000);
    } else if (reachable(Command_test)) {
        click(session, Command_test);
        session.pass(4000);
        if (reachable(Command_ok)) click(session, Command_ok);
        session.pass(20'000); // until Timer1 has filled the window
    }
    for (Widget* button : {&form3::Command1, &acquisizione::Command_chiudi, &form2::cmd_exit})
        if (reachable(*button)) {
            click(session, *button);
            session.pass(5000);
        }
}

// Running sequences end one after another on a good line. The longest are tuning runs, of which
// there may be several.
bool comes_to_rest(Session& session) {
    const auto busy = [&] {
        if (reachable(centralina_attiva::Command_test))
            return false; // the activation waits for this dialog
        for (const Running& running : session.handlers.stack())
            if (running.name != "Form1.Timer_stato_sistema tick" &&
                running.name != "acquisizione.Timer_tinj tick")
                return true;
        return session.box_is_up() || app::state.tuning_mode == 1;
    };
    for (int minute = 0; minute < 240 && busy() && !session.ended(); ++minute) {
        // A sequence that repeats its request may lose all replies to the lambda panel, the
        // acquisition or the polling; the settings panel stops these. A tuning run that waits for a
        // warm engine needs the polling, so the engine panel follows.
        if (minute % 10 == 9) {
            close_other_windows(session);
            Widget& panel = minute % 20 == 9 ? form1::Command_impostazioni : form1::Command_engine;
            if (reachable(panel)) click(session, panel);
        }
        session.pass(minute_ms);
    }
    return !busy();
}

// A telegram about every 350 ms, and the unit's speed is shown.
std::string polling_is_back(Session& session) {
    int telegrams = 0;
    session.boxes.on_changed = [&, inner = session.boxes.on_changed](Widget& w,
                                                                     view::Aspect aspect) {
        telegrams += &w == &form1::Shape2;
        inner(w, aspect);
    };
    session.pass(10'000);
    if (telegrams < 10)
        return "only " + std::to_string(telegrams) + " telegrams came in ten seconds";
    const double shown = app::val(view::text(form1::Label_rpm));
    const double real = session.the_unit().rpm();
    if (std::abs(shown - real) > 100 + real / 5)
        return view::text(form1::Label_rpm) + " rpm are shown and " + app::number_text(real) +
               " are real";
    return "";
}

std::string fail(Session& session, const std::string& why) {
    session.log.find("no recovery: " + why + "; running: " + session.handlers.describe() +
                     (link::port_is_open() ? "" : "; the port is closed") +
                     (form1::Timer3.is_on() ? "; the lambda panel reads" : "") +
                     (form1::Timer6.is_on() ? "; the watchdog runs" : ""));
    return "not recovered";
}

// Terminal and download mode leave the port to another program for the rest of the run. A failed
// port test during the read of a good one leaves the port closed; only another test would open it.
std::string closed_for_good(Session& session) {
    // The fault read may have opened it, but the unit does not answer in this mode.
    const bool listens = session.the_unit().mode() == sim::ControlUnit::Mode::normal;
    if (session.checks.handed_over && !(link::port_is_open() && listens))
        return "the line had been handed over";
    if (link::port_is_open() || reachable(centralina_attiva::Command_test)) return "";
    if (session.checks.closed_by == "Centralina_Attiva.Command_test click")
        return "a failed test had closed the port";
    // A sequence that runs during the waits of the fault read finds the port closed. The fault read
    // opens it only after that sequence has ended.
    constexpr const char* fault_read = "Form1.cmd_richiesta_par_diagnosi click";
    const Running* top = session.handlers.top();
    if (session.checks.closed_by == fault_read && session.handlers.runs(fault_read) && top &&
        top->name != fault_read)
        return "requests on a port that the fault read had closed";
    return "";
}

} // namespace

std::string recover(Session& session) {
    session.log.note("--- all faults have ended ---");
    Disturbances::end(session);
    session.pass(2 * minute_ms);
    for (int round = 0; round < 4 && !session.ended(); ++round) {
        if (const auto how = closed_for_good(session); !how.empty()) return how;
        if (!comes_to_rest(session)) {
            if (session.checks.may_be_tuning()) return "still tuning";
            if (const auto how = closed_for_good(session); !how.empty()) return how;
            // After a garbled version reply a new start is needed.
            if (app::state.ecu_family != session.the_unit().options().family)
                return "taken for a unit of another family";
            return fail(session, "a sequence does not end");
        }
        close_other_windows(session);
    }
    if (session.ended()) return "the program had been ended";
    if (!link::port_is_open()) return fail(session, "the port is closed");
    if (!reachable(form1::Command_engine))
        return fail(session, "the engine button does not answer");
    click(session, form1::Command_engine);
    session.pass(3000);
    const std::string wrong = polling_is_back(session);
    if (wrong.empty()) return "polling again";
    return session.checks.may_be_tuning() ? "still tuning" : fail(session, wrong);
}

} // namespace zol::soak
