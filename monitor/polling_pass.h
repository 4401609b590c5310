// The poll pass under way, and the work that waits for its end.
//
// A pass repeats its requests until the unit answers. A handler that runs inside a pass delays the
// pass, and the live values with it. So work that takes long and needs live values waits until the
// pass is over, but at most until the pass has repeated its requests for `repeat_timeout_ms`.
#pragma once

#include <functional>
#include <optional>
#include <vector>

namespace zol::monitor {

// How long work waits for a pass that repeats its requests. A unit answers within 100 ms (20 to 60
// ms latency and the bytes); a second allows for several lost or damaged replies and is short for
// the operator.
constexpr int repeat_timeout_ms = 1000;

struct PollingPassState {
    std::optional<int> repeated_ms; // of the pass under way; nothing: no pass
    std::vector<std::function<void()>> waiting;
};
inline PollingPassState polling_pass_state;

// Marks a pass: it lasts as long as this object.
class PollingPass {
  public:
    PollingPass();
    ~PollingPass();
    PollingPass(const PollingPass&) = delete;
    PollingPass& operator=(const PollingPass&) = delete;
};

// A pass calls this when it has waited `ms` without a usable reply and repeats its request.
void request_is_repeated(int ms);

// Whether a pass is under way. True also in a handler that runs inside it.
bool pass_is_under_way();

// Runs `work` at once if no pass is under way or the pass has repeated its requests for
// `repeat_timeout_ms`; else as soon as one of the two holds.
void after_the_pass(std::function<void()> work);

// For work that after_the_pass() has begun inside a pass: runs `work` as soon as that pass repeats
// its request once more or ends.
void after_the_next_repeat(std::function<void()> work);

} // namespace zol::monitor
