// The answers, byte by byte. Each begins with "PC", its length in two bytes and the command again;
// all words go high byte first.
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
// Command 15, 19 bytes: the six fault words as they are kept, and their count.
Bytes fault_answer(const Memory& memory);
// Command 16, 12 bytes: loop, quick and long trim (128 is none, 0.78 % a step), load in percent,
// lambda in mV; both trims 0 while the link begins, 255 once it is lost.
Bytes live_answer(const Engine& engine, Diagnosis::Link link);
// A bare answer of 5 bytes or more, filled with zeros.
Bytes bare_answer(int command, std::size_t length);

} // namespace sim
