// The status telegram, the reply to command 3. All its fields are words, high byte first.
#pragma once

#include "link/ecu_frames.h"

namespace zol::monitor {

// Battery, the last field, is there only on units that have it.
constexpr std::size_t shortest_telegram = 27;

struct TelegramPosition {
    static constexpr std::size_t rpm = 6, injection_time = 8, pressure = 10, lambda = 12, ktar = 14,
                                 temperature = 20, state_number = 22, tank = 24, fuel_state = 26,
                                 battery = 28;
};

// Shows every field, in the order in which the window has always shown them.
void show_telegram(const link::Reply& telegram);

} // namespace zol::monitor
