#include "tests/soak/checks.h"

#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "tests/soak/texts.h"
#include "tests/soak/write_rules.h"
#include "view/operator.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <utility>

namespace zol::soak {
namespace {

using app::state;

// A write has an operator's act as its cause, or comes from one of the two controls that write
// while the program fills them. Once a button has cleared ui_loading, all of them do.
bool has_a_cause(const Handlers& handlers, bool mark_cleared) {
    if (handlers.runs("operator")) return true;
    const std::string& writer = handlers.stack().back().name;
    return (handlers.runs("Form1 activate") || handlers.runs("Form1.Timer1 tick")) &&
           (mark_cleared || writer == "Form1.Slider3 change" || writer == "Form1.Check1 click");
}

bool has_known_shape(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != 5 && bytes.size() != 9) return false;
    const bool head = bytes[0] == 'P' && bytes[1] == 'C' && bytes[2] == 0;
    return head && bytes[3] == bytes.size() && (bytes[4] == 2) == (bytes.size() == 9);
}

std::string hex(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view figures = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) text += ' ';
        text += figures[byte / 16];
        text += figures[byte % 16];
    }
    return text;
}

} // namespace

Checks::Checks(Log& log, Handlers& handlers) : log_(log), handlers_(handlers) {
    handlers_.began = [this](const Running& running) {
        // With a closed port the tick leaves its timer off.
        if (running.name == "Form1.Timer_stato_sistema tick")
            polled_on_closed_port_ = !link::port_is_open();
        // This exit also stops an acquisition that was opened separately.
        if (running.name == "Form3.Command1 click") acquisition_stopped_ = true;
        if (running.name == "acquisizione load") acquisition_stopped_ = false;
        if (running.name == "Form1.barra1 click") parameter_window_seen_ = true;
        tunings_asked_ += running.name == "Form1 key" && running.key == 'T';
    };
    handlers_.ended = [this](const Running& running) {
        mirrors_.ended(running, readers_below(0) > 0);
        // The first read sets the flag before it requests the version.
        const Running* below = handlers_.top();
        if (below && below->name == "Form1 activate" && below->last_command != 0 &&
            below->last_command != 6 && !state.ui_loading)
            mark_cleared_ = true;
        // Writes after the end has begun are not sent.
        if (!running.rule || state.program_ends) return;
        const std::string wrong = wrong_in(running, true);
        if (!wrong.empty()) find(wrong);
    };
}

void Checks::find(const std::string& what) {
    log_.find(what + "; running: " + handlers_.describe() +
              (form1::Timer3.is_on() ? "; the lambda panel reads" : ""));
}

void Checks::leaves(std::span<const std::uint8_t> bytes) {
    log_.count(hex(bytes));
    if (!has_known_shape(bytes)) return find("a frame of unknown shape: " + hex(bytes));
    if (handlers_.runs("Form1 closing") || handlers_.runs("Centralina_Attiva.Command_cancel click"))
        find("a frame after the program's end has begun: " + hex(bytes));
    if (bytes.size() == 9)
        write_leaves({bytes[5] * 256 + bytes[6], bytes[7] * 256 + bytes[8]});
    else
        command_leaves(bytes[4]);
}

void Checks::write_leaves(const Written& written) {
    const std::string what =
        "PAR_" + std::to_string(written.number) + " = " + std::to_string(written.value);
    Running* writer = handlers_.top();
    log_.note("  writes " + what + " (" + (writer ? writer->name : "no handler") + ")");
    if (!writer) return find(what + " was not caused by an act");
    if (!may_be_tuning() && !has_a_cause(handlers_, mark_cleared_))
        find(what + " was not caused by an act");
    writer->writes.push_back(written);
    const std::string wrong = wrong_in(*writer, false);
    if (!wrong.empty()) find(wrong);
    mirrors_.written(*writer, written, readers_below(0) > 0);
}

// The number of handlers that read the unit, without the topmost `but` handlers.
int Checks::readers_below(int but) const {
    const auto& stack = handlers_.stack();
    return static_cast<int>(std::count_if(stack.begin(), stack.end() - but, [](const Running& r) {
        return r.name == "Form1 activate" || r.name == "Centralina_Attiva.Command_ok click";
    }));
}

bool Checks::may_be_tuning() const { return state.tuning_mode == 1 || tunings_asked_ > 1; }

void Checks::closed() { closed_by = handlers_.stack().empty() ? "" : handlers_.top()->name; }

