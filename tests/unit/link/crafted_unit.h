// A control unit whose replies the test decides, for what a sound unit never sends.
#pragma once

#include "tests/support/frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

#include <initializer_list>
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
    void set_firmware(int new_family, int new_version, int new_revision) {
        family = new_family;
        version = new_version;
        revision = new_revision;
    }
    void set_word(int position, int value) { tests::set_word(image, position, value); }
    void set_words(std::initializer_list<std::pair<int, int>> words) {
        for (const auto& [position, value] : words)
            set_word(position, value);
    }
    // Values that every widget of family 4's image can show; the slider of the temperature
    // correction has its value already.
    void set_words_of_a_car() {
        set_words({{8, 1250}, {10, 1050}, {16, 1},    {18, 35}, {20, 3900}, {22, 4200},
                   {24, 3},   {26, 25},   {28, 50},   {30, 75}, {32, 1},    {36, 0},
                   {42, 12},  {48, 1200}, {56, 20},   {78, 3},  {84, 1},    {86, 4},
                   {124, 1},  {134, 700}, {138, 800}, {140, 1}, {148, 1},   {150, 1}});
    }
    // From now on this replies to one command.
    void reply_to_command(int command, std::function<std::optional<Bytes>()> reply) {
        instead = [command, reply = std::move(reply)](int asked) {
            return asked == command ? reply() : std::nullopt;
        };
    }
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

// The two paths of the first read.
enum class Path { activation, dialog };
inline std::string path_name(Path path) {
    return path == Path::activation ? "OnActivation" : "InTheDialog";
}

// The whole program with a CraftedUnit at the end of the line.
class CraftedUnitTest : public LogicTest {
  protected:
    CraftedUnit crafted;

    CraftedUnitTest() {
        port->silent = true; // the simulated unit gets the requests, its replies are dropped
        port->alter = [this](const Bytes&) {
            if (port->sent.empty()) return Bytes{};
            const auto last = std::pair(port->sent.size(), port->sent.back().at_ms);
            if (std::exchange(answered_, last) == last) return Bytes{};
            return crafted.answer(port->sent.back().frame.command);
        };
    }
    // Up to the running polling.
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
    void pass_the_port_test() {
        operator_clicks(centralina_attiva::Command_test);
        run_for(1600);
    }
    // Up to the end of the dialog; the main window is filled 3 seconds later.
    void read_by_dialog() {
        open_the_dialog();
        pass_the_port_test();
        operator_clicks(centralina_attiva::Command_ok);
        run_for(4200);
    }
    void read_by(Path path) { path == Path::activation ? read_on_activation() : read_by_dialog(); }

    // Activates the main window again, so that it reads the unit again.
    void read_again() {
        inside_program([] {
            view::hide(form1::Form1);
            view::show(form1::Form1);
        });
        run_for(6000);
    }
    // Starts a program that only lets time pass, with an open port that no handler uses.
    void start_idle() {
        port->open();
        time.start([] {
            for (;;)
                view::pump();
        });
    }

  private:
    // The frame that was answered last: how many there were by then, and when it left.
    std::pair<std::size_t, std::int64_t> answered_{};
};

} // namespace zol::tests
