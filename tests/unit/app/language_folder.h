// The language files of the project, and a language folder of the test's own in their place.
#pragma once

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

#include <fstream>
#include <map>

namespace zol::tests {

// The menu items of the languages and their codes.
inline const std::pair<view::Widget*, std::string> languages[] = {{&form1::it, "it"},
                                                                  {&form1::uk, "uk"},
                                                                  {&form1::pl, "pl"},
                                                                  {&form1::fr, "fr"},
                                                                  {&form1::de, "de"}};

// The sections of the project's `tips_<language>.ini`, each with its lines split at " = ".
using TipLines = std::vector<std::pair<std::string, std::string>>;
inline std::map<std::string, TipLines> tip_sections(const std::string& language) {
    std::ifstream in(std::filesystem::path(ZOL_SOURCE_DIR) / "language" /
                     ("tips_" + language + ".ini"));
    std::map<std::string, TipLines> sections;
    for (std::string line, section; std::getline(in, line);) {
        const auto sign = line.find(" = ");
        if (line.starts_with("["))
            section = line.substr(1, line.size() - 2);
        else if (sign != std::string::npos)
            sections[section].emplace_back(line.substr(0, sign), line.substr(sign + 3));
        else
            EXPECT_EQ(line, "") << "in " << language;
    }
    return sections;
}

class LanguageFolder : public LogicTest {
  protected:
    // Replaces the project's files by an empty folder.
    void use_own_language_folder() {
        std::filesystem::remove(folder / "language");
        std::filesystem::create_directory(folder / "language");
    }
    void store_language(const std::string& code) {
        write_file("setting.ini", "[General]\nLANGUAGE=" + code + "\n");
    }
};

} // namespace zol::tests
