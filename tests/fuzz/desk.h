// The program on a desk: all of its logic, with the fuzzer in place of clock, screen, operator and
// control unit. One thread, no start and no end of the program, and whatever a handler waits for
// without end is cut off; thus thousands of runs a second.
#pragma once

#include "link/serial_port.h"
#include "tests/fuzz/input.h"
#include "view/screen.h"
#include "view/timers.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace zol::fuzz {

// What must hold. If it does not, the sentence is printed and the process ends as after a crash.
void require(bool holds, const char* sentence);

class Desk : private view::Platform, private view::Screen, private link::SerialPort {
  public:
    // The one desk; built with the first call.
    static Desk& desk();

    // Runs `work` in a program whose windows stand at their design, all loaded and shown, nothing
    // of the run before left over. Work that waits without end, or for a reply more than there is,
    // is unwound.
    void run(const std::function<void()>& work);

    // What the next reads of the port bring; a read behind the last of them ends the run.
    std::deque<link::Bytes> replies;
    // What the operator types into the boxes that ask for a text; empty texts behind the last.
    std::deque<std::string> entries;
    bool says_yes = true;
    bool port_open = true;
    bool port_faults = false;
    view::Colour chosen_colour = 0;

    // The application folder: in memory where the system has such a place. Removed at the end.
    const std::string& folder() const { return folder_; }
    void write_file(const char* name, std::string_view content) const;

    // The longest that a run may go on without a word on the line.
    static constexpr std::int64_t longest_silence_us = 5'000'000;
    static constexpr int most_turns = 3000;

  private:
    struct Enough {};

    Desk();
    ~Desk() override;
    void clear();
    void stand_up();
    void check_looks();

    // The clock jumps to whatever falls due.
    std::int64_t now_us() override { return now_us_; }
    void idle(std::int64_t until_us) override;
    [[noreturn]] void end_program() override { throw Enough{}; }

    void window_loaded(view::Widget&) override {}
    void window_shown(view::Widget&, bool) override { windows_moved_ = true; }
    void window_unloaded(view::Widget&) override { windows_moved_ = true; }
    void changed(view::Widget& widget, view::Aspect) override { changed_.push_back(&widget); }
    void focus_moved(view::Widget&) override {}
    view::Answer message_box(const view::MessageBox& box) override;
    std::string input_box(const std::string&, const std::string&) override;
    view::Colour colour_box(view::Colour) override { return chosen_colour; }
    void show_manual(const std::string&, const std::string&) override {}
    view::ScreenSize size() override { return {10125, 9000}; }

    void set_number(int port_number) override;
    void set_line_settings(const std::string&) override {}
    std::optional<std::string> open() override;
    void close() override { port_open = false; }
    bool is_open() const override { return port_open; }
    bool write(std::span<const std::uint8_t> bytes) override;
    std::optional<link::Bytes> read_all() override;

    std::string folder_;
    std::int64_t now_us_ = 0;
    std::int64_t heard_us_ = 0;
    int turns_ = 0;
    bool windows_moved_ = false;
    std::vector<view::Widget*> changed_;
};

} // namespace zol::fuzz
