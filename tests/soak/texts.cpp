#include "tests/soak/texts.h"

#include "app/whole_file.h"
#include "tests/soak/handlers.h"
#include "tests/support/caption_messages.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace zol::soak {
namespace {

// --- The language files, read apart from the program

std::vector<std::string> lines_of(const std::string& name) {
    std::ifstream in(std::string(ZOL_SOURCE_DIR) + "/language/" + name, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(app::as_utf8(line));
    }
    return lines;
}

const char* const languages[] = {"it", "uk", "pl", "de", "fr"};

// What the message says in any of the languages.
const std::set<std::string>& message_texts(int key) {
    static const std::map<int, std::set<std::string>> all = [] {
        std::map<int, std::set<std::string>> texts;
        for (const char* language : languages) {
            const auto lines = lines_of("Mivra_" + std::string(language) + ".ini");
            for (std::size_t i = 0; i + 1 < lines.size(); ++i)
                if (lines[i].starts_with('['))
                    texts[std::stoi(lines[i].substr(1))].insert(lines[i + 1]);
        }
        return texts;
    }();
    static const std::set<std::string> none;
    const auto found = all.find(key);
    return found == all.end() ? none : found->second;
}

const std::set<std::string>& trouble_code_lines() {
    static const std::set<std::string> all = [] {
        std::set<std::string> texts = {""};
        for (const char* language : languages)
            for (const std::string& line :
                 lines_of("codici_eobd_" + std::string(language) + ".ini"))
                texts.insert(line);
        return texts;
    }();
    return all;
}

// What a caption without a message says in any of the languages, by the widget's name: the section
// "captions" of the helper texts.
const std::set<std::string>& own_captions(const std::string& widget) {
    static const std::map<std::string, std::set<std::string>> all = [] {
        std::map<std::string, std::set<std::string>> texts;
        for (const char* language : languages) {
            bool captions = false;
            for (const std::string& line : lines_of("tips_" + std::string(language) + ".ini")) {
                if (line.starts_with('[')) captions = line == "[captions]";
                const auto equals = line.find('=');
                if (!captions || equals == std::string::npos) continue;
                texts[std::string(app::trim(line.substr(0, equals)))].insert(
                    std::string(app::trim(line.substr(equals + 1))));
            }
        }
        return texts;
    }();
    static const std::set<std::string> none;
    const auto found = all.find(widget);
    return found == all.end() ? none : found->second;
}

// --- Parts of a grammar

bool digits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool integer(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return digits(text);
}

// A decimal number as the tool writes them: no blanks, no exponent, no sign but a minus.
bool number(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto point = text.find('.');
    if (point == std::string_view::npos) return digits(text);
    return digits(text.substr(0, point)) && digits(text.substr(point + 1));
}

bool word(std::string_view text) {
    return digits(text) && text.size() <= 5 && std::stoi(std::string(text)) <= 65535;
}

// `shape` with each '#' standing for a number.
bool shaped(std::string_view text, std::string_view shape) {
    const auto hole = shape.find('#');
    if (hole == std::string_view::npos) return text == shape;
    if (!text.starts_with(shape.substr(0, hole))) return false;
    text.remove_prefix(hole);
    shape.remove_prefix(hole + 1);
    std::size_t length = 0;
    while (length < text.size() &&
           std::string_view("0123456789.-").find(text[length]) != std::string_view::npos)
        ++length;
    for (; length > 0; --length)
        if (number(text.substr(0, length)) && shaped(text.substr(length), shape)) return true;
    return false;
}

bool fault_code(std::string_view text) {
    if (text.empty() || text == "0" || text == "NO ERROR") return true;
    if (!text.starts_with('P') || !digits(text.substr(1))) return false;
    const int fault = std::stoi(std::string(text.substr(1)));
    return text.size() == 5 ? (fault > 0 && fault < 1000) || fault > 2000 : fault >= 10000;
}

// --- The rules

struct Rule {
    std::vector<std::string> shapes; // each a text in which '#' is a number
    int message = 0;                 // in any language, with `suffix` behind it
    std::string suffix;
    bool (*grammar)(std::string_view) = nullptr;
};

using Rules = std::map<std::string, Rule>;

void add_shapes(Rules& rules, const std::vector<std::string>& names,
                const std::vector<std::string>& shapes) {
    for (const std::string& name : names)
        rules[name].shapes = shapes;
}

void add_grammar(Rules& rules, const std::vector<std::string>& names,
                 bool (*grammar)(std::string_view)) {
    for (const std::string& name : names)
        rules[name].grammar = grammar;
}

void add_live_values(Rules& rules) {
    add_grammar(rules,
                {"Form1.Label_rpm", "Form1.Label_tinj", "Form1.LabeL_pressure", "Form1.Label_temp",
                 "Form1.Label_lambda", "Form1.label_lambda_2", "Form1.Label_level_attuale",
                 "Form1.label_liv2", "Form1.Label_ktar", "Form1.Label_ct", "Form1.Label_stato",
                 "Form1.Label_sfondo", "Form1.lbl_num_errori", "Form1.Label35",
                 "acquisizione.Label1", "acquisizione.Label_max"},
                word);
    rules["Form1.LabeL_pressure"].shapes = {"---   "};
    add_shapes(rules, {"Form1.Label27", "Form1.Label44", "Form1.Label_pressione_taratura"}, {"#"});
    add_shapes(rules, {"Form1.Label1"},
               {"WAIT INIT  PROT..  ", "OPEN LOOP  ", "CLOSED LOOP  ", "OPEN LOOP TRANS.  ",
                "LOST CONNECTION"});
    add_shapes(rules, {"Form1.Label13", "Form1.Label14"}, {"--", "# % "});
    add_shapes(rules, {"Form1.Label42"}, {"--", "#mV"});
    add_shapes(rules, {"Form1.Label49"}, {"L= #"});
    add_shapes(rules, {"Form1.Label20"}, {"Batt. #  Volts"});
    add_shapes(rules, {"Form1.lbl_tuning"},
               {"-- WAIT TUNING... --", "-- WAIT TEMPERATURE... --", "-- FINISH --",
                "-- L - REPEAT WAIT TUNING   --", "-- R - REPEAT WAIT TUNING   --",
                "-- AUTO MAGRA ALZ. PRESS... --", "-- AUTO RICCA DIMIN. PRESS. --"});
    add_shapes(rules, {"Form1.lbl_ore"},
               {"Time On GAS:    # hour - # min    - Date Last Check : # / # / #  ",
                "Time On GAS:    # hour - # min    -  Date Last Check : # / # / #"});
    for (int label = 1; label <= 6; ++label)
        rules["Form1.lbl_par_" + std::to_string(label)].grammar = fault_code;
    rules["Form1.Text_note_error"].grammar = [](std::string_view text) {
        return trouble_code_lines().count(std::string(text)) > 0;
    };
}

void add_settings(Rules& rules) {
    add_shapes(rules,
               {"Form1.Label8", "Form1.Label9", "Form1.Label10", "Form1.Label11",
                "Form1.Label_led0", "Form1.Label_led1", "Form1.Label_led2", "Form1.Label_led3"},
               {"#%"});
    add_grammar(rules, {"Form1.lbl_201", "Form1.lbl_202", "Form1.lbl_203", "Form1.lbl_204"},
                integer);
    add_shapes(rules, {"Form1.lbl_200", "Form1.lbl_205"}, {"#"});
    add_shapes(rules, {"Form1.Label_attenuazione"}, {"#", "- #", "#- "});
    add_shapes(rules,
               {"Form1.Text_min_tank", "Form1.Text_max_tank", "Form1.text_temp_comm",
                "Form1.Text_time_comm", "Form1.Text_lambda_closed_loop",
                "Form1.Text_lambda_open_loop", "Form3.Text_rpm", "Form3.Text_press_comm",
                "Form3.Text_123", "Form3.Text_124", "Form3.Text1", "Form3.Text2"},
               {"", "#"});
    add_shapes(rules, {"Form1.Opt_modulare_yes"}, {"yes"});
    add_shapes(rules, {"Form1.Opt_modulare_no"}, {"no"});
    add_shapes(rules, {"acquisizione.Label2"}, {"saved:  #"});
    add_shapes(rules, {"Centralina_Attiva.Label2"},
               {"", "- OK TEST ESEGUITO -", "- TEST FALLITO -"});
    const int shown[] = {107, 202, 200, 121, 124, 123};
    for (int label = 1; label <= 6; ++label)
        rules["Form2.Label" + std::to_string(label)].shapes = {
            "PAR_" + std::to_string(shown[label - 1]) + " = #"};
    add_shapes(rules, {"frmSplash.Label2"}, {"9.9.20"});
}

void add_captions(Rules& rules) {
    for (const auto& [name, key] : tests::caption_messages)
        rules["Form1." + std::string(name)].message = key;
    rules["Form1.Command303"] = {.shapes = {}, .message = 1134, .suffix = "..."};
    rules["Form3"] = {.shapes = {}, .message = 1134, .suffix = "..."};
    rules["Form3.lbl_rpm_comm"] = {.shapes = {}, .message = 1168, .suffix = "g/min."};
    rules["acquisizione.Command_salva"].message = 1035;
    rules["acquisizione.Command_chiudi"].message = 1253;
    rules["Form1.Label_carburante"].grammar = [](std::string_view text) {
        for (const int key : {1102, 1134, 1171, 1172})
            if (message_texts(key).count(std::string(text))) return true;
        return text == "NO PRESS";
    };
}

const Rules& rules() {
    static const Rules all = [] {
        Rules filled;
        add_live_values(filled);
        add_settings(filled);
        add_captions(filled);
        return filled;
    }();
    return all;
}

bool allowed(const Rule& rule, const std::string& text) {
    if (rule.grammar && rule.grammar(text)) return true;
    if (rule.message != 0 && text.ends_with(rule.suffix) &&
        message_texts(rule.message).count(text.substr(0, text.size() - rule.suffix.size())))
        return true;
    return std::any_of(rule.shapes.begin(), rule.shapes.end(),
                       [&](const std::string& shape) { return shaped(text, shape); });
}

} // namespace

std::string wrong_text(const view::Widget& widget) {
    const std::string& text = widget.look.text;
    if (text == widget.design.text || own_captions(widget_name(widget)).count(text)) return "";
    const auto rule = rules().find(widget_name(widget));
    if (rule != rules().end() && allowed(rule->second, text)) return "";
    return widget_name(widget) + " shows \"" + text + "\", which no rule gives";
}

} // namespace zol::soak
