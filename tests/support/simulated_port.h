// The tool's end of the simulated line, and the frames that the tests expect on it.
#pragma once

#include "link/serial_port.h"
#include "simulator/control_unit.h"
#include "view/headless/virtual_time.h"

#include <functional>
#include <iosfwd>
#include <optional>

namespace zol::tests {

// A frame that the tool sent. A write has its parameter and value, any other its command only.
struct Frame {
    int command = 0;
    int number = 0;
    int value = 0;
    bool operator==(const Frame&) const = default;
};
Frame Write(int number, int value);
Frame Send(int command);
std::ostream& operator<<(std::ostream& out, const Frame& frame);

// A frame and the time at which it was sent, in ms since LogicTest::mark().
struct Timed {
    std::int64_t ms;
    Frame frame;
    bool operator==(const Timed&) const = default;
};
Timed At(std::int64_t ms, Frame frame);
std::ostream& operator<<(std::ostream& out, const Timed& timed);

// Connects the tool with a simulated unit on virtual time. Records each frame with its time.
class SimulatedPort : public link::SerialPort {
  public:
    SimulatedPort(sim::ControlUnit& unit, view::VirtualTime& time) : unit_(unit), time_(time) {}

    struct Sent {
        std::int64_t at_ms;
        Frame frame;
        link::Bytes bytes;
    };
    std::vector<Sent> sent;
    Frame last_sent; // kept when `sent` is cleared

    // Faults of the line.
    std::optional<std::string> open_error; // opening fails with this text
    bool unplugged = false;                // every write and read faults
    bool silent = false;                   // nothing reaches the tool
    std::optional<int> lost_command;       // never reaches the unit
    // If set, the tool reads what this returns instead of what the unit sends.
    std::function<link::Bytes(link::Bytes)> alter;
    int opened = 0, closed = 0;
    int number = 0;
    std::string line_settings;

    void set_number(int port_number) override { number = port_number; }
    void set_line_settings(const std::string& settings) override { line_settings = settings; }
    std::optional<std::string> open() override;
    void close() override;
    bool is_open() const override { return open_; }
    bool write(std::span<const std::uint8_t> bytes) override;
    std::optional<link::Bytes> read_all() override;

  private:
    sim::ControlUnit& unit_;
    view::VirtualTime& time_;
    bool open_ = false;
};

} // namespace zol::tests
