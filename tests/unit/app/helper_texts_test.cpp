// The accessible names and tips of the controls: five complete files, and files that are damaged or
// missing.
#include "app/helper_texts.h"
#include "tests/unit/app/language_folder.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"

#include <set>

namespace zol::tests {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using view::Kind;
using view::Widget;

std::vector<std::string> names_of(const std::string& list) {
    std::vector<std::string> names;
    std::istringstream in(list);
    for (std::string name; std::getline(in >> std::ws, name, ',');)
        names.push_back(name);
    return names;
}

std::vector<Widget*> all_of(const Widget& window) {
    std::vector<Widget*> all = window.controls;
    for (Widget* entry : window.menus)
        if (entry->kind != Kind::separator) all.push_back(entry);
    return all;
}

// A control without a caption needs an accessible name.
bool has_no_caption(const Widget& w) {
    switch (w.kind) {
    case Kind::slider:
    case Kind::text_box:
    case Kind::combo_box:
    case Kind::progress_bar:
    case Kind::shape:
    case Kind::picture:
    case Kind::movie: return true;
    default: return w.design.text.empty();
    }
}

// A movie has a name and nothing to tell.
bool is_movie(const std::string& name) { return name == "ShockwaveFlash1"; }

class HelperFiles : public testing::TestWithParam<const char*> {};

TEST_P(HelperFiles, DescribeEachControlOnce) {
    const auto sections = tip_sections(GetParam());
    for (const Widget* window : view::all_windows()) {
        ASSERT_TRUE(sections.contains(window->name)) << window->name;
        std::map<std::string, std::string> texts; // by name
        for (const auto& [names, text] : sections.at(window->name))
            for (const std::string& name : names_of(names))
                EXPECT_TRUE(texts.emplace(name, text).second) << name << " twice";
        std::set<std::string> used;
        for (const Widget* w : all_of(*window)) {
            const bool by_itself = texts.contains(full_name(*w));
            EXPECT_TRUE(by_itself || texts.contains(w->name))
                << window->name << " " << full_name(*w);
            used.insert(by_itself ? full_name(*w) : w->name);
        }
        for (const auto& [name, text] : texts) {
            EXPECT_TRUE(used.contains(name)) << window->name << " has no " << name;
            if (is_movie(name)) continue;
            EXPECT_THAT(text, EndsWith(".")) << name;
            EXPECT_THAT(text, Not(HasSubstr("  "))) << name;
            EXPECT_THAT(text, Not(HasSubstr("PAR_"))) << name << ": numbers come from the program";
        }
    }
    EXPECT_EQ(sections.size(), view::all_windows().size() + 4)
        << "the windows, [keys], [captions], [words] and [boxes]";
}

TEST_P(HelperFiles, HaveTheWordsForTextsOfTheProgram) {
    const auto sections = tip_sections(GetParam());
    std::vector<std::string> words;
    for (const auto& [word, text] : sections.at("words"))
        words.push_back(word);
    EXPECT_THAT(words, ElementsAre("centre", "there", "not there", "terminal of a session",
                                   "no device", "no permission", "in use", "not a serial port",
                                   "cannot open", "no answer", "no port chosen", "unit answers"));
}

// Each key that the main window answers to, the automatic tuning first.
TEST_P(HelperFiles, NameEachKeyOfTheMainWindow) {
    const auto sections = tip_sections(GetParam());
    std::vector<std::string> keys;
    for (const auto& [key, said] : sections.at("keys")) {
        keys.push_back(key);
        EXPECT_THAT(said, testing::MatchesRegex("[^|]+ \\| [^|]+")) << GetParam() << " " << key;
    }
    EXPECT_THAT(keys, ElementsAre("Ctrl+T", "Space", "Left Right", "Page Down Page Up", "Up Down",
                                  "Ctrl+G", "Ctrl+F", "Ctrl+V"));
}

// The keys of a control are in its tip as its language calls them.
TEST_P(HelperFiles, NameTheKeysInTheTipsOfControls) {
    struct NamedKeys {
        const char* tuning;
        std::vector<std::string> normal, power;
        const char *changeover_speed, *fuel;
    };
    const std::map<std::string, NamedKeys> by_language = {
        {"it", {"Ctrl+T", {"Sinistra", "Destra"}, {"Pag giù", "Pag su"}, "Ctrl+G", "Spazio"}},
        {"uk", {"Ctrl+T", {"Left", "Right"}, {"Page Down", "Page Up"}, "Ctrl+G", "Space"}},
        {"pl", {"Ctrl+T", {"w lewo", "w prawo"}, {"Page Down", "Page Up"}, "Ctrl+G", "Spacja"}},
        {"de", {"Strg+T", {"Links", "Rechts"}, {"Bild ab", "Bild auf"}, "Strg+G", "Leertaste"}},
        {"fr", {"Ctrl+T", {"Gauche", "Droite"}, {"Page suiv.", "Page préc."}, "Ctrl+G", "Espace"}}};
    const NamedKeys& keys = by_language.at(GetParam());
    const auto sections = tip_sections(GetParam());
    std::map<std::string, std::string> tips; // by control, captions too
    for (const auto& [names, text] : sections.at("Form1"))
        for (const std::string& name : names_of(names))
            tips[name] = text;
    for (const char* name : {"Slider_ktar", "Label45"}) {
        EXPECT_THAT(tips[name], HasSubstr(keys.tuning)) << name;
        for (const std::string& key : keys.normal)
            EXPECT_THAT(tips[name], HasSubstr(key)) << name;
    }
    for (const char* name : {"Slider_power", "Label46"})
        for (const std::string& key : keys.power)
            EXPECT_THAT(tips[name], HasSubstr(key)) << name;
    for (const char* name : {"Label_rpm", "lbl_rpm"})
        EXPECT_THAT(tips[name], HasSubstr(keys.changeover_speed)) << name;
    EXPECT_THAT(tips["Label_carburante"], HasSubstr(keys.fuel));
}

// The toolkit asks for these by its own English.
TEST_P(HelperFiles, HoldTheTextsOfTheToolkitsBoxes) {
    const auto sections = tip_sections(GetParam()), english_sections = tip_sections("uk");
    std::vector<std::string> here, english;
    for (const auto& [text, translated] : sections.at("boxes")) {
        here.push_back(text);
        EXPECT_NE(translated, "") << text;
    }
    for (const auto& [text, translated] : english_sections.at("boxes"))
        english.push_back(text);
    EXPECT_EQ(here, english);
    EXPECT_THAT(here, testing::IsSupersetOf({"OK", "Yes", "No", "Cancel", "Basic colors"}));
}

INSTANTIATE_TEST_SUITE_P(Languages, HelperFiles, testing::Values("it", "uk", "pl", "de", "fr"));

class HelperTexts : public LanguageFolder {
  protected:
    void use_file(const std::string& language, const std::string& content) {
        use_own_language_folder();
        write_file("language/tips_" + language + ".ini", content);
    }
};

TEST_F(HelperTexts, AreCompleteInEachLanguage) {
    start_connected();
    for (const auto& [item, code] : languages) {
        operator_clicks(*item);
        for (const Widget* window : view::all_windows())
            for (const Widget* w : all_of(*window)) {
                if (!is_movie(w->name)) {
                    EXPECT_THAT(w->help.text, Not(IsEmpty())) << code << " " << full_name(*w);
                }
                if (has_no_caption(*w)) {
                    EXPECT_THAT(w->help.name, Not(IsEmpty())) << code << " " << full_name(*w);
                }
            }
    }
}

TEST_F(HelperTexts, LegendOfKeysFollowsLanguage) {
    start_connected();
    const auto& keys = form1::frame_engine.help.keys;
    ASSERT_EQ(keys.size(), 8U);
    EXPECT_EQ(keys[0], (view::KeyHint{"Ctrl+T", "automatic tuning"}));
    operator_clicks(form1::de);
    EXPECT_EQ(keys[0], (view::KeyHint{"Strg+T", "automatischer Abgleich"}));
    EXPECT_EQ(keys[1], (view::KeyHint{"Leertaste", "Gas / Benzin"}));
}

TEST_F(HelperTexts, LegendHasAtMostTwentyKeys) {
    std::string content = "[keys]\n";
    for (int key = 0; key < 5000; ++key)
        content += "K" + std::to_string(key) + " = K" + std::to_string(key) + " | text\n";
    use_file("uk", content);
    start_connected();
    const auto& keys = form1::frame_engine.help.keys;
    ASSERT_EQ(keys.size(), 20U);
    EXPECT_EQ(keys[19], (view::KeyHint{"K19", "text"}));
}

TEST_F(HelperTexts, NameTheUnitOfAValue) {
    start_connected();
    EXPECT_EQ(form1::Label_rpm.help.name, "Engine speed, rpm");
    EXPECT_EQ(form1::text_temp_comm.help.name, "Changeover temperature, °C");
    EXPECT_THAT(form1::text_temp_comm.help.text, EndsWith("\nPAR_15"));
    EXPECT_THAT(form1::Slider_ktar.help.text, EndsWith("\nPAR_3, PAR_4, PAR_104"));
}

TEST_F(HelperTexts, OfACaptionAreThoseOfItsValue) {
    start_connected();
    EXPECT_EQ(form1::Label6.help.text, form1::Text_min_tank.help.text);
    EXPECT_EQ(form1::Label6.help.name, "");
    EXPECT_EQ(form1::lbl205.help.text, form1::Text_min_tank.help.text);
}

TEST_F(HelperTexts, OfAnArrayHaveTheNumberOfTheElement) {
    start_connected();
    EXPECT_EQ(form1::led_rpm[34].help.name, "Engine speed lamp 35");
    EXPECT_EQ(form1::Slider1[1].help.name, "Tank row 2, upper end, %");
    EXPECT_EQ(form1::Slider1[4].help.name, "Tank row 5, lower end, %");
    EXPECT_EQ(form1::Shape1[0].help.name, "Reserve lamp");
}

TEST_F(HelperTexts, FollowTheLanguageInClosedWindowsToo) {
    start_connected();
    std::set<const Widget*> notified;
    screen.on_changed = [&](Widget& w, view::Aspect aspect) {
        if (aspect == view::Aspect::help) notified.insert(&w);
    };
    operator_clicks(form1::de);
    EXPECT_EQ(form1::Label_rpm.help.name, "Motordrehzahl, U/min");
    EXPECT_TRUE(notified.contains(&form1::Label_rpm)) << "the screen is notified";
    EXPECT_FALSE(notified.contains(&form3::Text_rpm)) << "that window is not open";
    EXPECT_EQ(form3::Text_rpm.help.name, "Umschaltdrehzahl, U/min");
}

TEST_F(HelperTexts, OfALanguageWithoutAFileAreEnglish) {
    use_file("uk", "[Form1]\nLabel_rpm = Engine speed, rpm | Speed.\n");
    store_language("de");
    start_connected();
    EXPECT_EQ(form1::Label_rpm.help.name, "Engine speed, rpm");
    EXPECT_EQ(form1::Label_tinj.help, view::Help{}) << "not in the file";
}

TEST_F(HelperTexts, AreNoneWithoutAnyFile) {
    use_file("uk", "");
    std::filesystem::remove_all(folder / "language");
    start_connected();
    EXPECT_EQ(form1::Label_rpm.help, view::Help{});
    EXPECT_EQ(app::helper_word("there"), "there");
}

TEST_F(HelperTexts, OfADamagedFileAreReadAsFarAsPossible) {
    use_file("uk", "\xFF\xFE\n[\n]\n[]\n=\n|\n = | \n[Form1\n[Form1]\nLabel_rpm\nLabel_tinj =\n"
                   ",,, = x\nLabel_temp = | only text\r\nLabel_lambda = a|b|c\nled_rpm = {n}{n}{");
    start_connected();
    EXPECT_EQ(form1::Label_tinj.help, view::Help{});
    EXPECT_EQ(form1::Label_temp.help, (view::Help{"", "only text", {}}));
    EXPECT_EQ(form1::Label_lambda.help, (view::Help{"a", "b|c", {}}));
    EXPECT_EQ(form1::led_rpm[0].help.text, "11{");
}

TEST_F(HelperTexts, LeaveTheTipsOfTheControlsAlone) {
    start_connected();
    EXPECT_EQ(form1::Slider_ktar.look.tip, "199");
    EXPECT_THAT(form1::Slider_ktar.help.text, StartsWith("Gain at low load"));
    operator_clicks(form1::de);
    EXPECT_EQ(form1::Slider_ktar.look.tip, "199");
}

TEST_F(HelperTexts, OfThePortMenuAreRenewedWhenItOpens) {
    const auto adapter = folder / "adapter";
    std::filesystem::create_symlink(adapter, folder / "ports/com2");
    start_connected();
    const std::string line =
        "COM2: " + (folder / "ports/com2").string() + " -> " + adapter.string() + " (";
    EXPECT_THAT(form1::com2.look.tip,
                AllOf(StartsWith(line + "not there)\n"), HasSubstr("next start")));
    write_file("adapter", "");
    inside_program([] { view::operator_acts::open(form1::mnu_Porta_Seriale); });
    EXPECT_THAT(form1::com2.look.tip, StartsWith(line + "there)\n"));
    operator_clicks(form1::de);
    EXPECT_THAT(form1::com2.look.tip, StartsWith(line + "vorhanden)\nSpeichert"));
}

TEST_F(HelperTexts, OfThePortListAreRenewedWhenItOpens) {
    std::filesystem::create_symlink(folder / "adapter", folder / "ports/com4");
    port->silent = true;
    start_program();
    run_for(3000);
    ASSERT_TRUE(centralina_attiva::Centralina_Attiva.shown);
    const Widget& list = centralina_attiva::Combo1;
    ASSERT_EQ(list.look.item_tips.size(), 7U);
    EXPECT_THAT(list.look.item_tips[2], AllOf(StartsWith("COM4: "), EndsWith("(not there)")));
    write_file("adapter", "");
    inside_program([] { view::operator_acts::open(centralina_attiva::Combo1); });
    EXPECT_THAT(list.look.item_tips[2], AllOf(StartsWith("COM4: "), EndsWith("(there)")));
    EXPECT_THAT(list.look.tip, HasSubstr(list.look.item_tips[2] + "\nCOM5: "));
}

} // namespace
} // namespace zol::tests
