#include "simulator/control_unit.h"

#include "simulator/console.h"
#include "simulator/wire_log.h"

#include <algorithm>
#include <utility>

namespace sim {

ControlUnit::ControlUnit(const Options& options)
    : options_(options), car_chance_(options.seed), wire_chance_(options.seed ^ 0x5bd1e995u) {
    diagnosis_.car_protocol = options.protocol;
    memory_.set(par::eobd_protocol, static_cast<std::uint16_t>(options.protocol));
    engine_.start(options.warm);
    gas_.linked_to_car = options.family != 1;
    gas_.start(options.warm);
}

void ControlUnit::begin(std::int64_t now_us) {
    if (began_us_) return;
    began_us_ = simulated_us_ = now_us;
}

double ControlUnit::seconds(std::int64_t now_us) const {
    return began_us_ ? static_cast<double>(now_us - *began_us_) / 1e6 : 0;
}

void ControlUnit::advance(std::int64_t now_us) {
    begin(now_us);
    constexpr auto step_us = static_cast<std::int64_t>(step_s * 1e6);
    while (simulated_us_ + step_us <= now_us) {
        simulated_us_ += step_us;
        step();
    }
    if (mode_ == Mode::restarting && now_us >= restarting_until_us_) mode_ = Mode::normal;
}

void ControlUnit::step() {
    engine_.step(car_chance_, gas_.mixture);
    gas_.step(engine_, memory_, car_chance_);
    if (mode_ == Mode::restarting && simulated_us_ < restarting_until_us_) {
        gas_.power_up();
        diagnosis_.power_up();
    } else {
        diagnosis_.step(engine_, gas_, memory_);
    }
}

void ControlUnit::receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) {
    advance(now_us);
    if (!quirks_.plugged || bytes.empty()) return;
    if (quirks_.echo)
        transmitter_.send(Bytes(bytes.begin(), bytes.end()), now_us + wire_time_us(1));
    std::string shown;
    for (const std::uint8_t byte : bytes) {
        switch (mode_) {
        case Mode::normal:
            if (const auto frame = reader_.push(byte, now_us)) execute(*frame);
            break;
        case Mode::restarting: break;
        case Mode::terminal: shown += terminal_byte(byte, now_us); break;
        case Mode::download: download_byte(now_us); break;
        }
    }
    send_text(shown, now_us);
}

std::vector<std::uint8_t> ControlUnit::take(std::int64_t now_us) {
    advance(now_us);
    Bytes out;
    transmitter_.take(now_us, out, [this](const Bytes& answer, std::int64_t first_at_us) {
        if (log_on_ && sink_) note(first_at_us, "unit", describe_answer(answer));
    });
    return out;
}

std::optional<std::int64_t> ControlUnit::next_byte_at_us() const {
    return transmitter_.next_byte_at_us();
}

void ControlUnit::execute(const Frame& frame) {
    const std::int64_t now = frame.at_us;
    if (log_on_ && sink_) note(now, "tool", describe_request(frame));
    if (received_.size() >= most_received) received_.pop_front();
    received_.push_back(frame);
    const bool live = options_.family == 2 || options_.family == 4;
    switch (frame.command) {
    case 1: answer(image_answer(memory_, options_.family), now); break;
    case 2:
        write(frame.number, static_cast<std::uint16_t>(frame.value));
        if (quirks_.acknowledge) answer(bare_answer(2, 5), now);
        break;
    case 3: {
        Bytes status = status_answer(engine_, gas_, memory_);
        status.resize(static_cast<std::size_t>(quirks_.status_length));
        status[3] = static_cast<std::uint8_t>(quirks_.status_length);
        answer(std::move(status), now);
        break;
    }
    case 4: gas_.ask_for_petrol(); break;
    case 5: factory_reset(now); break;
    case 6: answer(bare_answer(6, 6), now); break;
    case 7:
        answer(version_answer(options_.family, options_.version, options_.revision), now);
        break;
    case 15: answer(fault_answer(memory_), now); break;
    case 16:
        // A unit with diagnosis but without live data answers with 8 bytes.
        if (live)
            answer(live_answer(engine_, diagnosis_.link(engine_, memory_)), now);
        else if (options_.family != 1)
            answer(bare_answer(16, 8), now);
        break;
    case 20: hand_over(Mode::terminal, now); break;
    case 21: hand_over(Mode::download, now); break;
    case 22: gas_.ask_for_gas(); break;
    default: break;
    }
}

void ControlUnit::write(int number, std::uint16_t value) {
    if (!memory_.set(number, value)) return;
    if (number == par::gain_low) memory_.set(par::gain_copy, value);
    if (number == par::eobd_protocol) diagnosis_.protocol_written(value);
}

void ControlUnit::set_parameter(int number, std::uint16_t value) {
    if (number == par::eobd_protocol && value >= 2 && value <= 10) diagnosis_.car_protocol = value;
    write(number, value);
}

void ControlUnit::factory_reset(std::int64_t now_us) {
    const auto length = static_cast<std::size_t>(std::max(1, quirks_.reset_length));
    Bytes bytes = bare_answer(5, std::max<std::size_t>(5, length));
    bytes.resize(length);
    const std::int64_t answered_us = answer(std::move(bytes), now_us);
    memory_.restore_factory_values();
    mode_ = Mode::restarting;
    restarting_until_us_ = std::max(answered_us, now_us) + restart_us;
}

void ControlUnit::restart(std::int64_t now_us) {
    advance(now_us);
    transmitter_.clear();
    reader_.clear();
    mode_ = Mode::restarting;
    restarting_until_us_ = now_us + restart_us;
}

void ControlUnit::plug(bool in) {
    quirks_.plugged = in;
    transmitter_.clear();
    reader_.clear();
}

std::int64_t ControlUnit::answer(Bytes bytes, std::int64_t now_us) {
    if (quirks_.silence) return now_us;
    const int latency = wire_chance_.between(least_latency_us, most_latency_us);
    damage(bytes);
    return transmitter_.send(std::move(bytes), now_us + latency + 1000LL * quirks_.late_ms);
}

void ControlUnit::damage(Bytes& bytes) {
    if (quirks_.wrong_echo && bytes.size() > 4)
        bytes[4] = static_cast<std::uint8_t>(*quirks_.wrong_echo);
    quirks_.wrong_echo.reset();
    if (quirks_.length) bytes.resize(static_cast<std::size_t>(*quirks_.length));
    quirks_.length.reset();
    if (quirks_.garble <= 0 || bytes.empty()) return;
    --quirks_.garble;
    const auto changed = wire_chance_.next() % bytes.size();
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (i == changed || i == 4 || wire_chance_.chance(0.3))
            bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ wire_chance_.between(1, 255));
}

void ControlUnit::note(std::int64_t at_us, std::string_view who, std::string_view what) {
    sink_(log_line(seconds(at_us), who, what));
}

std::string ControlUnit::command(std::string_view line, std::int64_t now_us) {
    advance(now_us);
    return run_command(*this, line, now_us);
}

} // namespace sim
