// The windows without the handlers of the program, for tests of what a widget does by itself.
#pragma once

#include "tests/support/logic_fixture.h"

namespace zol::tests {

// Each event that a test connects through `notes` is added to `events`.
class PlainWindows : public LogicTest {
  protected:
    PlainWindows() {
        for (view::Widget* window : view::all_windows())
            for (view::Widget* widget : with_controls(*window)) {
                kept_.emplace_back(&widget->on, widget->on);
                widget->on = {};
            }
        time.start([] {
            for (;;)
                view::pump();
        });
    }
    ~PlainWindows() override {
        time.finish();
        for (auto& [handlers, before] : kept_)
            *handlers = before;
    }
    std::function<void()> notes(const std::string& event) {
        return [this, event] { events.push_back(event); };
    }
    std::vector<std::string> events;

  private:
    static std::vector<view::Widget*> with_controls(view::Widget& window) {
        std::vector<view::Widget*> all = window.controls;
        all.push_back(&window);
        return all;
    }
    std::vector<std::pair<view::Handlers*, view::Handlers>> kept_;
};

} // namespace zol::tests
