// The bench of every test of the logic: the whole program on virtual time, an operator with no
// screen, and a simulated unit on a simulated line.
#pragma once

#include "app/app_state.h"
#include "link/parameter_mirrors.h"
#include "link/serial_port.h"
#include "simulator/control_unit.h"
#include "view/headless/headless_screen.h"
#include "view/headless/virtual_time.h"
#include "view/operator.h"
#include "view/view.h"

#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iosfwd>
#include <optional>

namespace zol::tests {

// A frame that left the tool. A write has its parameter and value; any other has its command only.
struct Frame {
    int command = 0;
    int number = 0;
    int value = 0;
    bool operator==(const Frame&) const = default;
};
Frame Write(int number, int value);
Frame Send(int command);
std::ostream& operator<<(std::ostream& out, const Frame& frame);

// The tool's end of the line. Records each frame with the time at which it left.
class SimulatedPort : public link::SerialPort {
  public:
    SimulatedPort(sim::ControlUnit& unit, view::VirtualTime& time) : unit_(unit), time_(time) {}

    struct Sent {
        std::int64_t at_ms;
        Frame frame;
        link::Bytes bytes;
    };
    std::vector<Sent> sent;
    Frame last_sent; // also once `sent` was begun anew

    // What stands in the way of the port.
    std::optional<std::string> open_error; // the text that opening fails with
    bool unplugged = false;                // every write and read faults
    bool silent = false;                   // nothing reaches the tool
    // If set, the tool reads what this gives instead of what the unit sends.
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

class Bench : public testing::Test {
  protected:
    explicit Bench(const sim::Options& unit_options = {});
    ~Bench() override;

    // The program from its entry, on a warm or cold unit, until `run_for` lets time pass.
    void start_program();
    // The same, up to the running polling by the direct road of activation; wire and clock notes
    // begin anew after it.
    void start_connected();
    // Builds the unit anew with these options; before the program starts.
    void use_unit(const sim::Options& options);

    void run_for(std::int64_t ms) { time.run_for(ms); }
    std::int64_t now_ms() { return time.now_us() / 1000; }

    // The operator. Each comes back when the program lets time pass.
    void operator_clicks(view::Widget& widget);
    void operator_double_clicks(view::Widget& widget);
    void operator_drags(view::Widget& slider, double value);
    void operator_chooses(view::Widget& combo, int index);
    void operator_types(view::Widget& text_box, const std::string& text);
    // Clicks into the field, types and presses Enter.
    void operator_enters(view::Widget& text_box, const std::string& text);
    void operator_presses(view::Widget& window, int code, int shift = 0);
    void operator_closes(view::Widget& window);
    void inside_program(std::function<void()> work) { time.act(std::move(work)); }

    // What left the tool since the notes were last begun anew.
    std::vector<Frame> frames() const;
    std::vector<Frame> writes() const; // the 9-byte ones
    // The times between one write and the next, in ms.
    std::vector<std::int64_t> gaps_between_writes() const;
    void forget_wire() { port->sent.clear(); }

    // The test's own application folder, with the project's language files.
    const std::filesystem::path folder;
    void write_file(const std::string& name, const std::string& content);
    std::string read_text(const std::string& name);

    view::VirtualTime time;
    view::HeadlessScreen screen;
    std::unique_ptr<sim::ControlUnit> unit;
    std::unique_ptr<SimulatedPort> port;
};

} // namespace zol::tests
