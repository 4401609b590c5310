// A control unit with an engine on it, at the far end of a serial line.
//
// It answers requests as the real thing does, from its own memory, and behind it runs a car that
// reacts to what its parameters say. It knows no clock: whoever holds it tells the time, in
// microseconds of any clock that does not run backwards; the unit's life begins with the first call
// that names a time. Two units with the same options and the same calls do the same.
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
    int version = 2; // 0 to 255, as is the revision
    int revision = 71;
    std::uint32_t seed = 1;
    bool warm = false; // the engine at its working temperature, else a cold start
    int protocol = 7;  // of the car's diagnosis, 2 to 10
};

// How the unit misbehaves on request. What damages bytes at random is the business of BadLine.
struct Quirks {
    bool plugged = true;           // the cable is in
    bool silence = false;          // hears, obeys, answers nothing
    bool echo = false;             // the line brings back what is sent
    bool acknowledge = false;      // answers a write with 5 bytes
    int garble = 0;                // so many answers come with changed bytes
    int late_ms = 0;               // every answer later by that much
    int status_length = 29;        // 27 for a unit that does not measure its battery
    int reset_length = 6;          // of the answer to command 5
    std::optional<int> length;     // of the next answer, cut or filled with zeros
    std::optional<int> wrong_echo; // byte 5 of the next answer
};

class ControlUnit final : public Line {
  public:
    // The first byte of an answer comes this long behind the last byte of its request.
    static constexpr int least_latency_us = 20'000;
    static constexpr int most_latency_us = 60'000;
    // From the end of the answer to command 5 to the first request that is heard again.
    static constexpr std::int64_t restart_us = 2'500'000;
    // So many of the last requests are remembered.
    static constexpr std::size_t most_received = 1000;

    // Normal; deaf while it starts anew; a plain text terminal behind command 20; behind command
    // 21 it sends its memory as text, once more for whatever comes in. Only a restart ends the
    // last two.
    enum class Mode { normal, restarting, terminal, download };

    explicit ControlUnit(const Options& options);

    void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) override;
    std::vector<std::uint8_t> take(std::int64_t now_us) override;
    std::optional<std::int64_t> next_byte_at_us() const override;

    // Lets car and unit live up to now; the calls above and `command` do it themselves.
    void advance(std::int64_t now_us);
    // One typed command ("throttle 40"); what is to be shown for it, without a line end behind it.
    // An unknown or wrong one changes nothing and gets a sentence that says what to type.
    std::string command(std::string_view line, std::int64_t now_us);
    // As if the supply had gone off and on: parameters stay, 2.5 s of silence.
    void restart(std::int64_t now_us);
    // Pulls the cable, with what is on it, or puts it back.
    void plug(bool in);

    // 0 for a number above 255.
    std::uint16_t parameter(int number) const { return memory_[number]; }
    // As if it had left the workshop like that; a protocol from 2 to 10 is also what the car
    // speaks. A write over the line is not remembered by `received`, all else is the same.
    void set_parameter(int number, std::uint16_t value);

    const Options& options() const { return options_; }
    Mode mode() const { return mode_; }
    Memory& memory() { return memory_; }
    Engine& engine() { return engine_; }
    Gas& gas() { return gas_; }
    Diagnosis& diagnosis() { return diagnosis_; }
    Quirks& quirks() { return quirks_; }
    Gas::Fuel fuel() const { return gas_.fuel; }
    // The rpm that the unit makes out, as in its status.
    int rpm() const { return gas_.measured_rpm(engine_, memory_); }

    // The last requests, oldest first.
    const std::deque<Frame>& received() const { return received_; }
    void forget_received() { received_.clear(); }

    // Gets one line for each request and each answer that has gone out, while `log` is on.
    void set_log(std::function<void(std::string_view line)> sink) { sink_ = std::move(sink); }
    void log(bool on) { log_on_ = on; }
    // Since the unit's life began.
    double seconds(std::int64_t now_us) const;

  private:
    void begin(std::int64_t now_us);
    void step();
    void obey(const Frame& frame);
    void write(int number, std::uint16_t value);
    void hand_over(Mode mode, std::int64_t now_us);
    void factory_reset(std::int64_t now_us);
    // Returns when the last byte arrives.
    std::int64_t answer(Bytes bytes, std::int64_t now_us);
    void send_text(std::string_view text, std::int64_t now_us);
    // What the terminal shows for the byte.
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
    std::int64_t car_us_ = 0; // car and unit have lived up to here
    std::int64_t deaf_until_us_ = 0;
    std::function<void(std::string_view)> sink_;
    bool log_on_ = false;
};

} // namespace sim
