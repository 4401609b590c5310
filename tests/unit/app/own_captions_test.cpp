// The captions that have no numbered message: the same ones in five files, and no others.
#include "app/app_state.h"
#include "tests/unit/app/language_folder.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form3.h"

#include <set>

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
    {"Form1.mnu_dump_parametri", &form1::mnu_dump_parametri}};

TipLines captions_of(const std::string& language) { return tip_sections(language)["captions"]; }

class OwnCaptions : public LanguageFolder {
  protected:
    static void expect_words_of(const std::string& language) {
        for (const auto& [name, text] : captions_of(language))
            EXPECT_EQ(view::text(*own.at(name)), text) << language << " " << name;
    }
    // English helper texts with this content, and no other language file.
    void use_file(const std::string& content) {
        use_own_language_folder();
        write_file("language/tips_uk.ini", content);
    }
};

TEST_F(OwnCaptions, AreTheSameInEachFile) {
    for (const auto& [item, language] : languages) {
        std::set<std::string> found, expected;
        for (const auto& [name, text] : captions_of(language)) {
            EXPECT_TRUE(found.insert(name).second) << language << " has twice " << name;
            EXPECT_NE(text, "") << language << " " << name;
        }
        for (const auto& [name, control] : own)
            expected.insert(name);
        EXPECT_EQ(found, expected) << language;
    }
}

TEST_F(OwnCaptions, AreEnglishInTheTables) {
    for (const auto& [name, text] : captions_of("uk"))
        EXPECT_EQ(own.at(name)->design.text, text) << name;
}

TEST_F(OwnCaptions, FollowTheLanguageAtOnce) {
    start_connected();
    for (const auto& [item, language] : languages) {
        operator_clicks(*item);
        expect_words_of(language);
    }
}

TEST_F(OwnCaptions, HaveTheStoredLanguageFromTheStart) {
    store_language("pl");
    start_connected();
    expect_words_of("pl");
}

TEST_F(OwnCaptions, OfALaterWindowHaveTheLanguageInUse) {
    store_language("fr");
    start_connected();
    inside_program([] { view::load(form3::Form3); });
    EXPECT_EQ(view::text(form3::Label2), "TEMPS");
    inside_program([] { view::load(centralina_attiva::Centralina_Attiva); });
    EXPECT_THAT(view::text(centralina_attiva::Label1), testing::StartsWith("Le calculateur"));
}

TEST_F(OwnCaptions, AreEnglishForAnUnknownLanguage) {
    store_language("xx");
    start_connected();
    expect_words_of("uk");
}

TEST_F(OwnCaptions, OtherCaptionsAreNotReadFromTheFile) {
    use_file("[captions]\nForm1.Label24 = SOFTER\nForm1.Command_lambda = PROBE\n"
             "Form1.Label18 = DIAGNOSIS LINE\n");
    start_connected();
    EXPECT_EQ(view::text(form1::Label24), "SOFTER");
    EXPECT_EQ(view::text(form1::Command_lambda), "LAMBDA");
    EXPECT_EQ(view::text(form1::Label18), "EOBD");
    EXPECT_EQ(view::text(form1::Label12), "RPM MULTIPLIER") << "not in the file";
}

TEST_F(OwnCaptions, AreThoseOfTheTablesWithoutAFile) {
    use_file("");
    std::filesystem::remove_all(folder / "language");
    start_connected();
    for (const auto& [name, control] : own)
        EXPECT_EQ(view::text(*control), control->design.text) << name;
}

} // namespace
} // namespace zol::tests
