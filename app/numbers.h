// Numbers as the operator types and reads them, and as the wire takes them.
#pragma once

#include <string>
#include <string_view>

namespace zol::app {

// Reads a number leniently: blanks aside, an optional sign, digits, a point and digits, as far as
// they go; 0 where no number stands at the front. Endless digits end at the largest double.
double val(std::string_view text);

// The shortest decimal text that reads back as the same number, with a point: 12.6, not 12.60.
std::string number_text(double number);

// Rounds to the nearest integer, ties to the even one.
double round_half_even(double number);

// The same to `decimals` places.
double round_half_even(double number, int decimals);

} // namespace zol::app
