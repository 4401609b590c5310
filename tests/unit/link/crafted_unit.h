// A control unit whose replies the test decides, for what a sound unit never sends.
#pragma once

#include "tests/support/bench.h"
#include "tests/support/frames.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

#include <utility>

namespace zol::tests {

using link::Bytes;

// The word at `position` of the image of an unaltered CraftedUnit: each position has its own. The
// one of the temperature correction is within the range of its slider, which otherwise writes a
// value back.
constexpr int word_at(int position) { return position == 36 ? 7 : 10 * position + 1; }

struct CraftedUnit {
    int family = 0, version = 2, revision = 71;
    bool present = true; // replies to the presence test
    Bytes image = image_reply(191);
    // If set, gives the reply to a command, or nothing for the usual one.
    std::function<std::optional<Bytes>(int command)> instead;

    CraftedUnit() {
        for (int position = 6; position <= 190; position += 2)
            set_word(position, word_at(position));
    }
    void set_word(int position, int value) { tests::set_word(image, position, value); }
    Bytes answer(int command) const {
        if (instead)
            if (auto other = instead(command)) return *other;
        switch (command) {
        case 1: return image;
        case 3: return of_length(frame_bytes(3), 27);
        case 6: return present ? presence_reply() : Bytes{};
        case 7: return version_reply(family, version, revision);
        case 16: return of_length(frame_bytes(16), 12);
        default: return {};
        }
    }
};

// The whole program with a CraftedUnit at the end of the line.
class CraftedBench : public Bench {
  protected:
    CraftedUnit crafted;

    CraftedBench() { connect_crafted_unit(); }

    void connect_crafted_unit() {
        port->silent = true; // the simulated unit hears and is not heard
        port->alter = [this](const Bytes&) {
            if (port->sent.empty()) return Bytes{};
            const auto last = std::pair(port->sent.size(), port->sent.back().at_ms);
            if (std::exchange(answered_, last) == last) return Bytes{};
            return crafted.answer(port->sent.back().frame.command);
        };
    }
    // By the direct road of activation, up to the running polling.
    void read_on_activation() {
        start_program();
        for (int tenths = 0; tenths < 200 && !form1::Timer_stato_sistema.is_on(); ++tenths)
            run_for(100);
    }
    void open_the_dialog() {
        crafted.present = false;
        start_program();
        run_for(1200);
        crafted.present = true;
    }
    // By the connection dialog, up to its end; the window is filled 3 seconds later.
    void read_by_dialog() {
        open_the_dialog();
        operator_clicks(centralina_attiva::Command_test);
        run_for(1600);
        operator_clicks(centralina_attiva::Command_ok);
        run_for(4200);
    }

  private:
    // The frame that was answered last: how many there were by then, and when it left.
    std::pair<std::size_t, std::int64_t> answered_{};
};

} // namespace zol::tests
