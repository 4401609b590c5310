#include "app/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace zol::app {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

} // namespace

double val(std::string_view text) {
    std::string number;
    bool point = false;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\n') continue;
        if (is_digit(c)) {
            number += c;
        } else if (c == '.' && !point) {
            point = true;
            number += c;
        } else if ((c == '+' || c == '-') && number.empty()) {
            number += c;
        } else {
            break;
        }
    }
    const bool negative = !number.empty() && number.front() == '-';
    if (!number.empty() && !is_digit(number.front()) && number.front() != '.') number.erase(0, 1);
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too large if there is a digit other than 0 before the point, else too small.
        const auto first = number.find_first_not_of('0');
        const bool large = first != std::string::npos && is_digit(number[first]);
        value = large ? std::numeric_limits<double>::max() : 0;
    }
    return negative ? 0 - value : value; // no negative zero
}

std::string number_text(double number) {
    // A number keeps 15 digits through a calculation: 5 x 0.78 is shown as 3.9, not
    // 3.9000000000000004.
    char buffer[400];
    auto end =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific, 14)
            .ptr;
    double rounded = number; // kept if rounding would exceed the largest double
    std::from_chars(buffer, end, rounded);
    if (rounded == 0) return "0"; // also for the negative zero
    end = std::to_chars(buffer, buffer + sizeof buffer, rounded, std::chars_format::fixed).ptr;
    return {buffer, end};
}

double round_half_even(double number) { return std::nearbyint(number); }

double round_half_even(double number, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::nearbyint(number * scale) / scale;
}

} // namespace zol::app
