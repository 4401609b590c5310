#include "view/headless/virtual_time.h"

#include <algorithm>
#include <utility>

namespace zol::view {

void VirtualTime::finish() {
    if (running_) {
        unwinding_ = true;
        resume();
    }
    if (thread_.joinable()) thread_.join();
}

void VirtualTime::start(std::function<void()> program) {
    running_ = true;
    thread_ = std::thread([this, program = std::move(program)] {
        programs_turn_.acquire();
        try {
            if (!unwinding_) program();
        } catch (const Unwind&) {}
        running_ = false;
        ended_ = true;
        tests_turn_.release();
    });
    resume();
}

void VirtualTime::run_for_us(std::int64_t us) {
    if (!running_) return;
    target_us_ = now_us_ + us;
    resume();
}

void VirtualTime::act(std::function<void()> work) {
    if (!running_) return;
    work_ = std::move(work);
    resume();
}

void VirtualTime::resume() {
    programs_turn_.release();
    tests_turn_.acquire();
}

void VirtualTime::hand_back() {
    tests_turn_.release();
    programs_turn_.acquire();
    if (unwinding_) throw Unwind{};
}

void VirtualTime::idle(std::int64_t until_us) {
    if (until_us <= target_us_) {
        now_us_ = std::max(now_us_, until_us);
        return;
    }
    now_us_ = target_us_;
    hand_back();
    // The work may have waited itself and moved the clock, so this call ends and the pump looks
    // again.
    if (work_) std::exchange(work_, nullptr)();
}

void VirtualTime::end_program() { throw Unwind{}; }

} // namespace zol::view
