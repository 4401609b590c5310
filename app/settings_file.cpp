#include "app/settings_file.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/numbers.h"
#include "app/port_menu.h"
#include "app/whole_file.h"
#include "view/view.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace zol::app {
namespace {

constexpr std::string_view section_name = "General";
constexpr std::size_t longest_value = 255; // a buffer of 256 characters with its terminator
// Enough for thousands of lines added by hand. Each lookup reads from the first line.
constexpr std::size_t largest_settings = std::size_t{1} << 20;

bool same_name(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

std::string_view bare(std::string_view line) {
    return trim(without_mark(line.substr(0, line.find('\n'))));
}

std::optional<std::string_view> header_of(std::string_view line) {
    const std::string_view text = bare(line);
    if (!text.starts_with('[')) return std::nullopt;
    return trim(text.substr(1, text.find(']') - 1));
}

// Offsets in bytes from the start of the file. A line includes its line end.
struct Spot {
    std::size_t section_end = 0; // after the section's last line that is not empty
    bool section_found = false;
    std::size_t key_line = 0, key_line_size = 0; // size 0: no such key
};

// Where the key is, and where it would be added. If the section occurs more than once, the first
// one counts.
Spot find_key(std::string_view content, std::string_view key) {
    Spot spot;
    bool inside = false;
    std::size_t at = 0, end = 0;
    for (std::string_view rest = content; const auto line = take_line(rest); at = end) {
        end = content.size() - rest.size();
        if (const auto header = header_of(*line)) {
            if (inside) break;
            inside = spot.section_found = same_name(*header, section_name);
            spot.section_end = end;
            continue;
        }
        const std::string_view text = bare(*line);
        if (!inside || text.empty()) continue;
        spot.section_end = end;
        const auto equals = text.find('=');
        if (text.front() == ';' || equals == std::string_view::npos) continue;
        if (same_name(trim(text.substr(0, equals)), key)) {
            spot.key_line = at;
            spot.key_line_size = end - at;
            break;
        }
    }
    return spot;
}

std::string_view unquoted(std::string_view value) {
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

bool is_utf16(std::string_view content) { // by its byte-order mark
    return content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF");
}

// The content of the settings file. Nothing if it cannot be read or is in UTF-16, which is not
// supported.
std::optional<std::string> read_settings() {
    auto content = read_file(application_file("\\setting.ini"), largest_settings);
    if (content && is_utf16(*content)) content.reset();
    return content;
}

} // namespace

std::string setting_in(std::string_view content, std::string_view key,
                       std::string_view when_absent) {
    const Spot spot = find_key(content, key);
    if (spot.key_line_size == 0) return std::string(when_absent);
    const std::string_view text = bare(content.substr(spot.key_line, spot.key_line_size));
    const std::string_view value = unquoted(trim(text.substr(text.find('=') + 1)));
    return std::string(value.substr(0, longest_value));
}

std::string with_setting(std::string_view content_before, std::string_view key,
                         std::string_view value) {
    std::string content(content_before);
    const std::string_view first_line = content_before.substr(0, content_before.find('\n') + 1);
    const std::string line_end = first_line.ends_with("\r\n") ? "\r\n" : "\n";
    const std::string line = std::string(key) + "=" + std::string(value) + line_end;
    if (!content.empty() && !content.ends_with('\n')) content += line_end;

    const Spot spot = find_key(content, key);
    if (spot.key_line_size > 0)
        content.replace(spot.key_line, spot.key_line_size, line);
    else if (spot.section_found)
        content.insert(spot.section_end, line);
    else
        content += "[" + std::string(section_name) + "]" + line_end + line;
    return content;
}

std::string read_setting(std::string_view key, std::string_view when_absent) {
    return setting_in(read_settings().value_or(""), key, when_absent);
}

void write_setting(std::string_view key, std::string_view value) {
    const auto file = application_file("\\setting.ini");
    const auto content = read_settings();
    std::error_code error;
    // A file that exists but cannot be read must not be overwritten.
    if (!content && std::filesystem::exists(file, error)) return;
    const std::string changed = with_setting(content.value_or(""), key, value);
    // Nor may it grow beyond what can be read again.
    if (changed.size() <= largest_settings) replace_file(file, changed);
}

void write_language(const std::string& code) { write_setting("LANGUAGE", code); }

void write_port(double n) { write_setting("COM", number_text(n >= 3 ? n + 1 : n)); }

void load_port() {
    const double number = val(read_setting("COM", "1"));
    if (view::Widget* item = port_menu_item(number)) {
        view::set_checked(*item, true);
        state.com_port_number = number;
    }
}

std::string read_stored_version() { return read_setting("VERSIONE", ""); }
std::string read_text_colour() { return read_setting("COLORETESTO", ""); }
void write_text_colour(const std::string& colour) { write_setting("COLORETESTO", colour); }

} // namespace zol::app
