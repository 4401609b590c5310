// The system's calls for files and lines, on the bench: each goes through to the system unless a
// test wants otherwise. The linker leads the program's calls here (tests/CMakeLists.txt).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zol::tests {

// What becomes of a call: it fails with this error, or a read or write moves half of its bytes, or
// neither.
struct Fate {
    int error = 0;
    bool halved = false;
};

// While it lives, `fate_of` is asked before each call; calls count from 1. One at a time.
class WatchedCalls {
  public:
    using FateOf = std::function<Fate(int count, std::string_view name)>;
    explicit WatchedCalls(FateOf fate_of);
    ~WatchedCalls();
    WatchedCalls(const WatchedCalls&) = delete;

    // The names of the calls so far, in their order.
    const std::vector<std::string>& names() const { return names_; }
    Fate next(std::string_view name);

  private:
    FateOf fate_of_;
    std::vector<std::string> names_;
};

} // namespace zol::tests
