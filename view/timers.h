// Named timers, and the one pump that every wait stands on.
//
// One due timer per turn, in order of due time, then look again; between two timers the world has
// its say. A timer whose tick is on the stack does not fire; its tick waits, and ticks do not pile
// up. Real and virtual time differ only in the Platform: how they tell the time and how they idle.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

namespace zol::view {

struct Widget;

// A timer of a window. Off, or on with an interval; an interval of 0 never falls due.
class Timer {
  public:
    // `window` owns it: unloading the window switches it off.
    Timer(Widget& window, std::string name, int interval_ms, bool on_at_load = false);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void on();  // counts from now; nothing changes if it is on already
    void off(); // a tick that runs goes on to its end
    bool is_on() const { return on_; }
    void set_interval(int ms); // counts anew from now
    int interval_ms() const { return interval_ms_; }

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

// The world beneath the scheduler.
struct Platform {
    virtual ~Platform() = default;
    virtual std::int64_t now_us() = 0;
    // Lets the world go on: operator, line, screen. Returns at `until_us` at the latest, earlier
    // once anything has happened. Called with `forever` when no timer is on.
    static constexpr std::int64_t forever = INT64_MAX;
    virtual void idle(std::int64_t until_us) = 0;
    // Ends the program from inside any number of nested waits; no handler runs on.
    [[noreturn]] virtual void end_program() = 0;
};

struct SchedulerState {
    Platform* platform = nullptr;
    std::deque<std::function<void()>> posted;
    std::int64_t ends_at_us = Platform::forever;
    std::function<void()> last_work; // of the program, at its end
    int wait_depth = 0;
    bool worlds_turn = false; // the last turn was a timer's
};
inline SchedulerState scheduler_state;

void use_platform(Platform& platform);
Platform& platform();
std::int64_t now_us();
[[noreturn]] void end_program();

// Ends the program `ms` from now, whatever handlers, waits and boxes run then, or earlier where an
// earlier call says so. `last_work` runs just before.
void end_program_within(int ms, std::function<void()> last_work);

// One turn: what was posted, else the due timer, else idling until one may be due.
void pump();
// The same, but idles no longer than `until_us`.
void pump_until(std::int64_t until_us);
// Runs `work` in the next turn of the pump, ahead of the timers.
void post(std::function<void()> work);
// When the next timer falls due, Platform::forever if none is on.
std::int64_t next_due_us();
// Sets `timer` to `ms`, switches it on and pumps until it is off. A nested wait on the same timer
// sets a new interval: the outer one then ends with it, earlier or later than it was meant to.
void wait_on(Timer& timer, int ms);
// How many waits are on the stack.
int wait_depth();

// The window's timers as designed: at load, and off at unload.
void load_timers(Widget& window);
void unload_timers(Widget& window);
// Every timer off and as designed; nothing posted. For tests.
void reset_timers();

} // namespace zol::view
