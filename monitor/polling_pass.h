// One pass of the polling loop, and those who wait for its end.
//
// A pass repeats its requests until the unit answers them. A handler that runs inside it holds it
// up to its own end, and the live values with it: what takes long and needs them waits here until
// the pass is over. It does not wait for ever: a pass that has repeated itself for `patience_ms` is
// not about to end.
#pragma once

#include <functional>
#include <optional>
#include <vector>

namespace zol::monitor {

// How long a request is repeated before whoever waits for its answer goes on without it. A unit
// answers within 100 ms; a second forgives some lost or damaged replies and is short to a fitter.
constexpr int patience_ms = 1000;

struct PollingPassState {
    std::optional<int> repeated_ms; // by the pass under way
    std::vector<std::function<void()>> waiting;
};
inline PollingPassState polling_pass_state;

// A pass lasts as long as this object.
class PollingPass {
  public:
    PollingPass();
    ~PollingPass();
    PollingPass(const PollingPass&) = delete;
    PollingPass& operator=(const PollingPass&) = delete;
};

// The pass under way got no answer to a request that it has waited `ms` for, and repeats it.
void request_is_repeated(int ms);

// True also in a handler that runs inside the pass and holds it up.
bool pass_is_under_way();

// Runs `work` when no pass is under way, or as soon as the present one is over or has repeated
// itself for `patience_ms`.
void after_the_pass(std::function<void()> work);

// Runs `work` when the pass under way, which repeats itself, does so once more or is over.
void after_the_next_repeat(std::function<void()> work);

} // namespace zol::monitor
