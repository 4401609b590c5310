// The parameters in the groups in which a fitter sets them.
#pragma once

#include <span>
#include <string_view>

namespace zol::logbook {

// In the order of the tables.
std::span<const std::string_view> parameter_groups();
// The place of a parameter's group in that order.
std::size_t group_of(int number);

} // namespace zol::logbook
