// Which parameter stands where in the image that a unit hands out.
#pragma once

#include <cstdint>
#include <span>

namespace sim {

// The parameters in the order in which the image of `family` (0 to 4) lists them, the first one at
// byte 6 of the reply. Family 0 knows the car's diagnosis, family 1 a lambda sensor, families 2, 3
// and 4 both, in one long layout. Another family gives the layout of family 0.
std::span<const std::uint8_t> image_layout(int family);

} // namespace sim
