// What the tests of the calibration share: frames and changes of widgets, each with the time since
// the operator's act.
#pragma once

#include "link/ecu_frames.h"
#include "tests/support/bench.h"
#include "tests/support/timed.h"
#include "view/screen.h"
#include "view/timers.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::tests {

class CalibrationBench : public Bench {
  protected:
    // A warm car that stays on petrol until it is told otherwise.
    explicit CalibrationBench(int fuel = 1) { use_warm_unit(fuel); }

    void use_warm_unit(int fuel) {
        sim::Options options;
        options.warm = true;
        use_unit(options);
        unit->set_parameter(sim::par::fuel, static_cast<std::uint16_t>(fuel));
        unit->set_parameter(sim::par::automatic, 0);
    }

    // Connected, with the telegram of the last request still on its way: the loop is on the stack.
    void start_during_a_poll() {
        start_connected();
        while (form1::Timer_stato_sistema.is_on())
            run_for(1);
        begin_notes();
    }

    // The same, but the loop has just ended a pass: it could begin another during a wait.
    void start_between_polls() {
        start_connected();
        while (!form1::Timer_stato_sistema.is_on())
            run_for(1);
        begin_notes();
    }

    void go_on_gas() {
        unit->gas().ask_for_gas();
        run_for(3000);
        ASSERT_TRUE(app::state.on_gas);
    }

    // Times count from here.
    void begin_notes() {
        forget_wire();
        begun_ms_ = now_ms();
        changes.clear();
    }

    std::vector<Timed> timed_frames() const {
        std::vector<Timed> all;
        for (const auto& sent : port->sent)
            all.push_back({sent.at_ms - begun_ms_, sent.frame});
        return all;
    }

    // All but the requests of the polling loop.
    std::vector<Timed> timed_commands() const {
        std::vector<Timed> some = timed_frames();
        std::erase_if(some, [](const Timed& timed) { return timed.frame == Send(3); });
        return some;
    }

    bool polls_come_in(std::int64_t ms) {
        forget_wire();
        run_for(ms);
        return std::ranges::count(frames(), Send(3)) > 0;
    }

    // Notes each change of these widgets' pointer, enabled state, text, tip, visibility and value:
    // "400 Slider_attenuazione disabled".
    void follow(std::vector<const view::Widget*> widgets) {
        screen.on_changed = [this, widgets](view::Widget& widget, view::Aspect aspect) {
            if (std::ranges::find(widgets, &widget) == widgets.end()) return;
            changes.push_back(std::to_string(now_ms() - begun_ms_) + " " + full_name(widget) + " " +
                              what(widget, aspect));
        };
    }
    std::vector<std::string> changes;

    // What the unit sends, with the words of its status telegrams replaced: position and value.
    void tamper_with_status(std::function<void(link::Bytes&)> tamper) {
        port->alter = [tamper](link::Bytes bytes) {
            if (bytes.size() >= 27 && bytes[4] == 3) tamper(bytes);
            return bytes;
        };
    }

    static void put_word(link::Bytes& bytes, std::size_t position, int value) {
        bytes[position - 1] = static_cast<std::uint8_t>(value / 256);
        bytes[position] = static_cast<std::uint8_t>(value % 256);
    }

    std::int64_t begun_at() const { return begun_ms_; }

    static view::Pointer pointer() { return form1::Form1.look.pointer; }

  private:
    static std::string what(const view::Widget& w, view::Aspect aspect) {
        switch (aspect) {
        case view::Aspect::pointer:
            return w.look.pointer == view::Pointer::hourglass ? "hourglass"
                   : w.look.pointer == view::Pointer::custom  ? "own pointer"
                                                              : "normal pointer";
        case view::Aspect::enabled: return w.look.enabled ? "enabled" : "disabled";
        case view::Aspect::visible: return w.look.visible ? "shown" : "hidden";
        case view::Aspect::checked: return w.look.checked ? "checked" : "unchecked";
        case view::Aspect::text: return "says " + w.look.text;
        case view::Aspect::tip: return "tip " + w.look.tip;
        case view::Aspect::value: return "at " + std::to_string(static_cast<int>(w.look.value));
        default: return "changed";
        }
    }

    std::int64_t begun_ms_ = 0;
};

} // namespace zol::tests
