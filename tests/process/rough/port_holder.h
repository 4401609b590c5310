// Another program that has a serial port open for itself alone.
#pragma once

#include <filesystem>
#include <optional>
#include <sys/types.h>

namespace zol::rough {

// Its own process. It tries until it has the port, and releases it when it ends.
class PortHolder {
  public:
    explicit PortHolder(const std::filesystem::path& port);
    ~PortHolder();
    PortHolder(const PortHolder&) = delete;
    PortHolder& operator=(const PortHolder&) = delete;

    // Whether it gets the port in time.
    bool holds_within(int most_ms) const;
    // Can be called in a forked process too.
    void release() const;

  private:
    pid_t process_ = -1;
    int news_ = -1; // readable once it has the port
};

// Has the tool's port before the tool starts.
inline std::optional<PortHolder> holder;

// Gives up root's right to open such a port, for this process and its children: an ordinary user
// does not have it.
void drop_exclusive_open_right();

} // namespace zol::rough
