// The system calls for files and serial lines. Each is passed on to the system unless a test makes
// it fail. The linker redirects the program's calls to here (tests/CMakeLists.txt).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zol::tests {

// The result of a call: it fails with this error, or a read or write moves half of its bytes, or
// neither.
struct Fate {
    int error = 0;
    bool halved = false;
};

// During its life `fate_of` decides on each call; calls are counted from 1. Only one may exist at a
// time.
class WatchedCalls {
  public:
    using FateOf = std::function<Fate(int count, std::string_view name)>;
    explicit WatchedCalls(FateOf fate_of);
    ~WatchedCalls();
    WatchedCalls(const WatchedCalls&) = delete;

    // The names of the calls so far, in order.
    const std::vector<std::string>& names() const { return names_; }
    Fate next(std::string_view name);

  private:
    FateOf fate_of_;
    std::vector<std::string> names_;
};

} // namespace zol::tests
