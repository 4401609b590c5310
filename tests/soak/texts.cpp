#include "tests/soak/texts.h"

#include "app/whole_file.h"
#include "tests/soak/handlers.h"
#include "tests/support/caption_messages.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zol::soak {
namespace {

// --- The language files, read without the program's code

std::vector<std::string> lines_of_all_languages(const std::string& name) {
    std::vector<std::string> lines;
    for (const char* language : {"it", "uk", "pl", "de", "fr"}) {
        std::ifstream in(ZOL_SOURCE_DIR "/language/" + name + "_" + language + ".ini");
        for (std::string line; std::getline(in, line);) {
            if (line.ends_with('\r')) line.pop_back();
            lines.push_back(app::as_utf8(line));
        }
    }
    return lines;
}

using Texts = std::set<std::string>;

// The texts of a message in all languages.
const Texts& message_texts(int key) {
    static const std::map<int, Texts> all = [] {
        std::map<int, Texts> texts;
        const auto lines = lines_of_all_languages("Mivra");
        for (std::size_t i = 0; i + 1 < lines.size(); ++i)
            if (lines[i].starts_with('['))
                texts[std::stoi(lines[i].substr(1))].insert(lines[i + 1]);
        return texts;
    }();
    return all.at(key);
}

// The captions without a message, in all languages, by the name of the control.
bool is_own_caption(const std::string& widget, const std::string& text) {
    static const std::set<std::pair<std::string, std::string>> all = [] {
        std::set<std::pair<std::string, std::string>> captions;
        bool in_section = false;
        for (const std::string& line : lines_of_all_languages("tips")) {
            if (line.starts_with('[')) in_section = line == "[captions]";
            const auto equals = line.find('=');
            if (equals == std::string::npos) continue;
            const std::string key{app::trim(std::string_view(line).substr(0, equals))};
            const std::string text_of_key{app::trim(std::string_view(line).substr(equals + 1))};
            if (in_section) captions.emplace(key, text_of_key);
            // The dialog's heading once the unit has answered.
            if (key == "unit answers") captions.emplace("Centralina_Attiva.Label1", text_of_key);
        }
        return captions;
    }();
    return all.count({widget, text}) > 0;
}

bool is_trouble_code_text(const std::string& text) {
    static const auto lines = lines_of_all_languages("codici_eobd");
    static const std::unordered_set<std::string> all(lines.begin(), lines.end());
    return text.empty() || all.count(text) > 0;
}

// --- The rules

// The names of controls, and the texts that they may show. In a pattern, # is a decimal number.
struct Rule {
    const char *window, *controls, *pattern;
};

constexpr const char* word = R"(\d{1,4}|[1-5]\d{4}|6[0-4]\d{3}|65[0-4]\d\d|655[0-2]\d|6553[0-5])";

constexpr Rule rules[] = {
    // Live values
    {"Form1",
     "Label_rpm Label_tinj Label_temp Label_lambda label_lambda_2 Label_level_attuale label_liv2 "
     "Label_ktar Label_ct Label_stato Label_sfondo lbl_num_errori Label35 LabeL_pressure",
     word},
    {"acquisizione", "Label1 Label_max", word},
    {"Form1", "LabeL_pressure", "---   "},
    {"Form1", "Label27 Label44 Label_pressione_taratura", "#"},
    {"Form1", "Label1",
     "WAIT INIT  PROT\\.\\.  |OPEN LOOP  |CLOSED LOOP  |OPEN LOOP TRANS\\.  |LOST CONNECTION"},
    {"Form1", "Label13 Label14", "--|# % "},
    {"Form1", "Label42", "--|#mV"},
    {"Form1", "Label49", "L= #"},
    {"Form1", "Picture1", "|(centre|centro|Mitte|środek) #"},
    {"Form1", "Label20", "Batt\\. #  Volts"},
    {"Form1", "lbl_tuning",
     "-- (WAIT TUNING\\.\\.\\.|WAIT TEMPERATURE\\.\\.\\.|FINISH|[LR] - REPEAT WAIT TUNING  |"
     "AUTO MAGRA ALZ\\. PRESS\\.\\.\\.|AUTO RICCA DIMIN\\. PRESS\\.) --"},
    {"Form1", "lbl_ore",
     "Time On GAS:    # hour - # min    - ( Date Last Check : # / # / #|Date Last Check : # / # / "
     "#  )"},
    {"Form1", "lbl_par_1 lbl_par_2 lbl_par_3 lbl_par_4 lbl_par_5 lbl_par_6",
     "|0|NO ERROR|P(?!0000)0\\d{3}|P(?!2000)[2-9]\\d{3}|P[1-9]\\d{4,}"},
    // Settings
    {"Form1", "Label8 Label9 Label10 Label11 Label_led0 Label_led1 Label_led2 Label_led3", "#%"},
    {"Form1", "lbl_201 lbl_202 lbl_203 lbl_204", "-?\\d+"},
    {"Form1", "lbl_200 lbl_205", "#"},
    {"Form1", "Label_attenuazione", "#|- #|#- "},
    {"Form1",
     "Text_min_tank Text_max_tank text_temp_comm Text_time_comm Text_lambda_closed_loop "
     "Text_lambda_open_loop",
     "|#"},
    {"Form3", "Text_rpm Text_press_comm Text_123 Text_124 Text1 Text2", "|#"},
    {"Form1", "Opt_modulare_yes", "yes"},
    {"Form1", "Opt_modulare_no", "no"},
    {"acquisizione", "Label2", "saved:  #"},
    {"Centralina_Attiva", "Label2", "|- OK TEST ESEGUITO -|- TEST FALLITO -"},
    {"Form2", "Label1", "PAR_107 = #"},
    {"Form2", "Label2", "PAR_202 = #"},
    {"Form2", "Label3", "PAR_200 = #"},
    {"Form2", "Label4", "PAR_121 = #"},
    {"Form2", "Label5", "PAR_124 = #"},
    {"Form2", "Label6", "PAR_123 = #"},
    {"frmSplash", "Label2", "9\\.9\\.20"},
    {"Form1", "Label_carburante", "NO PRESS"},
};

bool is_name_in(const std::string& name, const char* names) {
    return (" " + std::string(names) + " ").find(" " + name + " ") != std::string::npos;
}

bool fits_a_pattern(const view::Widget& widget, const std::string& text) {
    if (widget.kind == view::Kind::window) return false;
    for (const Rule& rule : rules) {
        if (rule.window != widget.window->name ||
            !is_name_in(view::full_name(widget), rule.controls))
            continue;
        static std::map<const Rule*, std::regex> compiled;
        const auto [at, is_new] = compiled.try_emplace(&rule);
        if (is_new)
            at->second = std::regex_replace(rule.pattern, std::regex("#"), R"(-?\d+(\.\d+)?)");
        if (std::regex_match(text, at->second)) return true;
    }
    return false;
}

// A message, in any language, and what follows it.
bool is_message(const std::string& widget, const std::string& text) {
    struct Caption {
        int key;
        std::string suffix;
    };
    static const std::multimap<std::string, Caption> captions = [] {
        std::multimap<std::string, Caption> all = {{"Form1.Command303", {1134, "..."}},
                                                   {"Form3", {1134, "..."}},
                                                   {"Form3.lbl_rpm_comm", {1168, "g/min."}},
                                                   {"acquisizione.Command_salva", {1035, ""}},
                                                   {"acquisizione.Command_chiudi", {1253, ""}}};
        for (const int fuel : {1102, 1134, 1171, 1172})
            all.insert({"Form1.Label_carburante", {fuel, ""}});
        for (const auto& [name, key] : tests::caption_messages)
            all.insert({"Form1." + std::string(name), {key, ""}});
        return all;
    }();
    const auto [first, last] = captions.equal_range(widget);
    return std::any_of(first, last, [&](const auto& each) {
        const auto& [key, suffix] = each.second;
        return text.ends_with(suffix) &&
               message_texts(key).count(text.substr(0, text.size() - suffix.size()));
    });
}

} // namespace

std::string wrong_text(const view::Widget& widget) {
    const std::string& text = widget.look.text;
    const std::string name = widget_name(widget);
    if (text == widget.design.text || is_own_caption(name, text) || is_message(name, text) ||
        fits_a_pattern(widget, text))
        return "";
    if (name == "Form1.Text_note_error" && is_trouble_code_text(text)) return "";
    return name + " shows \"" + text + "\", which no rule allows";
}

} // namespace zol::soak
