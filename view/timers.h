// Named timers, and the one event pump on which every wait runs.
//
// Guarantees: a turn of the pump fires at most one timer, the one that has been due longest. A
// timer whose tick is still running does not fire again, and missed ticks are not made up for. A
// timer that is always due cannot keep input and serial bytes from being processed, because the
// pump idles between two timers. Real time and virtual time differ only in their Platform, that is
// in how they read the clock and how they idle.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace zol::view {

struct Widget;

// A timer of a window. Off, or on with an interval; an interval of 0 never falls due.
class Timer {
  public:
    // `window` owns the timer: unloading the window switches it off.
    Timer(Widget& window, std::string name, int interval_ms, bool on_at_load = false);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void on();  // the interval starts now; no effect if the timer is on already
    void off(); // a running tick is not interrupted
    bool is_on() const { return on_; }
    void set_interval(int ms); // if the timer is on, the new interval starts now
    int interval_ms() const { return interval_ms_; }
    const Widget& window() const { return window_; }

    const std::string name;
    std::function<void()> tick;

  private:
    friend struct Scheduler;
    Widget& window_;
    const int design_interval_ms_;
    const bool on_at_load_;
    int interval_ms_;
    bool on_ = false;
    bool ticking_ = false;
    std::int64_t due_us_ = 0;
};

// What the scheduler needs from its environment.
struct Platform {
    virtual ~Platform() = default;
    virtual std::int64_t now_us() = 0; // of a clock that never goes back
    static constexpr std::int64_t forever = INT64_MAX;
    // Processes input, serial bytes and painting. Returns at `until_us` at the latest, and earlier
    // as soon as something has happened. `until_us` may be `forever`.
    virtual void idle(std::int64_t until_us) = 0;
    // Ends the program from inside any number of nested waits. No handler runs after this call.
    [[noreturn]] virtual void end_program() = 0;
};

struct SchedulerState {
    Platform* platform = nullptr;
    std::deque<std::function<void()>> posted;
    std::int64_t ends_at_us = Platform::forever;
    std::function<void()> last_work; // run just before the program ends
    int wait_depth = 0;
    bool idles_next = false; // the last turn fired a timer
};
inline SchedulerState scheduler_state;

// Sets the platform, which must outlive the program. Must be called before the pump runs or the
// time is read.
void use_platform(Platform& platform);
Platform& platform();
std::int64_t now_us();
[[noreturn]] void end_program();

// Ends the program `ms` from now, whichever handlers, waits and boxes are running then. An earlier
// call that set an earlier end stays in force. `last_work` runs just before the end.
void end_program_within(int ms, std::function<void()> last_work);

// One turn: runs the first posted work; else fires the timer that is due; else idles until a timer
// may be due.
void pump();
// The same, but idles until `until_us` at the latest.
void pump_until(std::int64_t until_us);
// Makes the pump run `work` before any timer fires. Posted work runs in the order of these calls,
// one in each turn.
void post(std::function<void()> work);
// When the pump has something to do next: now if work is posted, else when the next timer is due or
// the program is to end; Platform::forever if there is neither.
std::int64_t next_due_us();
// Waits: sets `timer` to `ms`, switches it on and pumps until it is off. A nested wait on the same
// timer sets a new interval, so the outer wait ends together with the nested one, earlier or later
// than it would have alone.
void wait_on(Timer& timer, int ms);
// How many waits are running, nested in each other.
int wait_depth();

// Every timer of every window. For tests.
const std::vector<Timer*>& all_timers();
// Gives the window's timers their designed state: the interval, and whether they are on at load.
void load_timers(Widget& window);
// Gives them their designed intervals and switches all of them off.
void unload_timers(Widget& window);
// Switches every timer off, restores its designed interval, and drops posted work and the end that
// end_program_within() has set. For tests.
void reset_timers();

} // namespace zol::view
