// The groups of parameters, by what a fitter sets together. For output only.
#pragma once

#include <span>
#include <string_view>

namespace zol::logbook {

// The names of the groups, in the order of output.
std::span<const std::string_view> parameter_groups();
// The index of a parameter's group in parameter_groups().
std::size_t group_of(int number);

} // namespace zol::logbook
