// Which handlers of the program run right now: all of them are wrapped, so that a frame on the wire
// or a text on a widget can be held against the rules of the one that is to blame for it.
#pragma once

#include "tests/soak/log.h"
#include "view/timers.h"
#include "view/widget.h"

#include <map>
#include <string>
#include <vector>

namespace zol::soak {

struct WriteRule;

// A frame of the tool with a parameter in it.
struct Written {
    int number = 0, value = 0;
};

// A handler that has begun and not returned. Those of the operator's acts nest in its waits.
struct Running {
    std::string name; // "Form1.Slider_ktar change", "Form1.Timer6 tick"
    int key = 0, shift = 0;
    bool loading = false;            // `ui_loading` when it began
    bool locked = false;             // `poll_enabled` when it began
    const WriteRule* rule = nullptr; // null: it may write nothing
    std::vector<Written> writes;
    int last_command = 0;

    int written(int parameter) const; // the value that it wrote last; 0 if none
};

class Handlers {
  public:
    explicit Handlers(Log& log) : log_(log) {}
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

    // Wraps every handler of every window, and every timer. Once, behind the wiring.
    void wrap();
    // An act of the operator's, as a handler of its own at the foot of what it sets off.
    void act(const std::string& what, const std::function<void()>& work);

    const std::vector<Running>& stack() const { return stack_; }
    std::vector<Running>& stack() { return stack_; }
    Running* top() { return stack_.empty() ? nullptr : &stack_.back(); }
    bool runs(std::string_view name) const;
    bool writes(int parameter) const; // one that runs has it in its rule
    // "Form1.Timer6 tick > operator > Form1.Command7 click".
    std::string describe() const;

    // When each timer ticked last.
    std::map<std::string, std::int64_t> last_tick_us;
    std::size_t deepest = 0;
    // Called with each handler that begins, and that has returned: not with one that the program's
    // end unwound.
    std::function<void(const Running&)> began, ended;

  private:
    struct Frame;
    void wrap(std::function<void()>& handler, const std::string& name);
    void wrap_widget(view::Widget& widget, const std::string& name);
    void wrap_timer(view::Timer& timer, const std::string& name);

    Log& log_;
    std::vector<Running> stack_;
};

// Every timer of the program, with its window's name.
struct NamedTimer {
    std::string name; // "Form1.Timer6"
    view::Timer* timer;
};
const std::vector<NamedTimer>& all_timers();

// "Form1.Slider1(2)"; a window is its own name.
std::string widget_name(const view::Widget& widget);

} // namespace zol::soak
