// The simulated control unit, with an engine, at the other end of a serial line.
//
// It answers requests as a real unit does, from its own memory, and simulates a car that reacts to
// the parameters. It shares no table and no frame code with the tool, so that an error in one does
// not hide one in the other. It reads no clock: every call passes the time in microseconds of any
// clock that does not run backwards, and the simulation begins with the first such call. Two units
// with the same options and the same calls behave identically.
#pragma once

#include "simulator/diagnosis.h"
#include "simulator/engine.h"
#include "simulator/gas.h"
#include "simulator/line.h"
#include "simulator/memory.h"
#include "simulator/random.h"
#include "simulator/telegrams.h"
#include "simulator/wire.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sim {

struct Options {
    int family = 0;  // 0 to 4
    int version = 2; // 0 to 255, like the revision
    int revision = 71;
    std::uint32_t seed = 1;
    bool warm = false; // starts at working temperature; false: a cold start
    int protocol = 7;  // of the car's diagnosis, 2 to 10
};

// Faults of the unit that can be switched on. Random damage to bytes is done by BadLine.
struct Quirks {
    bool plugged = true;           // the serial cable is connected
    bool silence = false;          // executes requests but answers none
    bool echo = false;             // the line returns what the tool sends
    bool acknowledge = false;      // answers a write with 5 bytes
    int garble = 0;                // number of coming answers with changed bytes
    int late_ms = 0;               // added to the latency of every answer
    int status_length = 29;        // 27 for a unit that does not measure its battery
    int reset_length = 6;          // of the answer to command 5
    std::optional<int> length;     // of the next answer, cut or filled with zeros
    std::optional<int> wrong_echo; // byte 5 of the next answer
};

class ControlUnit final : public Line {
  public:
    // The time from the last byte of a request to the first byte of its answer.
    static constexpr int least_latency_us = 20'000;
    static constexpr int most_latency_us = 60'000;
    // From the end of the answer to command 5 until requests are accepted again.
    static constexpr std::int64_t restart_us = 2'500'000;
    // How many of the last requests are kept.
    static constexpr std::size_t most_received = 1000;

    // `restarting` ignores everything. `terminal` is a plain text terminal, after command 20.
    // `download`, after command 21, sends the memory as text, again for each byte received. Only a
    // restart ends the last two.
    enum class Mode { normal, restarting, terminal, download };

    explicit ControlUnit(const Options& options);

    void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) override;
    std::vector<std::uint8_t> take(std::int64_t now_us) override;
    std::optional<std::int64_t> next_byte_at_us() const override;

    // Simulates car and unit up to now. The calls above and `command` do this themselves.
    void advance(std::int64_t now_us);
    // Runs a typed command such as "throttle 40"; see run_command().
    std::string command(std::string_view line, std::int64_t now_us);
    // Restarts the unit as after a power interruption: the parameters stay, and it is silent for
    // 2.5 s.
    void restart(std::int64_t now_us);
    // Disconnects the cable, which loses the bytes on it, or connects it.
    void plug(bool in);

    // 0 for a number above 255.
    std::uint16_t parameter(int number) const { return memory_[number]; }
    // Sets a parameter as a write would, but without an entry in `received`. For the protocol
    // parameter, a value from 2 to 10 also sets the car's protocol.
    void set_parameter(int number, std::uint16_t value);

    const Options& options() const { return options_; }
    Mode mode() const { return mode_; }
    Memory& memory() { return memory_; }
    Engine& engine() { return engine_; }
    Gas& gas() { return gas_; }
    Diagnosis& diagnosis() { return diagnosis_; }
    Quirks& quirks() { return quirks_; }
    Gas::Fuel fuel() const { return gas_.fuel; }
    // The engine speed as the unit measures and reports it.
    int rpm() const { return gas_.measured_rpm(engine_, memory_); }

    // The last requests, the oldest first.
    const std::deque<Frame>& received() const { return received_; }
    void forget_received() { received_.clear(); }

    // `sink` gets one line for each request received and each answer sent, while the log is on.
    void set_log(std::function<void(std::string_view line)> sink) { sink_ = std::move(sink); }
    void log(bool on) { log_on_ = on; }
    // Time since the simulation began.
    double seconds(std::int64_t now_us) const;

  private:
    void begin(std::int64_t now_us);
    void step();
    void execute(const Frame& frame);
    void write(int number, std::uint16_t value);
    void hand_over(Mode mode, std::int64_t now_us);
    void factory_reset(std::int64_t now_us);
    // Returns the time at which the last byte arrives.
    std::int64_t answer(Bytes bytes, std::int64_t now_us);
    void send_text(std::string_view text, std::int64_t now_us);
    // The text that the terminal sends for a received byte.
    std::string terminal_byte(std::uint8_t byte, std::int64_t now_us);
    std::string terminal_answer(std::string_view line);
    void download_byte(std::int64_t now_us);
    void damage(Bytes& bytes);
    void note(std::int64_t at_us, std::string_view who, std::string_view what);

    Options options_;
    Memory memory_;
    Engine engine_;
    Gas gas_;
    Diagnosis diagnosis_;
    Quirks quirks_;
    Random car_chance_;
    Random wire_chance_;
    FrameReader reader_;
    Transmitter transmitter_;
    Mode mode_ = Mode::normal;
    std::string terminal_line_;
    std::deque<Frame> received_;
    std::optional<std::int64_t> began_us_;
    std::int64_t simulated_us_ = 0; // car and unit are simulated up to here
    std::int64_t restarting_until_us_ = 0;
    std::function<void(std::string_view)> sink_;
    bool log_on_ = false;
};

} // namespace sim
