// Passes every byte between the adapter and the tool, both ways and in order, and records it.
//
// While the adapter is open, the port's link leads to a pseudo-terminal that the tool opens. While
// it is not, because it is pulled, busy or forbidden, there is no link and no pseudo-terminal: the
// tool finds what it would find without this program.
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

    // Until an interrupt or a termination signal. An empty text, or why it could not begin: an
    // adapter that another program uses now. For an adapter that is not there it waits.
    std::string run();

  private:
    // Bytes that were read on one side and that the other side has not taken yet. Nothing more is
    // read on the one side until it has.
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
    bool gone_ = false;    // the adapter, while it is still open here
    std::string settings_; // as noted last
    std::string problem_;  // as reported last
};

} // namespace zol::logbook
