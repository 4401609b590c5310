// Reads typed words and numbers strictly.
#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// Splits a line at blanks, tabs and carriage returns.
inline std::vector<std::string_view> split_words(std::string_view line) {
    std::vector<std::string_view> words;
    while (true) {
        const auto from = line.find_first_not_of(" \t\r");
        if (from == std::string_view::npos) return words;
        line.remove_prefix(from);
        words.push_back(line.substr(0, line.find_first_of(" \t\r")));
        line.remove_prefix(words.back().size());
    }
}

// The word as a number. Nothing if it is not a number as a whole or is outside the range.
template <class Number>
std::optional<Number> number_in(std::string_view word, Number low, Number high) {
    Number value{};
    const char* const end = word.data() + word.size();
    const auto [stop, fault] = std::from_chars(word.data(), end, value);
    // This condition also rejects "nan".
    if (fault != std::errc{} || stop != end || !(value >= low && value <= high))
        return std::nullopt;
    return value;
}

// The word in quotes for a message: at most 40 characters, without control characters.
inline std::string quoted(std::string_view word) {
    constexpr std::size_t most = 40;
    std::string shown = "\"";
    for (const char c : word.substr(0, most))
        shown += c >= ' ' && c < 127 ? c : '?';
    return shown + (word.size() > most ? "...\"" : "\"");
}

} // namespace sim
