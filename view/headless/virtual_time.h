// Virtual time: the clock jumps to the next event, so that a 30-second sequence takes a
// millisecond, and a run is a pure function of its inputs.
//
// The program runs on a thread of its own and the test on another, strictly in turns: only one of
// them runs at any moment. So a test is an operator with a flow of his own, also while a handler of
// the program sits in an endless loop of waits.
#pragma once

#include "view/timers.h"

#include <functional>
#include <semaphore>
#include <thread>

namespace zol::view {

class VirtualTime : public Platform {
  public:
    ~VirtualTime() override { finish(); }

    // Starts `program` on its thread and lets it run until it wants time to pass.
    void start(std::function<void()> program);
    // Lets time pass. Comes back with the clock exactly there, or earlier if the program ended.
    void run_for_us(std::int64_t us);
    void run_for(std::int64_t ms) { run_for_us(ms * 1000); }
    // Runs `work` inside the program, wherever it waits, and comes back when time is to pass.
    void act(std::function<void()> work);
    // Unwinds the program; no handler runs on. The clock stands from then on.
    void finish();
    bool ended() const { return ended_; }

    std::int64_t now_us() override { return now_us_; }
    void idle(std::int64_t until_us) override;
    [[noreturn]] void end_program() override;

  private:
    struct Unwind {}; // thrown through the program's handlers, caught at the top of its thread

    void resume(); // hands over to the program, and waits until it hands back
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
