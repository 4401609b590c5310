// Another program of the machine that keeps a serial port to itself.
#pragma once

#include <filesystem>
#include <optional>
#include <sys/types.h>

namespace zol::rough {

// A process of its own. It tries until it has the port, and lets go when it is ended.
class PortHolder {
  public:
    explicit PortHolder(const std::filesystem::path& port);
    ~PortHolder();
    PortHolder(const PortHolder&) = delete;
    PortHolder& operator=(const PortHolder&) = delete;

    // Whether it has got the port by then.
    bool holds_within(int most_ms) const;
    // May be called in a process forked from the holder's.
    void let_go() const;

  private:
    pid_t process_ = -1;
    int news_ = -1; // readable once it holds the port
};

// The one that has the tool's port before the tool starts.
inline std::optional<PortHolder> holder;

// Gives up, for this process and those it starts, root's right to open a port that another program
// holds for itself alone: no fitter has it.
void be_refused_like_a_fitter();

} // namespace zol::rough
