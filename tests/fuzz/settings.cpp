// Random settings files. Holds that a written setting reads as it was written and that no other
// line of the file changes.
#include "app/app_state.h"
#include "app/colours.h"
#include "app/program/language.h"
#include "app/settings_file.h"
#include "app/whole_file.h"
#include "tests/fuzz/program.h"

#include <array>
#include <optional>
#include <vector>

namespace zol::fuzz {
namespace {

constexpr std::array<const char*, 4> keys = {"LANGUAGE", "COM", "VERSIONE", "COLORETESTO"};
constexpr const char* absent = "\1absent";

std::vector<std::string_view> lines_of(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// The new file is the old one with one line changed, or with a key and perhaps its section added.
bool kept(std::string_view before, std::string_view after) {
    auto olds = lines_of(before), news = lines_of(after);
    // An old last line without a line end gets one, perhaps with a carriage return.
    const auto same = [](std::string_view a, std::string_view b) {
        return a == b || std::string(a) + "\r" == b;
    };
    while (!olds.empty() && !news.empty() && same(olds.back(), news.back())) {
        olds.pop_back();
        news.pop_back();
    }
    std::size_t front = 0;
    while (front < olds.size() && front < news.size() && same(olds[front], news[front]))
        ++front;
    const std::size_t gone = olds.size() - front, come = news.size() - front;
    return (gone <= 1 && come == gone) || (gone == 0 && come <= 2);
}

std::string as_it_reads(std::string_view value) {
    value = app::trim(value);
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.back() == value.front();
    if (quoted) value = value.substr(1, value.size() - 2);
    return std::string(value.substr(0, 255));
}

void use_all() {
    app::load_language();
    app::load_port();
    app::state.text_colour = app::read_text_colour();
    app::read_stored_version();
    app::text_colour();
}

void write_one(std::size_t chosen, const std::string& value, std::string_view content) {
    const std::string file = app::with_setting(content, keys[chosen], value);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::string after = app::setting_in(file, keys[i], absent);
        if (i == chosen)
            require(after == as_it_reads(value), "a setting reads as it was written");
        else
            require(after == app::setting_in(content, keys[i], absent), "no other setting changes");
    }
    require(kept(content, file), "every other line stays");
}

} // namespace

void run_input(Input input) {
    Program& program = Program::instance();
    const bool rarely = input.one_in(32);
    const int choice = input.byte();
    const auto chosen = static_cast<std::size_t>(choice % 4);
    std::string value = input.text_piece();
    // The program writes numbers and language codes: none has a line end.
    std::erase_if(value, [](char c) { return c == '\n' || c == '\r'; });
    const std::string_view content = input.text();
    write_one(chosen, value, content);
    // Through a file, in few runs because it takes ten times as long.
    if (!rarely) return;
    program.write_file("setting.ini", content);
    program.run([&] {
        use_all();
        app::write_setting(keys[chosen], value);
    });
    require(app::read_file(program.folder() + "/setting.ini") ==
                app::with_setting(content, keys[chosen], value),
            "the file has what was written");
}

} // namespace zol::fuzz
