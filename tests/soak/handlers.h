// The stack of running handlers. Every handler is wrapped, so that a frame or a text can be checked
// against the rules of the handler that causes it.
#pragma once

#include "tests/soak/log.h"
#include "view/timers.h"
#include "view/widget.h"

#include <map>
#include <string>
#include <vector>

namespace zol::soak {

struct WriteRule;

// A parameter write.
struct Written {
    int number = 0, value = 0;
};

// A handler that has not returned. Handlers of further acts run during its waits.
struct Running {
    std::string name; // "Form1.Slider_ktar change", "Form1.Timer6 tick"
    int key = 0, shift = 0;
    bool loading = false;            // `ui_loading` when it began
    bool locked = false;             // `poll_enabled` when it began
    const WriteRule* rule = nullptr; // null: it must not write
    std::vector<Written> writes;
    int last_command = 0;

    int written(int parameter) const; // its last value of this parameter, 0 if none
};

class Handlers {
  public:
    explicit Handlers(Log& log) : log_(log) {}
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

    // Wraps every handler and timer. Call it once, after connect_handlers().
    void wrap();
    // Runs an act of the operator as a handler named "operator".
    void act(const std::string& what, const std::function<void()>& work);

    const std::vector<Running>& stack() const { return stack_; }
    std::vector<Running>& stack() { return stack_; }
    Running* top() { return stack_.empty() ? nullptr : &stack_.back(); }
    bool runs(std::string_view name) const;
    bool writes(int parameter) const; // the rule of a running handler has it
    // "Form1.Timer6 tick > operator > Form1.Command7 click".
    std::string describe() const;

    // When each timer ticked last.
    std::map<std::string, std::int64_t> last_tick_us;
    std::size_t deepest = 0;
    // Called for each handler that begins and each that returns, but not for one that the program's
    // end unwinds.
    std::function<void(const Running&)> began, ended;

  private:
    struct Frame;
    void wrap(std::function<void()>& handler, const std::string& name);
    void wrap_widget(view::Widget& widget, const std::string& name);
    void wrap_timer(view::Timer& timer);

    Log& log_;
    std::vector<Running> stack_;
};

// "Form1.Timer6".
std::string timer_name(const view::Timer& timer);
// "Form1.Slider1(2)"; a window is its own name.
std::string widget_name(const view::Widget& widget);

} // namespace zol::soak
