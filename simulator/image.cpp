#include "simulator/image.h"

#include <algorithm>
#include <array>

namespace sim {
namespace {

// The common part of every family, at bytes 6 to 78.
constexpr std::array<std::uint8_t, 37> base_words = {
    1,   3,   4,   5,   6,   10,  15,  30,  31,  32,  // from byte 6
    33,  34,  35,  50,  51,  52,  60,  61,  101, 102, // from byte 26
    103, 104, 105, 106, 107, 110, 120, 121, 122, 123, // from byte 46
    124, 125, 126, 127, 128, 129, 130,                // from byte 66
};

// The words of the car's diagnosis, at bytes 80 to 106.
constexpr std::array<std::uint8_t, 14> diagnosis_words = {
    140, 141, 142, 143, 144, 145, 146, 147, 148, 149, 150, 151, 152, 153,
};

// The words of family 1 in place of the diagnosis, at bytes 80 to 154.
constexpr std::array<std::uint8_t, 38> lambda_words = {
    7,   14, 19, 45, 54, 55, 201, 215, 11,  74, // from byte 80
    75,  76, 77, 16, 20, 36, 12,  78,  200, 22, // from byte 100
    202, 23, 79, 27, 28, 29, 39,  40,  41,  80, // from byte 120
    81,  82, 83, 84, 47, 21, 85,  53,           // from byte 140
};

// The words of the long layout after the diagnosis, at bytes 108 to 190. Some words occur twice: a
// second time where family 1 has them, as far as that position is free, for tools that read them
// there.
constexpr std::array<std::uint8_t, 42> long_words = {
    7,  36, 12, 14,  200, 22, 202, 23, 11,  27,  // from byte 108
    28, 29, 39, 16,  41,  36, 12,  19, 201, 200, // from byte 128
    20, 21, 22, 202, 23,  45, 27,  28, 29,  39,  // from byte 148
    40, 41, 54, 55,  215, 74, 47,  75, 76,  53,  // from byte 168
    77, 78,                                      // from byte 188
};

template <std::size_t N, std::size_t M>
constexpr std::array<std::uint8_t, N + M> joined(const std::array<std::uint8_t, N>& head,
                                                 const std::array<std::uint8_t, M>& tail) {
    std::array<std::uint8_t, N + M> all{};
    std::copy(head.begin(), head.end(), all.begin());
    std::copy(tail.begin(), tail.end(), all.begin() + N);
    return all;
}

constexpr auto diagnosis_layout = joined(base_words, diagnosis_words);
constexpr auto lambda_layout = joined(base_words, lambda_words);
constexpr auto long_layout = joined(diagnosis_layout, long_words);

} // namespace

std::span<const std::uint8_t> image_layout(int family) {
    switch (family) {
    case 1: return lambda_layout;
    case 2:
    case 3:
    case 4: return long_layout;
    default: return diagnosis_layout;
    }
}

} // namespace sim
