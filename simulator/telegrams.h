// The unit's answers, byte by byte. Each begins with "PC", its length in two bytes and the command;
// words are sent high byte first.
#pragma once

#include "simulator/diagnosis.h"
#include "simulator/engine.h"
#include "simulator/gas.h"
#include "simulator/memory.h"

#include <cstdint>
#include <vector>

namespace sim {

using Bytes = std::vector<std::uint8_t>;

// Command 1: all words of the family's layout.
Bytes image_answer(const Memory& memory, int family);
// Command 3, 29 bytes: speed, injection time, gas pressure, lambda, gain, gas time and gas
// temperature, water temperature, stage, tank sender, fuel state, battery.
Bytes status_answer(const Engine& engine, const Gas& gas, const Memory& memory);
// Command 7: three words.
Bytes version_answer(int family, int version, int revision);
// Command 15, 19 bytes: the six fault words as stored, and their number.
Bytes fault_answer(const Memory& memory);
// Command 16, 12 bytes: loop state, fast and long trim (128 is none, 0.78 % a step), load in
// percent, lambda in mV. While the link begins, both trims are 0; when it is lost, all data are
// 255.
Bytes live_answer(const Engine& engine, Diagnosis::Link link);
// An answer without data, filled with zeros to `length` bytes, at least 5.
Bytes bare_answer(int command, std::size_t length);

} // namespace sim
