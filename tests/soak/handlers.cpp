#include "tests/soak/handlers.h"

#include "app/app_state.h"
#include "tests/soak/write_rules.h"

#include <algorithm>
#include <exception>

namespace zol::soak {

int Running::written(int parameter) const {
    int value = 0;
    for (const Written& each : writes)
        if (each.number == parameter) value = each.value;
    return value;
}

std::string timer_name(const view::Timer& timer) { return timer.window().name + "." + timer.name; }

std::string widget_name(const view::Widget& widget) {
    if (widget.kind == view::Kind::window) return widget.name;
    return widget.window->name + "." + view::full_name(widget);
}

// Puts a handler on the stack while it runs.
struct Handlers::Frame {
    Frame(Handlers& handlers, const std::string& name, int key = 0, int shift = 0)
        : handlers_(handlers), unwinding_(std::uncaught_exceptions()) {
        Running running;
        running.name = name;
        running.key = key;
        running.shift = shift;
        running.loading = app::state.ui_loading;
        running.locked = app::state.poll_enabled;
        running.rule = write_rule(running);
        if (handlers.began) handlers.began(running);
        handlers.stack_.push_back(std::move(running));
        handlers.deepest = std::max(handlers.deepest, handlers.stack_.size());
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame() {
        const Running running = std::move(handlers_.stack_.back());
        handlers_.stack_.pop_back();
        if (std::uncaught_exceptions() == unwinding_ && handlers_.ended) handlers_.ended(running);
    }

  private:
    Handlers& handlers_;
    int unwinding_;
};

void Handlers::wrap(std::function<void()>& handler, const std::string& name) {
    if (!handler) return;
    handler = [this, name, inner = std::move(handler)] {
        const Frame frame(*this, name);
        inner();
    };
}

void Handlers::wrap_widget(view::Widget& widget, const std::string& name) {
    view::Handlers& on = widget.on;
    wrap(on.click, name + " click");
    wrap(on.double_click, name + " double click");
    wrap(on.change, name + " change");
    wrap(on.scroll, name + " scroll");
    wrap(on.got_focus, name + " focus");
    wrap(on.load, name + " load");
    wrap(on.activate, name + " activate");
    wrap(on.deactivate, name + " deactivate");
    wrap(on.closing, name + " closing");
    wrap(on.unload, name + " unload");
    if (on.key)
        on.key = [this, name = name + " key", inner = std::move(on.key)](int code, int shift) {
            const Frame frame(*this, name, code, shift);
            inner(code, shift);
        };
}

void Handlers::wrap_timer(view::Timer& timer) {
    const std::string name = timer_name(timer);
    if (!timer.tick) return;
    timer.tick = [this, name, inner = std::move(timer.tick)] {
        last_tick_us[name] = view::now_us();
        const Frame frame(*this, name + " tick");
        inner();
    };
}

void Handlers::wrap() {
    for (view::Widget* window : view::all_windows()) {
        wrap_widget(*window, widget_name(*window));
        for (auto* list : {&window->controls, &window->menus})
            for (view::Widget* widget : *list)
                wrap_widget(*widget, widget_name(*widget));
    }
    for (view::Timer* timer : view::all_timers())
        wrap_timer(*timer);
}

void Handlers::act(const std::string& what, const std::function<void()>& work) {
    log_.note("operator " + what);
    const Frame frame(*this, "operator");
    work();
}

bool Handlers::runs(std::string_view name) const {
    return std::any_of(stack_.begin(), stack_.end(),
                       [&](const Running& running) { return running.name == name; });
}

bool Handlers::writes(int parameter) const {
    return std::any_of(stack_.begin(), stack_.end(), [&](const Running& running) {
        return running.rule && names(*running.rule, parameter);
    });
}

std::string Handlers::describe() const {
    std::string all;
    for (const Running& running : stack_)
        all += (all.empty() ? "" : " > ") + running.name;
    return all.empty() ? "nothing" : all;
}

} // namespace zol::soak
