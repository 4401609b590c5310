// The captions that take no numbered message: five files with the same ones, and nothing else
// moved.
#include "app/app_state.h"
#include "tests/support/bench.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <filesystem>
#include <fstream>
#include <map>

namespace zol::tests {
namespace {

using view::Widget;

const std::map<std::string, const Widget*> own = {
    {"Form1.Label22", &form1::Label22},
    {"Form1.Label24", &form1::Label24},
    {"Form1.Label12", &form1::Label12},
    {"Form1.Command31", &form1::Command31},
    {"Form1.Frame_abilita_controllo_lambda", &form1::Frame_abilita_controllo_lambda},
    {"Form1.Label32", &form1::Label32},
    {"Form1.Label29", &form1::Label29},
    {"Form1.Frame_diagnosi", &form1::Frame_diagnosi},
    {"Form1.Label21", &form1::Label21},
    {"Form1.Label23", &form1::Label23},
    {"Form3.Label2", &form3::Label2},
    {"Centralina_Attiva.Label1", &centralina_attiva::Label1},
};

const std::map<std::string, Widget*> languages = {{"it", &form1::it},
                                                  {"uk", &form1::uk},
                                                  {"pl", &form1::pl},
                                                  {"fr", &form1::fr},
                                                  {"de", &form1::de}};

std::map<std::string, std::string> captions_of(const std::string& language) {
    std::ifstream in(std::filesystem::path(ZOL_SOURCE_DIR) / "language" /
                     ("tips_" + language + ".ini"));
    std::map<std::string, std::string> captions;
    std::string line, section;
    while (std::getline(in, line)) {
        const auto sign = line.find(" = ");
        if (line.starts_with("[")) section = line;
        if (section != "[captions]" || sign == std::string::npos) continue;
        EXPECT_TRUE(captions.emplace(line.substr(0, sign), line.substr(sign + 3)).second) << line;
    }
    return captions;
}

class OwnCaptions : public Bench {
  protected:
    static void expect_words_of(const std::string& language) {
        for (const auto& [name, text] : captions_of(language))
            EXPECT_EQ(view::text(*own.at(name)), text) << language << " " << name;
    }
    // A folder of the test's own, with the English helper texts only.
    void use_file(const std::string& content) {
        std::filesystem::remove(folder / "language");
        std::filesystem::create_directory(folder / "language");
        write_file("language/tips_uk.ini", content);
    }
};

TEST_F(OwnCaptions, StandInEachFileAllAndNoOthers) {
    for (const auto& [language, item] : languages) {
        const auto captions = captions_of(language);
        for (const auto& [name, control] : own)
            EXPECT_TRUE(captions.contains(name) && !captions.at(name).empty())
                << language << " lacks " << name;
        for (const auto& [name, text] : captions)
            EXPECT_TRUE(own.contains(name)) << language << ": the program does not show " << name;
    }
}

TEST_F(OwnCaptions, AreInTheTablesTheEnglishOnes) {
    for (const auto& [name, text] : captions_of("uk"))
        EXPECT_EQ(own.at(name)->design.text, text) << name;
}

TEST_F(OwnCaptions, FollowTheLanguageAtOnce) {
    start_connected();
    for (const auto& [language, item] : languages) {
        operator_clicks(*item);
        expect_words_of(language);
    }
}

TEST_F(OwnCaptions, AreInTheStoredLanguageFromTheStart) {
    write_file("setting.ini", "[General]\nLANGUAGE=pl\n");
    start_connected();
    expect_words_of("pl");
}

TEST_F(OwnCaptions, OfAWindowThatOpensLaterAreInTheLanguageInUse) {
    write_file("setting.ini", "[General]\nLANGUAGE=fr\n");
    start_connected();
    inside_program([] { view::load(form3::Form3); });
    EXPECT_EQ(view::text(form3::Label2), "TEMPS");
    inside_program([] { view::load(centralina_attiva::Centralina_Attiva); });
    EXPECT_THAT(view::text(centralina_attiva::Label1), testing::StartsWith("Le calculateur"));
}

TEST_F(OwnCaptions, InNoKnownLanguageAreEnglish) {
    write_file("setting.ini", "[General]\nLANGUAGE=xx\n");
    start_connected();
    expect_words_of("uk");
}

TEST_F(OwnCaptions, NoOtherCaptionCanBeChangedByTheFile) {
    use_file("[captions]\nForm1.Label24 = SOFTER\nForm1.Command_lambda = PROBE\n"
             "Form1.Label18 = DIAGNOSIS LINE\n");
    start_connected();
    EXPECT_EQ(view::text(form1::Label24), "SOFTER");
    EXPECT_EQ(view::text(form1::Command_lambda), "LAMBDA");
    EXPECT_EQ(view::text(form1::Label18), "EOBD");
    EXPECT_EQ(view::text(form1::Label12), "RPM MULTIPLIER") << "what the file lacks stays";
}

TEST_F(OwnCaptions, WithoutAnyFileAreThoseOfTheTables) {
    use_file("");
    std::filesystem::remove_all(folder / "language");
    start_connected();
    for (const auto& [name, control] : own)
        EXPECT_EQ(view::text(*control), control->design.text) << name;
}

} // namespace
} // namespace zol::tests
