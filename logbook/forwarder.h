// Passes every byte between adapter and tool, in both directions and in order, and records it.
//
// While the adapter is open, the port's link leads to a pseudo-terminal that the tool opens. While
// it is not, because it is pulled, busy or forbidden, there is neither link nor pseudo-terminal, so
// the tool finds what it would find without this program.
#pragma once

#include "logbook/adapter.h"
#include "logbook/offered_terminal.h"
#include "logbook/port_claim.h"
#include "logbook/recorder.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace zol::logbook {

class Forwarder {
  public:
    Forwarder(std::filesystem::path device, PortClaim& claim, Recorder& recorder);
    Forwarder(const Forwarder&) = delete;
    Forwarder& operator=(const Forwarder&) = delete;
    ~Forwarder();

    // Runs until an interrupt or a termination signal. Waits for an adapter that is missing.
    // Returns an empty text, or why it could not begin: another program uses the adapter.
    std::string run();

  private:
    // Bytes that were read on one side and are not written to the other yet. Until they are,
    // nothing more is read on that side.
    struct Pending {
        std::array<std::uint8_t, 512> bytes{};
        std::size_t from = 0, to = 0;
        bool empty() const { return from == to; }
    };

    std::string connect();
    void disconnect();
    void try_to_connect();
    void wait();
    void pass(int source, int destination, Pending& pending, EventKind kind);
    void write_pending(int destination, Pending& pending);
    void follow_users();
    void follow_settings(std::int64_t at_us);
    bool signalled();
    void note(const std::string& text);
    std::int64_t now_us() const;

    std::filesystem::path device_;
    PortClaim& claim_;
    Recorder& recorder_;
    Adapter adapter_;
    OfferedTerminal terminal_;
    Pending requests_, replies_;
    std::int64_t start_us_;
    int signals_ = -1;
    bool ended_ = false;
    bool gone_ = false;    // the adapter was pulled, but is still open here
    std::string settings_; // last noted
    std::string problem_;  // last reported
};

} // namespace zol::logbook
