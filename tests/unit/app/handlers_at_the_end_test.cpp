// Every handler of every widget, run while the program ends: no frame is sent, and the end does not
// wait for the handler.
#include "tests/support/logic_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <iterator>

namespace zol::tests {
namespace {

struct Act {
    std::string name;
    std::function<void()> work;
};

void add_keys(std::vector<Act>& acts, view::Widget& w) {
    if (w.kind != view::Kind::window) {
        acts.push_back({"Enter", [&w] { w.on.key(view::operator_acts::enter, 0); }});
        return;
    }
    for (const int code : {32, 33, 34, 37, 38, 39, 40})
        acts.push_back({"key " + std::to_string(code), [&w, code] { w.on.key(code, 0); }});
    for (const int code : {'F', 'G', 'T', 'V'})
        acts.push_back({"Ctrl " + std::to_string(code),
                        [&w, code] { w.on.key(code, view::operator_acts::ctrl_key); }});
}

void move_handle(view::Widget& slider) {
    view::place_value(slider,
                      view::value(slider) == slider.look.max ? slider.look.min : slider.look.max);
    slider.on.change();
}

// Also of hidden and disabled widgets, which the operator can reach in another state.
std::vector<Act> acts_of(view::Widget& w) {
    std::vector<Act> acts;
    if (w.on.click) acts.push_back({"click", w.on.click});
    if (w.on.double_click) acts.push_back({"double click", w.on.double_click});
    if (w.on.change && w.kind == view::Kind::slider)
        acts.push_back({"change", [&w] { move_handle(w); }});
    if (w.on.key) add_keys(acts, w);
    for (Act& act : acts)
        act.name = w.window->name + "." + full_name(w) + " " + act.name;
    return acts;
}

// Answers yes to everything.
struct WillingScreen : view::HeadlessScreen {
    view::Answer message_box(const view::MessageBox& box) override {
        return box.buttons == view::Buttons::ok ? view::Answer::ok : view::Answer::yes;
    }
    std::string input_box(const std::string&, const std::string&) override { return "7"; }
    view::Colour colour_box(view::Colour start) override { return start; }
};

// One run of the program, up to the act.
class Probe : public LogicTest {
  public:
    Probe() { view::use_screen(willing_); }
    void TestBody() override {}

    void connect() { start_connected(); }
    void open_dialog() {
        port->silent = true;
        start_program();
        run_for(1200);
        port->silent = false;
    }
    void close_main_window() { operator_closes(form1::Form1); }
    void cancel_dialog() { operator_clicks(centralina_attiva::Command_cancel); }
    void perform(const Act& act) {
        forget_wire();
        inside_program([&act] {
            app::state.ui_loading = false;
            app::state.poll_enabled = false;
            act.work();
        });
    }
    using LogicTest::frames;
    using LogicTest::run_for;
    using LogicTest::time;
    using LogicTest::writes;

  private:
    WillingScreen willing_;
};

std::vector<Act> all_acts() {
    const Probe connects_the_handlers;
    std::vector<Act> all;
    const auto add = [&all](view::Widget* w) {
        std::ranges::move(acts_of(*w), back_inserter(all));
    };
    for (view::Widget* window : view::all_windows()) {
        add(window);
        std::ranges::for_each(window->controls, add);
        std::ranges::for_each(window->menus, add);
    }
    return all;
}

// The condition for the other two to be able to fail.
TEST(HandlersAtTheEnd, ManyWriteAtOtherTimes) {
    int writers = 0;
    for (const Act& act : all_acts()) {
        Probe run;
        run.connect();
        run.perform(act);
        run.run_for(3000);
        writers += !run.writes().empty();
    }
    EXPECT_GE(writers, 60);
}

void expect_quiet_end(Probe& run, const Act& act, int last_ms) {
    run.perform(act);
    run.run_for(last_ms);
    EXPECT_TRUE(run.time.ended()) << act.name;
    EXPECT_THAT(run.frames(), testing::IsEmpty()) << act.name;
}

TEST(HandlersAtTheEnd, NoneSendsAfterTheMainWindowHasClosed) {
    for (const Act& act : all_acts()) {
        Probe run;
        run.connect();
        run.close_main_window();
        expect_quiet_end(run, act, 600);
    }
}

TEST(HandlersAtTheEnd, NoneSendsAfterCancelInTheDialog) {
    for (const Act& act : all_acts()) {
        Probe run;
        run.open_dialog();
        run.cancel_dialog();
        expect_quiet_end(run, act, 1100);
    }
}

} // namespace
} // namespace zol::tests
