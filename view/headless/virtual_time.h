// A clock for tests: it jumps to the next event, so a sequence of 30 seconds takes a millisecond,
// and a run depends on nothing but its inputs.
//
// The program runs on one thread and the test on another, and only one of them runs at any moment.
// So a test can go on with the next act while a handler of the program is still waiting, even in an
// endless loop.
#pragma once

#include "view/timers.h"

#include <functional>
#include <semaphore>
#include <thread>

namespace zol::view {

class VirtualTime : public Platform {
  public:
    ~VirtualTime() override { finish(); }

    // Starts `program` on its own thread and returns when it first waits.
    void start(std::function<void()> program);
    // Lets time pass. Returns with the clock advanced by exactly this time, or earlier if the
    // program has ended.
    void run_for_us(std::int64_t us);
    void run_for(std::int64_t ms) { run_for_us(ms * 1000); }
    // Runs `work` on the program's thread, inside whichever wait is running there, and returns when
    // the program waits again.
    void act(std::function<void()> work);
    // Unwinds the program; no handler runs after this. The clock does not advance any more.
    void finish();
    bool ended() const { return ended_; }

    std::int64_t now_us() override { return now_us_; }
    void idle(std::int64_t until_us) override;
    [[noreturn]] void end_program() override;

  private:
    struct Unwind {}; // thrown through the program's handlers, caught at the top of its thread

    void resume(); // lets the program run, and waits until it hands control back
    void hand_back();

    std::int64_t now_us_ = 0;
    std::int64_t target_us_ = 0;
    std::function<void()> work_;
    bool running_ = false; // the program's thread exists and has not ended
    bool ended_ = false;
    bool unwinding_ = false;
    std::thread thread_;
    std::binary_semaphore programs_turn_{0}, tests_turn_{0};
};

} // namespace zol::view
