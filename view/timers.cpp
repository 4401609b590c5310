#include "view/timers.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace zol::view {

struct Scheduler {
    // All timers of the program, in the order of the window tables. They register before main().
    static std::vector<Timer*>& timers() {
        static std::vector<Timer*> all;
        return all;
    }

    // The timer that is due first, except those whose tick is still running.
    static Timer* first_due() {
        Timer* first = nullptr;
        for (Timer* t : timers())
            if (t->on_ && !t->ticking_ && t->interval_ms_ > 0 &&
                (!first || t->due_us_ < first->due_us_))
                first = t;
        return first;
    }

    static void arm(Timer& t) { t.due_us_ = now_us() + t.interval_ms_ * std::int64_t{1000}; }

    static void fire(Timer& t) {
        // The next interval starts now and not at the due time, so that a late tick is not followed
        // by another at once.
        arm(t);
        // A destructor clears the flag, because the end of the program may unwind the tick.
        struct Ticking {
            Timer& timer;
            explicit Ticking(Timer& it) : timer(it) { timer.ticking_ = true; }
            ~Ticking() { timer.ticking_ = false; }
        } ticking(t);
        if (t.tick) t.tick();
    }

    static std::int64_t due_us(const Timer& t) { return t.due_us_; }

    static void of_window(Widget& window, const std::function<void(Timer&)>& action) {
        for (Timer* t : timers())
            if (&t->window_ == &window) action(*t);
    }

    static void to_design(Timer& t) {
        t.on_ = false;
        t.interval_ms_ = t.design_interval_ms_;
    }

    static bool on_at_load(const Timer& t) { return t.on_at_load_; }
};

Timer::Timer(Widget& window, std::string timer_name, int interval_ms, bool on_at_load)
    : name(std::move(timer_name)), window_(window), design_interval_ms_(interval_ms),
      on_at_load_(on_at_load), interval_ms_(interval_ms) {
    Scheduler::timers().push_back(this);
}

void Timer::on() {
    if (on_) return;
    on_ = true;
    Scheduler::arm(*this);
}

void Timer::off() { on_ = false; }

void Timer::set_interval(int ms) {
    interval_ms_ = ms;
    if (on_) Scheduler::arm(*this);
}

void use_platform(Platform& platform) { scheduler_state.platform = &platform; }

Platform& platform() { return *scheduler_state.platform; }

std::int64_t now_us() { return scheduler_state.platform->now_us(); }

void end_program() {
    scheduler_state.platform->end_program();
    std::abort(); // never reached, which the compiler cannot see through a virtual call
}

void end_program_within(int ms, std::function<void()> last_work) {
    SchedulerState& s = scheduler_state;
    const std::int64_t at_us = now_us() + ms * std::int64_t{1000};
    if (at_us >= s.ends_at_us) return;
    s.ends_at_us = at_us;
    s.last_work = std::move(last_work);
}

std::int64_t next_due_us() {
    const SchedulerState& s = scheduler_state;
    if (!s.posted.empty()) return now_us();
    const Timer* timer = Scheduler::first_due();
    return std::min(s.ends_at_us, timer ? Scheduler::due_us(*timer) : Platform::forever);
}

void pump() { pump_until(Platform::forever); }

void pump_until(std::int64_t until_us) {
    SchedulerState& s = scheduler_state;
    if (now_us() >= s.ends_at_us) {
        s.last_work();
        end_program();
    }
    if (!s.posted.empty()) {
        auto work = std::move(s.posted.front());
        s.posted.pop_front();
        work();
        return;
    }
    Timer* timer = Scheduler::first_due();
    const bool due = timer && Scheduler::due_us(*timer) <= now_us();
    // After a timer the pump idles once, so that a timer that is always due cannot block input.
    if (due && !std::exchange(s.idles_next, true)) {
        Scheduler::fire(*timer);
        return;
    }
    s.idles_next = false;
    s.platform->idle(due ? now_us() : std::min(until_us, next_due_us()));
}

void post(std::function<void()> work) { scheduler_state.posted.push_back(std::move(work)); }

void wait_on(Timer& timer, int ms) {
    struct Depth {
        Depth() { ++scheduler_state.wait_depth; }
        ~Depth() { --scheduler_state.wait_depth; }
    } depth;
    timer.set_interval(ms);
    timer.on();
    while (timer.is_on())
        pump();
}

int wait_depth() { return scheduler_state.wait_depth; }

const std::vector<Timer*>& all_timers() { return Scheduler::timers(); }

void load_timers(Widget& window) {
    Scheduler::of_window(window, [](Timer& t) {
        Scheduler::to_design(t);
        if (Scheduler::on_at_load(t)) t.on();
    });
}

void unload_timers(Widget& window) { Scheduler::of_window(window, Scheduler::to_design); }

void reset_timers() {
    for (Timer* t : Scheduler::timers())
        Scheduler::to_design(*t);
    scheduler_state.posted.clear();
    scheduler_state.ends_at_us = Platform::forever;
}

} // namespace zol::view
