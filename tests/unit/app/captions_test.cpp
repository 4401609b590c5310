// Which control takes which message, in five languages, and the choice of the language.
#include "app/app_state.h"
#include "app/captions.h"
#include "app/settings_file.h"
#include "tests/support/caption_messages.h"
#include "tests/unit/app/language_folder.h"

#include <iterator>

namespace zol::tests {
namespace {

const std::map<std::string, int> message_of(std::begin(caption_messages),
                                            std::end(caption_messages));
const std::vector<int> tank_messages = {1261, 1264, 1259, 1262, 1263, 1260};

class Captions : public LanguageFolder {
  protected:
    // The entries of a language file.
    std::map<int, std::string> file_of(const std::string& language) {
        std::map<int, std::string> entries;
        std::istringstream lines(read_text("language/Mivra_" + language + ".ini"));
        std::string header, text;
        while (std::getline(lines, header) && std::getline(lines, text))
            entries[std::stoi(header.substr(1))] = text;
        return entries;
    }
    static std::string caption_of(const std::string& name) {
        const view::Widget* widget = view::find_widget(form1::Form1, name);
        return widget ? view::text(*widget) : "no control of that name";
    }
    // Messages that are their own numbers.
    void messages_are_numbers() {
        use_own_language_folder();
        std::string content;
        for (int key = 1000; key < 1300; ++key)
            content += "[" + std::to_string(key) + "]\n#" + std::to_string(key) + "\n";
        for (const auto& [item, code] : languages)
            write_file("language/Mivra_" + code + ".ini", content);
    }
};

TEST_F(Captions, ReachTheirControlsInEachLanguage) {
    start_connected();
    for (const auto& [item, code] : languages) {
        operator_clicks(*item);
        const auto entries = file_of(code);
        for (const auto& [name, key] : message_of)
            EXPECT_EQ(caption_of(name), entries.at(key)) << code << " " << name;
        std::vector<std::string> tanks;
        for (const int key : tank_messages)
            tanks.push_back(entries.at(key));
        EXPECT_EQ(form1::Combo_tank_level.look.items, tanks) << code;
    }
}

TEST_F(Captions, AreTheSameAfterActivation) {
    messages_are_numbers();
    start_connected();
    std::map<std::string, int> found;
    for (auto* list : {&form1::Form1.controls, &form1::Form1.menus})
        for (const view::Widget* widget : *list)
            if (view::text(*widget).starts_with('#'))
                found[view::full_name(*widget)] = std::stoi(view::text(*widget).substr(1));
    found.erase("Label_carburante"); // set by the telegram
    EXPECT_EQ(view::text(form1::Command303), "#1134...");
    found.erase("Command303");
    EXPECT_EQ(found, message_of);
}

TEST_F(Captions, AreSetForPanelsBeforeControls) {
    start_connected();
    std::vector<std::string> order;
    screen.on_changed = [&](view::Widget& widget, view::Aspect aspect) {
        if (aspect == view::Aspect::text) order.push_back(view::full_name(widget));
    };
    operator_clicks(form1::it);
    const auto place_of = [&](const char* name) {
        return std::find(order.begin(), order.end(), name) - order.begin();
    };
    EXPECT_EQ(order.front(), "Command_engine");
    EXPECT_LT(place_of("frame_TARATURA"), place_of("lambda_dir"));
    EXPECT_LT(place_of("mnu_reset_time_ongas"), place_of("Label22"))
        << "captions without a number come last";
}

TEST_F(Captions, ChosenLanguageIsStored) {
    start_connected();
    for (const auto& [item, code] : languages) {
        operator_clicks(*item);
        for (const auto& [other, other_code] : languages)
            EXPECT_EQ(view::checked(*other), other == item) << code;
        EXPECT_EQ(app::state.current_language, code);
        EXPECT_EQ(app::read_setting("LANGUAGE", ""), code);
    }
}

TEST_F(Captions, LanguageMenuIsNotTranslated) {
    start_connected();
    operator_clicks(form1::de);
    EXPECT_EQ(view::text(form1::it), "ITALIAN");
    EXPECT_EQ(view::text(form1::uk), "ENGLISH");
    EXPECT_EQ(view::text(form1::pl), "POLAND");
    EXPECT_EQ(view::text(form1::fr), "FRENCH");
    EXPECT_EQ(view::text(form1::de), "GERMAN");
}

TEST_F(Captions, ChangeOfLanguageKeepsTheTankPreset) {
    start_connected();
    app::state.tank_type = 4;
    operator_clicks(form1::fr);
    run_for(2000);
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, 4);
    app::state.tank_type = 99;
    operator_clicks(form1::pl);
    run_for(2000);
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_THAT(writes(), testing::ElementsAre());
}

TEST_F(Captions, LanguageWithoutAFileKeepsTheCaptions) {
    start_connected();
    use_own_language_folder();
    const std::string before = view::text(form1::frame_TARATURA);
    operator_clicks(form1::de);
    EXPECT_EQ(view::text(form1::frame_TARATURA), before);
    EXPECT_EQ(app::state.current_language, "de");
    EXPECT_TRUE(view::checked(form1::de));
}

class StoredLanguage : public Captions, public testing::WithParamInterface<const char*> {};

TEST_P(StoredLanguage, IsUsedFromTheStart) {
    const std::string code = GetParam();
    store_language(code);
    start_connected();
    for (const auto& [item, item_code] : languages)
        EXPECT_EQ(view::checked(*item), item_code == code);
    EXPECT_EQ(app::state.current_language, code);
    EXPECT_EQ(caption_of("frame_TARATURA"), file_of(code).at(1241));
}

INSTANTIATE_TEST_SUITE_P(Five, StoredLanguage, testing::Values("it", "uk", "pl", "fr", "de"));

class UnknownLanguage : public Captions, public testing::WithParamInterface<const char*> {};

TEST_P(UnknownLanguage, LeavesTheCaptionsOfTheTable) {
    store_language(GetParam());
    start_connected();
    for (const auto& [item, code] : languages)
        EXPECT_FALSE(view::checked(*item));
    EXPECT_EQ(app::state.current_language, "");
    EXPECT_EQ(view::text(form1::Frame_tank), "Gestione Serbatoio");
    EXPECT_EQ(view::text(form1::Command_engine), "MOTORE");
    EXPECT_THAT(form1::Combo_tank_level.look.items, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Codes, UnknownLanguage, testing::Values("", "UK", "en", "uk1", "../uk"));

} // namespace
} // namespace zol::tests
