#include "simulator/telegrams.h"

#include "simulator/image.h"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

void add_word(Bytes& bytes, int value) {
    bytes.push_back(static_cast<std::uint8_t>(value >> 8 & 255));
    bytes.push_back(static_cast<std::uint8_t>(value & 255));
}

void add_word(Bytes& bytes, double value) {
    add_word(bytes, static_cast<int>(std::lround(std::clamp(value, 0.0, 65535.0))));
}

Bytes answer_head(int command, std::size_t length) {
    Bytes bytes;
    bytes.reserve(length);
    bytes.push_back('P');
    bytes.push_back('C');
    add_word(bytes, static_cast<int>(length));
    bytes.push_back(static_cast<std::uint8_t>(command));
    return bytes;
}

std::uint8_t trim_byte(double trim) {
    // 255 would mean that there are no data.
    return static_cast<std::uint8_t>(std::clamp(128 + trim * 100 / 0.78, 1.0, 254.0));
}

} // namespace

Bytes image_answer(const Memory& memory, int family) {
    const auto layout = image_layout(family);
    Bytes bytes = answer_head(1, 5 + 2 * layout.size());
    for (const int number : layout)
        add_word(bytes, memory[number]);
    return bytes;
}

Bytes status_answer(const Engine& engine, const Gas& gas, const Memory& memory) {
    Bytes bytes = answer_head(3, 29);
    add_word(bytes, gas.measured_rpm(engine, memory));
    add_word(bytes, gas.shown_injection(engine, memory));
    add_word(bytes, gas.shown_pressure(memory));
    add_word(bytes, engine.lambda_mv * (memory[par::lambda_current] == 1 ? 2.2 : 1.0));
    add_word(bytes, gas.gain);
    add_word(bytes, gas.gas_time_us);
    add_word(bytes, gas.gas_c);
    add_word(bytes, engine.coolant_c);
    add_word(bytes, gas.stage(engine, memory));
    add_word(bytes, gas.sender_mv());
    add_word(bytes, static_cast<int>(gas.fuel));
    add_word(bytes, engine.battery_v * 1025 / 5.4);
    return bytes;
}

Bytes version_answer(int family, int version, int revision) {
    Bytes bytes = answer_head(7, 11);
    for (const int number : {family, version, revision})
        add_word(bytes, number);
    return bytes;
}

Bytes fault_answer(const Memory& memory) {
    Bytes bytes = answer_head(15, 19);
    for (int number = par::first_fault; number <= par::fault_count; ++number)
        add_word(bytes, memory[number]);
    return bytes;
}

Bytes live_answer(const Engine& engine, Diagnosis::Link link) {
    Bytes bytes = answer_head(16, 12);
    if (link != Diagnosis::Link::up) {
        const bool lost = link == Diagnosis::Link::lost;
        bytes.resize(12, lost ? 255 : 0);
        return bytes;
    }
    bytes.push_back(static_cast<std::uint8_t>(engine.loop));
    bytes.push_back(trim_byte(engine.trim - engine.long_trim + engine.ripple));
    bytes.push_back(trim_byte(engine.long_trim));
    add_word(bytes, engine.load);
    add_word(bytes, engine.lambda_mv);
    return bytes;
}

Bytes bare_answer(int command, std::size_t length) {
    Bytes bytes = answer_head(command, length);
    bytes.resize(length);
    return bytes;
}

} // namespace sim
