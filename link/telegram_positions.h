// Where the status telegram and the live data hold their fields, and the scale of those that are
// not whole numbers. All fields of the telegram are words, high byte first.
#pragma once

#include <cstddef>

namespace zol::link {

// In bytes. The battery field after it exists only on units that measure it.
constexpr std::size_t shortest_telegram = 27;

// 1-based positions of the fields. The bytes 16 to 19 are not used.
struct TelegramPosition {
    static constexpr std::size_t rpm = 6, injection_time = 8, pressure = 10, lambda = 12, ktar = 14,
                                 temperature = 20, state_number = 22, tank = 24, fuel_state = 26,
                                 battery = 28;
};

constexpr double battery_volts(int word) { return word / 1025.0 * 5.4; }

// The live data: loop state and trims are bytes, the others words.
constexpr std::size_t live_data_length = 12, no_live_data_length = 8;

struct LiveDataPosition {
    static constexpr std::size_t loop_state = 6, fast_trim = 7, long_trim = 8, can_visual = 9,
                                 lambda = 11;
};

// A trim byte has an offset of 128; one step is 0.78 percent.
constexpr double trim_percent(int byte) { return (byte - 128) * 0.78; }
constexpr int no_trim = 255; // in place of a trim: the unit has no data from the car

} // namespace zol::link
