// The position of each parameter in the image that a unit sends.
#pragma once

#include <cstdint>
#include <span>

namespace sim {

// The parameter numbers in the order of the image of `family` (0 to 4); the first one is at byte 6
// of the answer. Family 0 has the car's diagnosis, family 1 a lambda sensor, families 2, 3 and 4
// have both in one long layout. Any other family gives the layout of family 0.
std::span<const std::uint8_t> image_layout(int family);

} // namespace sim