void Checks::command_leaves(int command) {
    Running* sender = handlers_.top();
    if (command != 3 && command != 16) log_.note("  sends " + std::to_string(command));
    handed_over = handed_over || command == 20 || command == 21;
    const bool known = (sender && may_send(sender->name, command)) ||
                       (may_be_tuning() && may_send("tuning", command));
    if (!known) find("command " + std::to_string(command) + " from a handler that may not send it");
    if (command == 7 && sender && sender->name == "Form1 activate") mark_cleared_ = false;
    // A tuning run that waits for the polling sends during any other wait.
    if (sender && may_send(sender->name, command)) sender->last_command = command;
}

void Checks::read(const link::Bytes& bytes) {
    log_.count(hex(bytes));
    const Running* reader = handlers_.top();
    if (!reader || reader->last_command != 1 || bytes.size() < 5 || bytes[4] != 1) return;
    if (reader->name == "Form1 activate" || reader->name == "Centralina_Attiva.Command_ok click")
        mirrors_.image_read(*reader, bytes, readers_below(1) > 0);
}

void Checks::changed(const view::Widget& widget, view::Aspect aspect) {
    if (aspect != view::Aspect::text) return;
    log_.count(widget.look.text);
    if (operator_types) return;
    const std::string wrong = wrong_text(widget);
    if (!wrong.empty()) find(wrong);
}

// The timers that are never switched off. Their ticks take no time, so they tick on time during
// every wait, box and nested handler.
void Checks::check_perpetual_timers() {
    for (const view::Timer* timer :
         {&form1::Timer4, &form1::Timer5, &form1::Timer6, &form1::Timer_rpm}) {
        const std::string name = timer_name(*timer);
        const auto last = handlers_.last_tick_us.find(name);
        if (last == handlers_.last_tick_us.end()) continue;
        const bool ending = handlers_.runs("Form1 closing") || !form1::Form1.loaded;
        if (!timer->is_on()) {
            if (!ending && !state.no_reread) find(name + " is off");
            continue;
        }
        const auto age_ms = (view::now_us() - last->second) / 1000;
        if (age_ms > timer->interval_ms())
            find(name + " has not ticked for " + std::to_string(age_ms) + " ms");
    }
}

// While no handler runs: timers, panels, windows and pointers.
void Checks::check_rest() {
    using view::reachable;
    const bool watched = form1::Timer6.is_on();
    // If no new read is allowed, the window's activation stops the timer.
    if (state.poll_enabled && link::port_is_open() && !form1::Timer_stato_sistema.is_on() &&
        !watched && !polled_on_closed_port_ && !state.no_reread)
        find("the polling is allowed and no timer runs it");
    if (!form1::Frame_Lambda.look.visible) parameter_window_seen_ = false;
    if (form1::Frame_Lambda.look.visible && !form1::Timer3.is_on() && !parameter_window_seen_)
        find("the lambda panel is visible and does not read");
    if (acquisizione::acquisizione.shown && !acquisizione::Timer_tinj.is_on() &&
        !acquisition_stopped_)
        find("the acquisition is visible and does not read");
    const auto& windows = view::all_windows();
    const bool somewhere = std::any_of(windows.begin(), windows.end(),
                                       [](const view::Widget* w) { return reachable(*w); });
    if (!somewhere && !form1::Timer1.is_on()) find("no window can be used");
    for (const view::Widget* window : windows) {
        if (!window->shown || window->name == "frmSplash") continue;
        if (window->look.pointer == view::Pointer::hourglass)
            find(window->name + " keeps its hourglass");
        for (const view::Widget* w : window->controls)
            if (w->look.pointer == view::Pointer::hourglass)
                find(widget_name(*w) + " keeps its hourglass");
    }
}

void Checks::step(bool at_rest) {
    deepest_wait = std::max(deepest_wait, view::wait_depth());
    const auto& stack = handlers_.stack();
    const auto acts = std::count_if(stack.begin(), stack.end(),
                                    [](const Running& r) { return r.name == "operator"; });
    if (view::wait_depth() > waits_of_an_act * (acts + 1 + tunings_asked_))
        find(std::to_string(view::wait_depth()) +
             " waits are nested, after so many acts: " + std::to_string(acts));
    const std::string wrong = state.program_ends ? "" : mirrors_.wrong(handlers_);
    if (!wrong.empty() && !std::exchange(told_of_mirrors_, true)) find(wrong);
    check_perpetual_timers();
    if (at_rest && handlers_.stack().empty() && view::wait_depth() == 0 && form1::Form1.shown)
        check_rest();
}

} // namespace zol::soak
