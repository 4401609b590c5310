// Conversion of numbers: from and to the operator's text, and to whole numbers for the wire.
#pragma once

#include <string>
#include <string_view>

namespace zol::app {

// Reads a number leniently: an optional sign, digits, a point and digits, up to the first other
// character; blanks are ignored. 0 if the text does not begin with a number. A number that is too
// large gives the largest double.
double val(std::string_view text);

// The shortest decimal text of the number rounded to 15 digits, with a point: 12.6, not 12.60.
std::string number_text(double number);

// Rounds to the nearest integer, ties to even.
double round_half_even(double number);

// The same to `decimals` decimal places.
double round_half_even(double number, int decimals);

} // namespace zol::app
