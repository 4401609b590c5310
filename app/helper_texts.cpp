#include "app/helper_texts.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/whole_file.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace zol::app {
namespace {

using Section = HelperTextsState::Section;
using Entry = HelperTextsState::Entry;

HelperTextsState::Texts& texts = helper_texts_state.texts;
auto& parameters = helper_texts_state.parameters;

// Removes the part of `line` up to and including `mark`, and returns it without the mark. All of
// `line` if it has no mark.
std::string_view cut(std::string_view& line, char mark) {
    const auto end = std::min(line.find(mark), line.size());
    const std::string_view part = trim(line.substr(0, end));
    line = trim(line.substr(std::min(end + 1, line.size())));
    return part;
}

void take_control(Section& section, std::string_view names, std::string_view help) {
    Entry entry;
    if (help.find('|') != std::string_view::npos) entry.name = cut(help, '|');
    entry.text = help;
    while (!names.empty()) {
        const std::string_view name = cut(names, ',');
        if (entry.owner.empty()) entry.owner = name;
        section[name] = entry;
        entry.name = {}; // the accessible name of a caption or unit is its own text
    }
}

void take_key(std::string_view line) {
    // The legend shows every key, so a huge section would hold up the start.
    constexpr std::size_t most_keys = 20;
    if (texts.keys.size() >= most_keys) return;
    const std::string_view cap = cut(line, '|');
    if (!cap.empty() && !line.empty()) texts.keys.push_back({cap, line});
}

void read_texts(std::string content) {
    texts = {};
    texts.content = std::move(content);
    std::string_view section, rest = texts.content;
    while (const auto whole_line = take_line(rest)) {
        std::string_view line = trim(*whole_line);
        if (line.starts_with('[') && line.ends_with(']')) {
            section = line.substr(1, line.size() - 2);
        } else if (!line.empty() && !line.starts_with(';')) {
            const std::string_view names = cut(line, '=');
            line = shortened(line);
            if (section == "words")
                texts.words[names] = line;
            else if (section == "captions")
                texts.captions[names] = line;
            else if (section == "keys")
                take_key(line);
            else if (section == "boxes")
                texts.boxes[names] = line;
            else
                take_control(texts.windows[section], names, line);
        }
    }
}

std::optional<std::string> texts_of(const std::string& language) {
    const auto content = read_file(application_file("\\language\\tips_" + language + ".ini"));
    if (!content) return std::nullopt;
    return as_utf8(*content);
}

std::string parameter_line(const view::Widget& control) {
    std::string line;
    for (const int number : parameters_of(control))
        line += (line.empty() ? "" : ", ") + ("PAR_" + std::to_string(number));
    return line;
}

void number_it(std::string& text, int number) {
    for (auto at = text.find("{n}"); at != std::string::npos; at = text.find("{n}"))
        text.replace(at, 3, std::to_string(number));
}

view::Help help_for(const Section& section, const view::Widget& control) {
    auto found = section.find(full_name(control));
    if (found == section.end()) found = section.find(control.name);
    if (found == section.end()) return {};
    const Entry& entry = found->second;
    view::Help help{.name = std::string(entry.name), .text = std::string(entry.text)};
    number_it(help.name, control.index + 1);
    number_it(help.text, control.index + 1);
    const view::Widget* owner = view::find_widget(*control.window, entry.owner);
    const std::string line = parameter_line(owner ? *owner : control);
    if (!line.empty()) help.text += (help.text.empty() ? "" : "\n") + line;
    return help;
}

} // namespace

void note_parameters(const view::Widget& control, std::initializer_list<int> numbers) {
    std::vector<int>& noted = parameters[&control];
    for (const int number : numbers)
        if (std::find(noted.begin(), noted.end(), number) == noted.end()) noted.push_back(number);
}

std::span<const int> parameters_of(const view::Widget& control) {
    const auto noted = parameters.find(&control);
    return noted == parameters.end() ? std::span<const int>() : noted->second;
}

namespace {

// The legend is drawn below the engine panel.
void apply_keys() {
    view::Help help = form1::frame_engine.help;
    help.keys.clear();
    for (const auto& [cap, does] : texts.keys)
        help.keys.push_back({std::string(cap), std::string(does)});
    view::set_help(form1::frame_engine, help);
}

} // namespace

void apply_helper_texts() {
    auto content = texts_of(state.current_language);
    if (!content) content = texts_of("uk");
    read_texts(content.value_or(""));
    view::offer_box_texts({texts.boxes.begin(), texts.boxes.end()});
    for (view::Widget* window : view::all_windows()) {
        const Section& section = texts.windows[window->name];
        for (const auto* list : {&window->controls, &window->menus})
            for (view::Widget* w : *list)
                view::set_help(*w, help_for(section, *w));
    }
    apply_keys();
}

std::optional<std::string> own_caption(const view::Widget& control) {
    const auto found = texts.captions.find(control.window->name + "." + full_name(control));
    if (found == texts.captions.end()) return std::nullopt;
    return std::string(found->second);
}

std::string helper_word(const std::string& key) {
    const auto found = texts.words.find(key);
    return found == texts.words.end() ? key : std::string(found->second);
}

} // namespace zol::app
