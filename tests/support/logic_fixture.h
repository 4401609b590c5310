// The fixture of every test of the logic: the whole program on virtual time, an operator without a
// screen, and a simulated unit on a simulated line.
#pragma once

#include "app/app_state.h"
#include "link/parameter_mirrors.h"
#include "tests/support/simulated_port.h"
#include "view/headless/headless_screen.h"
#include "view/headless/virtual_time.h"
#include "view/operator.h"
#include "view/timers.h"
#include "view/view.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace zol::tests {

// Nearly every test of the logic uses these.
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class LogicTest : public testing::Test {
  protected:
    explicit LogicTest(const sim::Options& unit_options = {});
    ~LogicTest() override;

    // Replaces the unit. Call it before the program starts.
    void use_unit(const sim::Options& options);
    void set_parameter(int number, int value); // in the unit's memory

    // --- The program, which runs only while run_for() or an act of the operator lets it
    void start_program();
    // Up to the polling, without the connection dialog. Each of the following ends with mark().
    void start_connected();
    void start_by_dialog();     // the unit is silent until the connection dialog is open
    void start_during_a_poll(); // the last request is not answered yet
    void start_between_polls(); // the next pass begins 50 ms later, unless something stops it
    void start_quietly();       // the polling is stopped, the receive buffer empty
    void open_settings();       // connected, with the settings panel open
    void open_changeover();     // the same, with the changeover window open
    void reopen_changeover();
    void close_changeover();
    void stop_polling(); // and waits until the last pass has ended

    // --- Time
    using Time = std::chrono::milliseconds;
    void run_for(std::int64_t ms) { time.run_for(ms); }
    std::int64_t now_ms() { return time.now_us() / 1000; }
    // Lets time pass until the condition holds; the time since mark(). Fails after a minute.
    std::int64_t ms_until(const std::function<bool()>& condition);

    // --- The operator. Each act returns when the program lets time pass, and `then` later if it is
    // set.
    void operator_clicks(view::Widget& widget, Time then = {});
    void operator_double_clicks(view::Widget& widget);
    void operator_drags(view::Widget& slider, double value, Time then = {});
    void operator_chooses(view::Widget& combo, int index, Time then = {});
    void operator_types(view::Widget& text_box, const std::string& text);
    // Clicks into the field, types and presses Enter.
    void operator_enters(view::Widget& text_box, const std::string& text, Time then = {});
    void operator_presses(view::Widget& window, int code, int shift, Time then = {});
    void operator_presses(view::Widget& window, int code, Time then = {});
    void operator_closes(view::Widget& window, Time then = {});
    void inside_program(std::function<void()> work) { time.act(std::move(work)); }

    // --- Notes: the frames that the tool sent, and the changes of the widgets that a test follows,
    // each with its time since mark()
    void mark();
    void forget_wire() { port->sent.clear(); } // keeps the time of mark()
    std::int64_t marked_ms() const { return marked_ms_; }
    std::vector<Timed> timed() const;
    std::vector<Timed> timed_commands() const; // without the requests of the polling
    std::vector<Frame> frames() const;
    std::vector<Frame> writes() const;
    // The times between one write and the next, in ms.
    std::vector<std::int64_t> gaps_between_writes() const;
    // mark(), then the frames of that time.
    std::vector<Frame> frames_in(std::int64_t ms);
    bool polls_in(std::int64_t ms);
    // Notes changes of these widgets' state in `changes`: "400 Slider_power at 1050".
    void follow(std::vector<const view::Widget*> widgets);
    std::vector<std::string> changes;

    // --- Widgets
    static const std::string& text(const view::Widget& widget) { return view::text(widget); }
    static bool focused(const view::Widget& widget) { return view::focus() == &widget; }
    static bool busy(const view::Widget& widget) {
        return widget.look.pointer == view::Pointer::hourglass;
    }

    // --- Files. The test has its own application folder, with the project's language files.
    const std::filesystem::path folder;
    void write_file(const std::string& name, const std::string& content);
    std::string read_text(const std::string& name);

    view::VirtualTime time;
    view::HeadlessScreen screen;
    std::unique_ptr<sim::ControlUnit> unit;
    std::unique_ptr<SimulatedPort> port;

  private:
    void let_pass(Time then) {
        if (then > Time{}) run_for(then.count());
    }
    std::int64_t marked_ms_ = 0;
};

// A warm car, which stays on petrol until a command changes it over to gas.
class WarmCar : public LogicTest {
  protected:
    explicit WarmCar(int fuel = 1); // 1 LPG, 0 methane
    void change_over_to_gas();
};

// Replaces the word at this position, counted from 1, in each status telegram.
std::function<link::Bytes(link::Bytes)> telegrams_with(std::size_t position, int value);

} // namespace zol::tests
