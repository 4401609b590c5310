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
#include <vector>

namespace zol::app {
namespace {

constexpr std::string_view section_name = "General";
constexpr std::size_t longest_value = 255; // a buffer of 256 characters with its end mark

bool same_name(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

// The file as lines that keep their ends, so that joining them gives the file again.
std::vector<std::string> lines_of(std::string_view content) {
    std::vector<std::string> lines;
    while (!content.empty()) {
        const auto end = std::min(content.find('\n'), content.size() - 1) + 1;
        lines.emplace_back(content.substr(0, end));
        content.remove_prefix(end);
    }
    return lines;
}

std::string_view bare(std::string_view line) {
    if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3); // a byte-order mark
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.remove_suffix(1);
    return trim(line);
}

std::optional<std::string_view> header_of(std::string_view line) {
    const std::string_view text = bare(line);
    if (!text.starts_with('[')) return std::nullopt;
    return trim(text.substr(1, text.find(']') - 1));
}

struct Spot {
    std::size_t section_end = 0; // behind the section's last line that is not empty
    bool section_found = false;
    std::optional<std::size_t> key_line;
};

// Where the key stands, and where it would be added. The first section of the name counts.
Spot find_key(const std::vector<std::string>& lines, std::string_view key) {
    Spot spot;
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto header = header_of(lines[i])) {
            if (inside) break;
            inside = spot.section_found = same_name(*header, section_name);
            spot.section_end = i + 1;
            continue;
        }
        const std::string_view text = bare(lines[i]);
        if (!inside || text.empty()) continue;
        spot.section_end = i + 1;
        const auto equals = text.find('=');
        if (text.front() == ';' || equals == std::string_view::npos) continue;
        if (same_name(trim(text.substr(0, equals)), key)) {
            spot.key_line = i;
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

// The settings file, unless its text is in an encoding that is not read here.
std::optional<std::string> read_settings() {
    auto content = read_file(application_file("\\setting.ini"));
    if (content && is_utf16(*content)) content.reset();
    return content;
}

} // namespace

std::string setting_in(std::string_view content, std::string_view key,
                       std::string_view when_absent) {
    const std::vector<std::string> lines = lines_of(content);
    const Spot spot = find_key(lines, key);
    if (!spot.key_line) return std::string(when_absent);
    const std::string_view text = bare(lines[*spot.key_line]);
    const std::string_view value = unquoted(trim(text.substr(text.find('=') + 1)));
    return std::string(value.substr(0, longest_value));
}

std::string with_setting(std::string_view content_before, std::string_view key,
                         std::string_view value) {
    std::vector<std::string> lines = lines_of(content_before);
    const bool crlf = !lines.empty() && lines.front().ends_with("\r\n");
    const std::string line_end = crlf ? "\r\n" : "\n";
    const std::string line = std::string(key) + "=" + std::string(value) + line_end;
    if (!lines.empty() && !lines.back().ends_with('\n')) lines.back() += line_end;

    const Spot spot = find_key(lines, key);
    if (spot.key_line) {
        lines[*spot.key_line] = line;
    } else if (spot.section_found) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(spot.section_end), line);
    } else {
        lines.push_back("[" + std::string(section_name) + "]" + line_end);
        lines.push_back(line);
    }
    std::string content;
    for (const std::string& each : lines)
        content += each;
    return content;
}

std::string read_setting(std::string_view key, std::string_view when_absent) {
    return setting_in(read_settings().value_or(""), key, when_absent);
}

void write_setting(std::string_view key, std::string_view value) {
    const auto file = application_file("\\setting.ini");
    const auto content = read_settings();
    std::error_code error;
    // What cannot be read must not be lost.
    if (!content && std::filesystem::exists(file, error)) return;
    replace_file(file, with_setting(content.value_or(""), key, value));
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
