#include "logbook/recording.h"

#include "app/whole_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace zol::logbook {
namespace {

constexpr std::string_view first_words = "zol-logbook recording ";
constexpr std::size_t most_header_lines = 40;

struct HeaderLine {
    std::string_view key;
    std::string RecordingHeader::*value;
};
constexpr std::array<HeaderLine, 5> header_lines = {{{"program", &RecordingHeader::program},
                                                     {"car", &RecordingHeader::car},
                                                     {"started", &RecordingHeader::started},
                                                     {"device", &RecordingHeader::device},
                                                     {"port", &RecordingHeader::port}}};

struct Mark {
    EventKind kind;
    char letter;
};
constexpr std::array<Mark, 3> marks = {
    {{EventKind::request, '>'}, {EventKind::reply, '<'}, {EventKind::note, '!'}}};

bool is_control(char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }

std::optional<int> digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return std::nullopt;
}

std::optional<Bytes> bytes_of(std::string_view hex) {
    if (hex.empty() || hex.size() % 2 != 0 || hex.size() > 2 * most_event_bytes)
        return std::nullopt;
    Bytes bytes;
    bytes.reserve(hex.size() / 2);
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        const auto high = digit(hex[i]), low = digit(hex[i + 1]);
        if (!high || !low) return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(*high * 16 + *low));
    }
    return bytes;
}

// What is wrong with an event's line; empty if it is right.
std::string read_event(std::string_view line, Event& event) {
    std::int64_t at_us = 0;
    const char* const end = line.data() + line.size();
    const auto [stop, fault] = std::from_chars(line.data(), end, at_us);
    if (fault != std::errc{} || at_us < 0 || line[0] == '-')
        return "it does not begin with a time in microseconds";
    if (at_us < event.at_us) return "its time is before that of the line above";
    const std::string_view rest = line.substr(static_cast<std::size_t>(stop - line.data()));
    const auto mark = std::find_if(marks.begin(), marks.end(), [&](const Mark& one) {
        return rest.size() > 3 && rest[0] == ' ' && rest[1] == one.letter && rest[2] == ' ';
    });
    if (mark == marks.end()) return "its time is not followed by >, < or ! and a text";
    event.at_us = at_us;
    event.kind = mark->kind;
    event.bytes.clear();
    event.text.clear();
    if (mark->kind == EventKind::note) {
        event.text = printable(rest.substr(3));
        return {};
    }
    auto bytes = bytes_of(rest.substr(3));
    if (!bytes)
        return "its bytes are not pairs of the digits 0 to 9 and a to f, " +
               std::to_string(most_event_bytes) + " bytes at most";
    event.bytes = std::move(*bytes);
    return {};
}

struct Lines {
    std::string_view rest;
    std::size_t number = 0;
    std::optional<std::string_view> next() {
        ++number;
        return app::take_line(rest);
    }
    std::string wrong(const std::string& what) const {
        const std::string line = std::to_string(number);
        return "Line " + line + " is wrong: " + what +
               ". The lines before it can be used: head -n " + std::to_string(number - 1) +
               " FILE > NEWFILE.";
    }
};

std::string read_header(Lines& lines, RecordingHeader& header) {
    header = {};
    const auto first = lines.next();
    if (!first || !first->starts_with(first_words))
        return "Line 1 is wrong: it is not \"" + std::string(first_words) +
               std::to_string(recording_version) +
               "\". The file is no recording; name a file that ends in .zlog.";
    if (first->substr(first_words.size()) != std::to_string(recording_version))
        return "Line 1 is wrong: this program reads format " + std::to_string(recording_version) +
               " only. Read the file with the program that wrote it, or with a newer one.";
    while (const auto line = lines.next()) {
        if (line->empty()) return {};
        if (lines.number > most_header_lines || line->size() > longest_recording_line) break;
        const auto colon = line->find(": ");
        for (const HeaderLine& known : header_lines)
            if (colon != line->npos && line->substr(0, colon) == known.key)
                header.*known.value = printable(line->substr(colon + 2));
    }
    return "Line " + std::to_string(lines.number) +
           " is wrong: the header has no empty line at its end. The recording ended before it "
           "began, and nothing in it can be used.";
}

} // namespace

bool has_control_character(std::string_view text) {
    if (std::any_of(text.begin(), text.end(), is_control)) return true;
    // In UTF-8, U+0080 to U+009F are this byte and one below 0xa0.
    for (auto at = text.find('\xc2'); at != text.npos; at = text.find('\xc2', at + 1))
        if (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) < 0xa0) return true;
    return false;
}

std::string printable(std::string_view text) {
    std::string shown(text.substr(0, app::longest_line));
    std::replace_if(shown.begin(), shown.end(), is_control, ' ');
    return shown;
}

std::string header_text(const RecordingHeader& header) {
    std::string text = std::string(first_words) + std::to_string(recording_version) + "\n";
    for (const HeaderLine& line : header_lines)
        text += std::string(line.key) + ": " + printable(header.*line.value) + "\n";
    return text + "\n";
}

std::string event_line(const Event& event) {
    const auto mark = std::find_if(marks.begin(), marks.end(),
                                   [&](const Mark& one) { return one.kind == event.kind; });
    std::string line = std::to_string(event.at_us) + " " + mark->letter + " ";
    if (event.kind == EventKind::note) return line + printable(event.text) + "\n";
    constexpr std::string_view digits = "0123456789abcdef";
    for (std::size_t i = 0; i < event.bytes.size() && i < most_event_bytes; ++i) {
        line += digits[event.bytes[i] >> 4];
        line += digits[event.bytes[i] & 15];
    }
    return line + "\n";
}

ReadResult read_recording_text(std::string_view text, RecordingHeader& header,
                               const std::function<void(const Event&)>& take) {
    ReadResult result;
    const auto last_end = text.rfind('\n');
    const std::size_t whole = last_end == text.npos ? 0 : last_end + 1;
    result.torn = whole < text.size();
    Lines lines{text.substr(0, whole)};
    result.wrong = read_header(lines, header);
    Event event;
    while (result.wrong.empty()) {
        const auto line = lines.next();
        if (!line) break;
        if (line->size() > longest_recording_line)
            result.wrong = lines.wrong("it has more than " +
                                       std::to_string(longest_recording_line) + " characters");
        else if (const std::string what = line->empty() ? "it is empty" : read_event(*line, event);
                 !what.empty())
            result.wrong = lines.wrong(what);
        if (!result.wrong.empty()) break;
        ++result.events;
        take(event);
    }
    return result;
}

} // namespace zol::logbook
