// The status telegram, the reply to command 3. All fields are words, high byte first.
#pragma once

#include "link/ecu_frames.h"

namespace zol::monitor {

// In bytes. The battery field after it exists only on units that measure it.
constexpr std::size_t shortest_telegram = 27;

// 1-based positions of the fields. The bytes 16 to 19 are not used.
struct TelegramPosition {
    static constexpr std::size_t rpm = 6, injection_time = 8, pressure = 10, lambda = 12, ktar = 14,
                                 temperature = 20, state_number = 22, tank = 24, fuel_state = 26,
                                 battery = 28;
};

// Shows every field, always in the same order. A field that the telegram does not have leaves its
// control unchanged.
void show_telegram(const link::Reply& telegram);

} // namespace zol::monitor
