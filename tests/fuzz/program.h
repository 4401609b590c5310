// All logic of the program on one thread, with the fuzzer in place of clock, screen, operator and
// control unit. The program neither starts nor ends, and a wait without end is cut off, so that
// there are thousands of runs a second.
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

class Program : private view::Platform, private view::Screen, private link::SerialPort {
  public:
    // The only one, made by the first call.
    static Program& instance();

    // Runs `work` with all windows loaded and shown as designed and all state reset. Work that
    // waits without end, or reads after the last reply, is unwound.
    void run(const std::function<void()>& work);

    // The replies that the next reads of the port return. A read after the last one ends the run.
    std::deque<link::Bytes> replies;
    // The texts typed into input boxes, then empty texts.
    std::deque<std::string> entries;
    bool says_yes = true;
    bool port_open = true;
    bool port_faults = false;
    view::Colour chosen_colour = 0;

    // The application folder, in memory if possible. Removed at the end.
    const std::string& folder() const { return folder_; }
    void write_file(const char* name, std::string_view content) const;

    // The longest time that a run may last without a frame.
    static constexpr std::int64_t longest_silence_us = 5'000'000;
    static constexpr int most_turns = 3000;

  private:
    struct Enough {};

    Program();
    ~Program() override;
    void clear();
    void reset_windows();
    void check_looks();

    // The clock jumps to the next event.
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
