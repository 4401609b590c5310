#include "monitor/polling_pass.h"

#include "view/timers.h"

#include <utility>

namespace zol::monitor {
namespace {

std::optional<int>& repeated_ms = polling_pass_state.repeated_ms;
std::vector<std::function<void()>>& waiting = polling_pass_state.waiting;

void post_waiting() {
    for (auto& work : std::exchange(waiting, {}))
        view::post(std::move(work));
}

} // namespace

PollingPass::PollingPass() { repeated_ms = 0; }

// Runs also when the end of the program unwinds the pass.
PollingPass::~PollingPass() {
    repeated_ms.reset();
    post_waiting();
}

void request_is_repeated(int ms) {
    if (!repeated_ms) return;
    *repeated_ms += ms;
    if (*repeated_ms >= repeat_timeout_ms) post_waiting();
}

bool pass_is_under_way() { return repeated_ms.has_value(); }

void after_the_pass(std::function<void()> work) {
    if (repeated_ms && *repeated_ms < repeat_timeout_ms)
        waiting.push_back(std::move(work));
    else
        work();
}

void after_the_next_repeat(std::function<void()> work) { waiting.push_back(std::move(work)); }

} // namespace zol::monitor
